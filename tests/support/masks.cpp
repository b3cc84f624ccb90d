// Masks for what differs between two runs of the same deck: time stamps, release date, identification.
#include "masks.hpp"

#include "text.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

namespace korvat::test {

namespace {

constexpr std::string_view page_line = "(identification page)";
constexpr std::string_view stamp_form = " THIS RUN WAS STARTED :  ##-MMM-####  AT  ##:##:## HOURS";
constexpr std::string_view masked_stamp =
    " THIS RUN WAS STARTED :  DD-MMM-YYYY  AT  HH:MM:SS HOURS";
constexpr std::string_view start_text = " +++++ START PROGRAM KORVAT   VERSION =  7.6.0.81  ";
constexpr std::string_view version_text = " VERSION :   7.6.0.81  ";
constexpr std::string_view page_form =
    " KORVAT Output   Program Version =  7.6.0.81  ##-Mon-####     Time = ##-MMM-####  ##:##:##";
constexpr std::string_view masked_page =
    " KORVAT Output   Program Version =  7.6.0.81  DD-Mon-YYYY     Time = DD-MMM-YYYY  HH:MM:SS";
constexpr std::string_view date_form = "##-Mon-####";
constexpr std::string_view masked_date = "DD-Mon-YYYY";

constexpr std::array<std::string_view, 12> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string in_capitals(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return result;
}

bool is_month(std::string_view text, bool capitals) {
    return std::any_of(months.begin(), months.end(), [&](std::string_view month) {
        return capitals ? text == in_capitals(month) : text == month;
    });
}

// In a form # stands for a digit, MMM for a month in capitals and Mon for one in mixed case.
bool has_form(std::string_view text, std::string_view form) {
    if (text.size() != form.size()) return false;
    for (std::size_t i = 0; i < form.size(); ++i) {
        const std::string_view word = form.substr(i, 3);
        if (word == "MMM" || word == "Mon") {
            if (!is_month(text.substr(i, 3), word == "MMM")) return false;
            i += 2;
        } else if (form[i] == '#') {
            if (text[i] < '0' || text[i] > '9') return false;
        } else if (text[i] != form[i]) {
            return false;
        }
    }
    return true;
}

bool is_dated(std::string_view line, std::string_view text) {
    return line.substr(0, text.size()) == text && has_form(line.substr(text.size()), date_form);
}

std::string masked_dated(std::string_view text) {
    return std::string(text) + std::string(masked_date);
}

std::string join_lines(const std::vector<std::string>& lines) {
    const bool unfinished = !lines.empty() && lines.back() == unfinished_line;
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    if (unfinished) text.resize(text.size() - unfinished_line.size() - 2);
    return text;
}

} // namespace

std::string mask_log(std::string_view text) {
    std::vector<std::string> lines = split_lines(text);
    // The stamp is the second line: anything else is no log of a run.
    if (lines.size() < 2 || !lines[0].empty() || !has_form(lines[1], stamp_form)) {
        return std::string(text);
    }
    lines[1] = masked_stamp;
    const auto after_stamp = lines.begin() + 2;
    const auto start = std::find_if(after_stamp, lines.end(), [](const std::string& line) {
        return is_dated(line, start_text);
    });
    if (start == lines.end()) return join_lines(lines);
    *start = masked_dated(start_text);
    // The page has at least one line and is followed by the empty line that the start line brings.
    if (start - after_stamp < 2 || !(start - 1)->empty()) return join_lines(lines);
    const auto after_page = lines.erase(after_stamp, start - 1);
    lines.insert(after_page, std::string(page_line));
    return join_lines(lines);
}

std::string mask_listing(std::string_view text) {
    std::vector<std::string> lines = split_lines(text);
    const auto stamp = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
        return has_form(line, stamp_form);
    });
    if (stamp != lines.end()) *stamp = masked_stamp;
    const auto version = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
        return is_dated(line, version_text);
    });
    if (version != lines.end()) *version = masked_dated(version_text);
    // Every page has its header.
    for (std::string& line : lines) {
        if (has_form(line, page_form)) line = masked_page;
    }
    return join_lines(lines);
}

} // namespace korvat::test
