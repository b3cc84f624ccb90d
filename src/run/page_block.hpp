// A block of text lines on which the identification page is composed by line and column.
#pragma once

#include "fortran/text.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace korvat {

// Lines 1..n of columns 1..131. What falls outside the block is dropped.
class PageBlock {
public:
    static constexpr int columns = 131;

    explicit PageBlock(int lines) : lines_(static_cast<std::size_t>(lines)) {}

    // Places a text with its first character in `column`.
    void place(int line, int column, std::string_view text);

    // Draws a rectangle of asterisks; its columns are held within the block.
    void draw_frame(int top, int bottom, int left, int right);

    // All lines, each with all its columns.
    [[nodiscard]] std::vector<std::string> lines() const;

private:
    std::vector<fortran::Text<columns>> lines_;
};

} // namespace korvat
