// What a check has found, in the forms in which it is told.
#pragma once

#include "check/checker.hpp"

#include <string>
#include <vector>

namespace korvat::check {

enum class Colour { none, terminal };

// As compilers have it: place, level, message and rule, then the line with a caret, then what to do; at
// the end of each deck a line that sums up. With several decks, that line begins with the name.
[[nodiscard]] std::string as_text(const std::vector<CheckedDeck>& decks, Colour colour);

// The findings alone, without colours.
[[nodiscard]] std::string findings_text(const CheckedDeck& deck);

// docs/checks.md describes the members.
[[nodiscard]] std::string as_json(const std::vector<CheckedDeck>& decks);

// SARIF 2.1.0, one run for all decks.
[[nodiscard]] std::string as_sarif(const std::vector<CheckedDeck>& decks);

// "error", "warning" or "note".
[[nodiscard]] std::string name_of(Level level);

// A text without characters that a terminal would obey, and without bytes that are no UTF-8: each becomes
// a question mark. Tabs stay.
[[nodiscard]] std::string printable(std::string_view text);

} // namespace korvat::check
