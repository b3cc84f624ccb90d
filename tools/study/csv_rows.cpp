#include "study/csv_rows.hpp"

#include "study/study_error.hpp"

#include <algorithm>
#include <utility>

namespace korvat::study {

CsvRows::CsvRows(std::istream& stream, std::string shown)
    : stream_(stream), shown_(std::move(shown)) {}

bool CsvRows::take_line(std::string& line) {
    if (!std::getline(stream_, line)) return false;
    ++lines_;
    return true;
}

std::optional<std::vector<std::string>> CsvRows::next() {
    std::string line;
    do {
        if (!take_line(line)) return std::nullopt;
    } while (line.empty() || line == "\r");
    line_ = lines_;
    // A quoted value goes on as long as its quotes are odd in number.
    std::string more;
    while (std::ranges::count(line, '"') % 2 != 0) {
        if (!take_line(more))
            throw StudyError(shown_ + ":" + std::to_string(line_) + ": a quote is not closed");
        line += '\n' + more;
    }
    if (line.ends_with('\r')) line.pop_back();
    std::vector<std::string> values{""};
    bool is_quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool is_doubled = is_quoted && line[i] == '"' && line.substr(i + 1, 1) == "\"";
        if (is_doubled) {
            values.back() += '"';
            ++i;
        } else if (line[i] == '"') {
            is_quoted = !is_quoted;
        } else if (line[i] == ',' && !is_quoted) {
            values.emplace_back();
        } else {
            values.back() += line[i];
        }
    }
    return values;
}

} // namespace korvat::study
