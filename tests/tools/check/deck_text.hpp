// Decks for the tests of the checker: one that is right, and changes of it.
#pragma once

#include "check/checker.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

// A text whose lines are changed one after the other. Lines count from 1; a number behind the last line
// is a fault of the test.
class DeckText {
public:
    explicit DeckText(std::string_view text);

    [[nodiscard]] DeckText with(int line, std::string_view text) const;          // in its place
    [[nodiscard]] DeckText with_inserted(int line, std::string_view text) const; // in front of it
    [[nodiscard]] DeckText without(int line) const;
    // The only `old` of a line becomes `replacement`.
    [[nodiscard]] DeckText with_changed(int line, std::string_view old,
                                        std::string_view replacement) const;

    [[nodiscard]] std::string text() const;

private:
    std::vector<std::string> lines_;
};

// Three piles, of revision 4: pile 1 is a cap point, pile 3 the mirror of pile 2. One load vector.
[[nodiscard]] DeckText good_deck();

// Two piles under a cap point, of revision 5: a composite, computed and given yield curves, one vector.
[[nodiscard]] DeckText good_deck_5();

[[nodiscard]] check::CheckedDeck checked(const DeckText& deck,
                                         std::string_view name = "KORVAT.INP");

// What a rule has found, one a line: "LINE:COLUMN+LENGTH MESSAGE".
[[nodiscard]] std::vector<std::string> found(const DeckText& deck, std::string_view rule);

} // namespace korvat::test
