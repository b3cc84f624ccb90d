// Lines of a text, and one change made in a text.
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

} // namespace korvat::test
