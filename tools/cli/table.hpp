// Tables and texts as they stand on a terminal.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvat::cli {

// Rows of cells, each column as wide as its widest cell, right-aligned, two blanks before each.
class Table {
public:
    // Titles of the columns and, below them, their units; none where no column has one.
    explicit Table(std::vector<std::string> titles, std::vector<std::string> units = {});

    // As many cells as there are columns.
    void add(std::vector<std::string> row);
    [[nodiscard]] std::string text() const;

private:
    std::vector<std::vector<std::string>> rows_;
};

// A number with that many significant digits at most, without trailing zeros; "inf", "-inf", "nan".
[[nodiscard]] std::string shown_number(double value, int digits = 6);

// A text of a file as UTF-8 that does nothing to a terminal: control characters are shown as \xNN.
[[nodiscard]] std::string shown_text(std::string_view text);

// "1 pile", "2 piles".
[[nodiscard]] std::string counted(std::size_t count, const std::string& what);

} // namespace korvat::cli
