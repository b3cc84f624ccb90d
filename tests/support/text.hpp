// Lines of a text, a change made in a text, and printed numbers.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

// What split_lines adds after the last line of a text that does not end with a line feed, so that
// comparing lines shows the difference.
constexpr std::string_view unfinished_line = "(no line feed at the end)";

// Lines without their line feeds.
std::vector<std::string> split_lines(std::string_view text);

// The text with the first occurrence of a part replaced; throws std::out_of_range without one.
std::string with_change(std::string_view text, std::string_view part, std::string_view by);

// A number in a field of a width and with a count of decimals. Where the last decimal hangs on a
// margin, the forms of both neighbours follow; a zero without a margin has no sign.
std::vector<std::string> printed_forms(double value, int width, int decimals, double margin);

} // namespace korvat::test
