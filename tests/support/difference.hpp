// How two texts, or two strings of bytes, differ, for a reader.
#pragma once

#include <string>
#include <string_view>

namespace korvat::test {

// Empty when the texts are equal; else a unified diff: expected lines that are missing marked with -,
// lines found instead with +, and three equal lines around them. Blanks at the end of a line are shown
// as middle dots, bytes that do not print by their numbers. Of many differences the first are shown.
std::string text_difference(std::string_view found, std::string_view expected);

// Empty when the bytes are equal; else the sizes, and the bytes around the first that differs.
std::string byte_difference(std::string_view found, std::string_view expected);

} // namespace korvat::test
