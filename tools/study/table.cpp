#include "study/table.hpp"

#include "study/study_error.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace korvat::study {
namespace {

constexpr std::size_t most_rows = 1'000'000;

[[noreturn]] void refuse(const std::string& shown, int line, const std::string& what) {
    throw StudyError(shown + ":" + std::to_string(line) + ": " + what);
}

std::string trimmed(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(" \t"), text.size());
    const std::size_t last = text.find_last_not_of(" \t") + 1;
    return std::string(text.substr(first, last > first ? last - first : 0));
}

class Reader {
public:
    Reader(std::string_view text, std::string shown) : rest_(text), shown_(std::move(shown)) {
        constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
        if (rest_.starts_with(byte_order_mark)) rest_.remove_prefix(byte_order_mark.size());
        const std::string_view header = rest_.substr(0, rest_.find('\n'));
        const bool has_comma = header.find(',') != std::string_view::npos;
        if (!has_comma && header.find(';') != std::string_view::npos) separator_ = ';';
    }

    Table read() {
        Table table;
        while (!rest_.empty()) {
            const int line = line_;
            std::vector<std::string> values = take_row();
            if (values.size() == 1 && values.front().empty()) continue; // an empty line
            if (table.columns.empty()) {
                check_columns(values, line);
                table.columns = std::move(values);
                continue;
            }
            if (values.size() != table.columns.size()) {
                refuse(shown_, line,
                       std::to_string(values.size()) + " values, but the header has " +
                           std::to_string(table.columns.size()) + " columns");
            }
            table.rows.push_back(std::move(values));
        }
        if (table.columns.empty()) refuse(shown_, 1, "there is no header");
        if (table.rows.empty()) refuse(shown_, 1, "there is no row below the header");
        return table;
    }

private:
    void check_columns(const std::vector<std::string>& columns, int line) const {
        for (auto column = columns.begin(); column != columns.end(); ++column) {
            if (!is_name(*column)) {
                refuse(shown_, line,
                       "'" + *column +
                           "' cannot name a column: letters, digits and _ can, the first no digit");
            }
            if (std::find(columns.begin(), column, *column) != column) {
                refuse(shown_, line, "two columns are named " + *column);
            }
        }
    }

    std::vector<std::string> take_row() {
        std::vector<std::string> values;
        bool goes_on = true;
        while (goes_on) {
            rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
            values.push_back(rest_.starts_with('"') ? take_quoted() : take_plain());
            goes_on = rest_.starts_with(separator_);
            if (goes_on) rest_.remove_prefix(1);
        }
        if (rest_.starts_with('\r')) rest_.remove_prefix(1);
        if (rest_.starts_with('\n')) rest_.remove_prefix(1);
        ++line_;
        return values;
    }

    std::string take_plain() {
        const char ends[] = {separator_, '\n', '\0'};
        std::size_t length = std::min(rest_.find_first_of(ends), rest_.size());
        std::string_view value = rest_.substr(0, length);
        if (value.ends_with('\r')) value = rest_.substr(0, --length);
        rest_.remove_prefix(length);
        return trimmed(value);
    }

    std::string take_quoted() {
        const int line = line_;
        std::string value;
        rest_.remove_prefix(1);
        while (true) {
            const std::size_t quote = rest_.find('"');
            if (quote == std::string_view::npos) refuse(shown_, line, "a quote is not closed");
            value += rest_.substr(0, quote);
            rest_.remove_prefix(quote + 1);
            if (!rest_.starts_with('"')) break;
            value += '"';
            rest_.remove_prefix(1);
        }
        line_ += static_cast<int>(std::ranges::count(value, '\n'));
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
        const bool is_at_end = rest_.empty() || rest_.starts_with(separator_) ||
                               rest_.starts_with('\n') || rest_.starts_with("\r\n");
        if (!is_at_end) refuse(shown_, line_, "something stands behind a closed quote");
        return value;
    }

    std::string_view rest_;
    std::string shown_;
    char separator_ = ',';
    int line_ = 1;
};

double axis_number(std::string_view all, std::string_view text) {
    double number = 0.0;
    const std::string value = trimmed(text);
    const char* const end = value.data() + value.size();
    const auto [stop, error] = std::from_chars(value.data(), end, number);
    if (error != std::errc() || stop != end || !std::isfinite(number)) {
        throw StudyError("--grid " + std::string(all) + ": '" + value + "' is no number");
    }
    return number;
}

std::vector<std::string> parts(std::string_view text, char separator) {
    std::vector<std::string> found;
    while (true) {
        const std::size_t end = std::min(text.find(separator), text.size());
        found.push_back(trimmed(text.substr(0, end)));
        if (end == text.size()) return found;
        text.remove_prefix(end + 1);
    }
}

} // namespace

Table read_table(std::string_view text, const std::string& shown) {
    return Reader(text, shown).read();
}

Table grid_axis(std::string_view text) {
    const std::size_t equals = std::min(text.find('='), text.size());
    const std::string name = trimmed(text.substr(0, equals));
    const std::string all(text);
    if (equals == text.size() || !is_name(name)) {
        throw StudyError("--grid " + all +
                         ": it has the form NAME=FROM:TO:STEP or NAME=VALUE,VALUE,...");
    }
    const std::string_view values = text.substr(equals + 1);
    Table axis{{name}, {}};
    if (values.find(':') == std::string_view::npos) {
        for (std::string& value : parts(values, ',')) {
            if (value.empty()) throw StudyError("--grid " + all + ": a value is missing");
            axis.rows.push_back({std::move(value)});
        }
        return axis;
    }
    const std::vector<std::string> range = parts(values, ':');
    if (range.size() != 3) throw StudyError("--grid " + all + ": a range is FROM:TO:STEP");
    const double from = axis_number(text, range[0]);
    const double to = axis_number(text, range[1]);
    const double step = axis_number(text, range[2]);
    constexpr double rounding = 1.0e-9;
    const double count = step == 0.0 ? -1.0 : std::floor((to - from) / step + rounding);
    if (!(count >= 0.0))
        throw StudyError("--grid " + all + ": the step does not lead from FROM to TO");
    if (count >= static_cast<double>(most_rows))
        throw StudyError("--grid " + all + ": too many values");
    for (std::size_t i = 0; i <= static_cast<std::size_t>(count); ++i) {
        axis.rows.push_back({plain(from + static_cast<double>(i) * step)});
    }
    return axis;
}

Table product(const Table& a, const Table& b) {
    Table table{a.columns, {}};
    for (const std::string& column : b.columns) {
        if (std::ranges::find(a.columns, column) != a.columns.end()) {
            throw StudyError(column + " is given twice");
        }
        table.columns.push_back(column);
    }
    if (a.rows.size() * b.rows.size() > most_rows) {
        throw StudyError("more than " + std::to_string(most_rows) + " cases");
    }
    for (const auto& first : a.rows) {
        for (const auto& second : b.rows) {
            std::vector<std::string>& row = table.rows.emplace_back(first);
            row.insert(row.end(), second.begin(), second.end());
        }
    }
    return table;
}

Row row_of(const Table& table, std::size_t index) {
    Row row;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        row[table.columns[i]] = table.rows[index][i];
    }
    return row;
}

} // namespace korvat::study
