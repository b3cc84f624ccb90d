// Lines of a text, a change made in a text, and printed numbers.
#include "text.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>

namespace korvat::test {

namespace {

std::string fixed_point(double value, int width, int decimals) {
    std::array<char, 400> buffer{};
    const int length = std::snprintf(buffer.data(), buffer.size(), "%*.*f", width, decimals, value);
    return {buffer.data(), static_cast<std::size_t>(length)};
}

} // namespace

std::vector<std::string> split_lines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        lines.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            lines.emplace_back(unfinished_line);
            break;
        }
        text.remove_prefix(end + 1);
    }
    return lines;
}

std::string with_change(std::string_view text, std::string_view part, std::string_view by) {
    std::string result(text);
    return result.replace(text.find(part), part.size(), by);
}

std::vector<std::string> printed_forms(double value, int width, int decimals, double margin) {
    // Adding zero takes the sign off a zero.
    std::vector<std::string> forms = {fixed_point(value + 0.0, width, decimals)};
    if (margin == 0.0) return forms;
    for (const double near : {value - margin, value + margin}) {
        const std::string form = fixed_point(near, width, decimals);
        if (std::find(forms.begin(), forms.end(), form) == forms.end()) forms.push_back(form);
    }
    return forms;
}

} // namespace korvat::test
