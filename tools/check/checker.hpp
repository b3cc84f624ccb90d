// Checks a deck: runs it and lets every rule look at it.
#pragma once

#include "check/deck_file.hpp"
#include "check/finding.hpp"
#include "check/outline.hpp"
#include "check/scratch_run.hpp"
#include "check/settings.hpp"
#include "check/substances.hpp"

#include <optional>
#include <string>
#include <vector>

namespace korvat::check {

// The rules that are asked for, by their names.
struct Selection {
    std::vector<std::string> only; // none: all
    std::vector<std::string> off;
};

// What the run made.
struct Made {
    std::size_t piles = 0;
    std::size_t elements = 0;
    std::size_t sections = 0; // tubes of composites included
};

struct CheckedDeck {
    std::string file; // as it is shown
    std::vector<std::string> lines;
    std::optional<Made> made; // none where the run failed
    Findings
        findings; // those of the run first, then those that explain it, then the others by line
    std::vector<SwitchedOff> off; // by the file beside the deck
};

[[nodiscard]] long count(const CheckedDeck& deck, Level level);

// Raises CannotRead where the settings beside the deck are wrong, and what run_in_scratch raises.
[[nodiscard]] CheckedDeck check_deck(const DeckFile& deck, const Selection& selection);

// A deck that was checked, and what the check has found out on its way.
struct CheckedRun {
    CheckedDeck deck;
    ScratchRun run;
    Outline outline; // records of the deck
    int revision = 4;
    std::optional<UnitSystem> units; // of the numbers of the deck, before its factors
};

// The same as check_deck, which it serves.
[[nodiscard]] CheckedRun check_run(const DeckFile& deck, const Selection& selection);

// Of a run that has failed, its error alone, whatever the settings beside the deck are.
[[nodiscard]] CheckedDeck error_of(const DeckFile& deck, const ScratchRun& run);

} // namespace korvat::check
