// Comma-separated values, row by row: for tables that are longer than memory.
#pragma once

#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace korvat::study {

// Rows of RFC 4180 as `sweep` writes them; lines may end with LF too.
class CsvRows {
public:
    // `shown` is the name of the table in messages.
    CsvRows(std::istream& stream, std::string shown);

    // The next row; none at the end. Raises StudyError, with its line, for a quote that is not closed.
    [[nodiscard]] std::optional<std::vector<std::string>> next();

    // Of the last row, from 1.
    [[nodiscard]] int line() const { return line_; }

private:
    [[nodiscard]] bool take_line(std::string& line);

    std::istream& stream_;
    std::string shown_;
    int line_ = 0;
    int lines_ = 0;
};

} // namespace korvat::study
