#include "run/page_block.hpp"

#include <algorithm>

namespace korvat {

void PageBlock::place(int line, int column, std::string_view text) {
    if (line < 1 || line > static_cast<int>(lines_.size())) return;
    if (column < 1) {
        const auto lost = static_cast<std::size_t>(1 - column);
        text = text.substr(std::min(lost, text.size()));
        column = 1;
    }
    lines_[static_cast<std::size_t>(line - 1)].assign_from(static_cast<std::size_t>(column), text,
                                                           text.size());
}

void PageBlock::draw_frame(int top, int bottom, int left, int right) {
    left = std::clamp(left, 1, columns);
    right = std::clamp(right, 1, columns);
    const std::string edge(static_cast<std::size_t>(std::max(right - left + 1, 0)), '*');
    place(top, left, edge);
    place(bottom, left, edge);
    for (int line = top; line <= bottom; ++line) {
        place(line, left, "*");
        place(line, right, "*");
    }
}

std::vector<std::string> PageBlock::lines() const {
    std::vector<std::string> lines;
    for (const auto& line : lines_) {
        lines.emplace_back(line.view());
    }
    return lines;
}

} // namespace korvat
