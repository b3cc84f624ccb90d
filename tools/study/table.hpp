// The values of a study: the rows of a table, or the points of a grid.
#pragma once

#include "study/deck_template.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace korvat::study {

struct Table {
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows; // a value for each column
};

// A table as comma-separated values of RFC 4180, its first row the names of the columns; lines end with LF
// or CR LF, empty ones are left out, blanks around a value that is not quoted do not count, and a byte
// order mark in front is skipped. Where no comma stands in the header but a semicolon, semicolons separate.
// Raises StudyError, with file and line, for a row with another number of values, a name that no place
// could have, or two columns of one name.
[[nodiscard]] Table read_table(std::string_view text, const std::string& shown);

// One axis of a grid: "wall=0.03:0.06:0.005" from, to and step, or "d=1.5,1.8" values. The last value is
// taken where it is met but for rounding. Raises StudyError.
[[nodiscard]] Table grid_axis(std::string_view text);

// Every row of one with every row of the other, the first changing slowest. Raises StudyError for a
// column that both have.
[[nodiscard]] Table product(const Table& a, const Table& b);

[[nodiscard]] Row row_of(const Table& table, std::size_t index);

} // namespace korvat::study
