// Judges the report of a failed run against its log and its deck.
#include "report_check.hpp"

#include "../support/text.hpp"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <vector>

namespace korvat::test {

namespace {

constexpr std::string_view message_mark = " **** ";
constexpr std::string_view begin_of_report = "korvat: KORVAT.INP:";
constexpr std::string_view end_of_report = "see KORVAT.MLG";
constexpr std::string_view revision_message = "Error message from SR/GetRevision";
constexpr std::size_t shown_columns = 120;
constexpr std::size_t date_column = 16; // of the version line, from 0

std::string_view stripped(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// Two messages are written as two FORMATs: their second line may follow.
std::vector<std::string> first_messages(std::span<const std::string> log,
                                        const MessageForms& forms) {
    std::size_t begin = 0;
    while (begin < log.size() && !log[begin].starts_with(message_mark))
        ++begin;
    if (begin == log.size()) return {};
    const std::size_t length = forms.message_at(log, begin);
    std::string text;
    std::vector<std::string> found;
    for (std::size_t i = begin; i < log.size() && found.size() < 2; ++i) {
        const std::string_view line = stripped(log[i]);
        if (!line.empty()) text += (text.empty() ? "" : " ") + std::string(line);
        if (i + 1 >= begin + length) found.push_back(text.substr(message_mark.size() - 1));
    }
    return found;
}

std::string shown(std::string_view line) {
    std::string text(line.substr(0, shown_columns));
    text.erase(text.find_last_not_of(" \r") + 1);
    return text;
}

bool separates(char c) {
    return c == ' ' || c == '\t' || c == ',';
}

// The caret of a version line stands at the place of the date, also where there is none.
std::string fault_of_caret(std::string_view caret, std::string_view line, bool at_date) {
    const std::size_t column = caret.find('^');
    if (column + 1 != caret.size()) return "no caret at the end of its line";
    if (at_date) return column == date_column ? "" : "a caret beside the date";
    if (column >= line.size() || separates(line[column])) return "a caret under no value";
    if (column > 0 && !separates(line[column - 1])) return "a caret within a value";
    for (std::size_t i = 0; i < column; ++i) {
        if (caret[i] != (line[i] == '\t' ? '\t' : ' ')) return "a caret line of other characters";
    }
    return "";
}

} // namespace

std::string fault_of_report(std::string_view report, std::span<const std::string> log,
                            std::string_view deck, const MessageForms& forms) {
    const std::vector<std::string> lines = split_lines(report);
    if (lines.size() < 2 || lines.back() != end_of_report) return "a report without its end";
    std::string_view message = lines.front();
    if (!message.starts_with(begin_of_report)) return "a report without its beginning";
    message.remove_prefix(begin_of_report.size());

    std::size_t number = 0;
    const auto digits = std::from_chars(message.data(), message.data() + message.size(), number);
    message.remove_prefix(static_cast<std::size_t>(digits.ptr - message.data()));
    if (message.starts_with(':')) message.remove_prefix(1);
    const auto due = first_messages(log, forms);
    if (std::find(due.begin(), due.end(), stripped(message)) == due.end()) {
        return "a report of another message";
    }

    const std::vector<std::string> deck_lines = split_lines(deck);
    const bool ends = deck_lines.empty() || deck_lines.back() != unfinished_line;
    const std::size_t count = deck_lines.size() - (ends ? 0 : 1);
    if (number == 0) return lines.size() == 2 ? "" : "a report with a line but no number";
    if (number > count) return "the number of no line";
    const std::string line = shown(deck_lines[number - 1]);
    if (lines.size() < 3 || lines[1] != line) return "another line than that of the number";
    if (lines.size() == 3) return "";
    if (lines.size() > 4) return "a report of too many lines";
    return fault_of_caret(lines[2], line, stripped(message).starts_with(revision_message));
}

} // namespace korvat::test
