// Numbers and labels as text that other programs read.
#pragma once

#include <string>
#include <string_view>

namespace korvat::exporting {

// The shortest text that reads back as the same number; `inf`, `-inf` and `nan` where it is not finite.
[[nodiscard]] std::string number_text(double value);

// The text as UTF-8: each byte that does not belong to a character becomes U+FFFD. A label is 80 bytes of
// the deck, whatever they are; it may end inside a character.
[[nodiscard]] std::string utf8_text(std::string_view text);

} // namespace korvat::exporting
