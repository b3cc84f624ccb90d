// Lines of a text, and one change made in a text.
#include "text.hpp"

#include <cstddef>

namespace korvat::test {

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

} // namespace korvat::test
