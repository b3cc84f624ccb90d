// Characters that make a reader stumble, behind the message of a run: they look like what was meant.
#include "check/layout.hpp"
#include "check/read_outline.hpp"
#include "check/tell.hpp"
#include "check/text.hpp"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>

namespace korvat::check {
namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
constexpr std::string_view no_break_spaces[] = {"\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x87", "\xA0"};

bool is_ascii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

// A line as it was meant, as far as its characters can tell: blanks for what only looks like one.
std::string meant(std::string_view line) {
    std::string text(line);
    const auto is_strange = [](char c) { return !is_ascii(c) || c == '\t'; };
    std::ranges::replace_if(text, is_strange, ' ');
    return text;
}

// Behind the last record that the reader has taken; the first line where it has taken none.
int first_doubtful_line(const Subject& subject) {
    const std::vector<GivenRecord>& records = subject.cmn.report.records;
    if (records.empty()) return 1;
    return file_line(subject.cmn.report, records.back().numbers.back().place.line) + 1;
}

bool is_in_list_section(const Layout& layout, int line) {
    const Section* const section = layout.section(SectionId::cross_sections);
    if (layout.revision() != 5) return false;
    if (section == nullptr) return true; // it may be anywhere
    return line >= section->lines.front().number && line <= section->lines.back().number;
}

// The tokens of a record, up to the first that is a remark: they were meant as numbers.
std::vector<Token> meant_numbers(std::string_view line) {
    std::vector<Token> all = tokens(line);
    const auto is_remark = [](const Token& token) {
        const std::string text = meant(token.text);
        const std::vector<Token> words = tokens(text);
        return !words.empty() && !looks_like_number(words.front().text);
    };
    all.erase(std::ranges::find_if(all, is_remark), all.end());
    return all;
}

// Where the first of something stands in a deck, and in how many lines there is one.
struct Found {
    Place place;
    int lines = 0;
};

// Looks, behind the last record that could be read, at the lines that were meant as records, or as
// blank ones. `find` gives the token at fault of a line.
Found look_at_records(const Subject& subject, bool is_list_free,
                      const std::function<std::optional<Token>(std::string_view)>& find) {
    Found found;
    if (subject.exit_code == 0 || !is_text(subject.lines)) return found;
    const Layout& layout = *subject.layout;
    const int first = first_doubtful_line(subject);
    for (const DeckLine& line : layout.lines()) {
        if (line.number < first || line.number <= layout.version_line() || line.number == 1)
            continue;
        if (is_list_free && is_in_list_section(layout, line.number)) continue;
        const auto token = find(line.text);
        if (!token) continue;
        if (++found.lines == 1) found.place = place_of(line.text, line.number, *token);
    }
    return found;
}

std::string in_lines(const Found& found) {
    return found.lines == 1 ? "" : "; so in " + counted(found.lines, "line");
}

// The first number of a line that has one of these texts in it, cut down to that text.
template <typename Texts>
std::optional<Token> text_in_numbers(std::string_view line, const Texts& texts) {
    for (const Token& token : meant_numbers(line)) {
        for (const std::string_view text : texts) {
            const std::size_t at = token.text.find(text);
            if (at != std::string_view::npos) {
                return Token{token.text.substr(at, text.size()), token.position + at};
            }
        }
    }
    return std::nullopt;
}

// A tab at either end of a number does no harm.
std::optional<Token> inner_tab(std::string_view line) {
    const std::size_t at = line.find('\t');
    if (at != std::string_view::npos && is_blank(line)) return Token{line.substr(at, 1), at};
    for (const Token& token : meant_numbers(line)) {
        if (number_of(token.text)) continue;
        const std::size_t tab = token.text.find('\t', token.text.find_first_not_of('\t'));
        if (tab != std::string_view::npos) {
            return Token{token.text.substr(tab, 1), token.position + tab};
        }
    }
    return std::nullopt;
}

void look_for_tabs(const Subject& subject, const Rule& rule, Findings& findings) {
    const Found found = look_at_records(subject, true, inner_tab);
    if (found.lines == 0) return;
    tell(findings, rule, found.place,
         "a tab stands where a blank is needed" + in_lines(found) +
             ": a tab separates no numbers, and a line with a tab is not blank",
         "Replace the tabs of the deck by blanks.");
}

void look_for_no_break_spaces(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto find = [](std::string_view line) -> std::optional<Token> {
        const auto found = text_in_numbers(line, no_break_spaces);
        if (found || !is_blank(meant(line))) return found;
        for (const std::string_view space : no_break_spaces) {
            const std::size_t at = line.find(space);
            if (at != std::string_view::npos) return Token{line.substr(at, space.size()), at};
        }
        return std::nullopt;
    };
    const Found found = look_at_records(subject, false, find);
    if (found.lines == 0) return;
    tell(findings, rule, found.place,
         "a no-break space stands where a blank is needed" + in_lines(found) +
             ": it looks like a blank and separates nothing",
         "Replace it by a blank; it often comes with text that was copied from a document.");
}

std::optional<Token> other_character(std::string_view line) {
    for (const Token& token : meant_numbers(line)) {
        const auto at = std::ranges::find_if_not(token.text, is_ascii);
        if (at == token.text.end()) continue;
        const auto start = static_cast<std::size_t>(at - token.text.begin());
        const auto end = std::ranges::find_if(token.text.substr(start), is_ascii);
        const auto length = static_cast<std::size_t>(end - at);
        const Token found{token.text.substr(start, length), token.position + start};
        const auto begins = [&](std::string_view space) { return found.text.starts_with(space); };
        if (std::ranges::none_of(no_break_spaces, begins)) return found;
    }
    return std::nullopt;
}

void look_for_other_characters(const Subject& subject, const Rule& rule, Findings& findings) {
    const Found found = look_at_records(subject, false, other_character);
    if (found.lines == 0) return;
    tell(findings, rule, found.place,
         "a character that is not ASCII stands in a record" + in_lines(found) +
             ", such as a long dash for a minus sign or a number of another script",
         "Type the number anew with the digits, the point and the minus sign of the keyboard.");
}

// Digits on both sides.
std::optional<Token> decimal_comma(std::string_view line) {
    const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
    for (const Token& token : meant_numbers(line)) {
        const std::size_t at = token.text.find(',');
        const bool is_inside = at != std::string_view::npos && at > 0 && at + 1 < token.text.size();
        if (is_inside && is_digit(token.text[at - 1]) && is_digit(token.text[at + 1])) return token;
    }
    return std::nullopt;
}

void look_for_commas(const Subject& subject, const Rule& rule, Findings& findings) {
    const Found found = look_at_records(subject, true, decimal_comma);
    if (found.lines == 0) return;
    tell(findings, rule, found.place, "a comma stands inside a number" + in_lines(found),
         "Write a decimal point, and blanks between numbers: a comma is neither.");
}

void look_for_semicolons(const Subject& subject, const Rule& rule, Findings& findings) {
    constexpr std::string_view semicolon[] = {";"};
    const auto find = [&](std::string_view line) { return text_in_numbers(line, semicolon); };
    const Found found = look_at_records(subject, false, find);
    if (found.lines == 0) return;
    tell(findings, rule, found.place, "a semicolon stands between numbers" + in_lines(found),
         "Separate numbers by blanks; a table of a spreadsheet is exported with blanks or pasted "
         "through an editor.");
}

void look_for_utf16(const Subject& subject, const Rule& rule, Findings& findings) {
    if (!is_utf16(subject.lines)) return;
    tell(findings, rule, {.line = 1}, "the file is written in UTF-16, of which no line can be read",
         "Save it as plain text: ASCII or UTF-8 without a byte order mark.");
}

void look_for_mark(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.lines.empty() || !subject.lines.front().starts_with(byte_order_mark)) return;
    tell(findings, rule, {.line = 1, .column = 1, .length = 1},
         "the file begins with a byte order mark, which becomes the beginning of its label",
         "Save it as UTF-8 without a byte order mark, or as ASCII.");
}

void look_for_bytes(const Subject& subject, const Rule& rule, Findings& findings) {
    if (is_utf16(subject.lines)) return;
    for (std::size_t i = 0; i < subject.lines.size(); ++i) {
        const std::string_view line = subject.lines[i];
        const auto at = std::ranges::find_if(line, is_control);
        if (at == line.end()) continue;
        const auto position = static_cast<std::size_t>(at - line.begin());
        const int code = static_cast<unsigned char>(*at);
        tell(findings, rule,
             place_of(line, static_cast<int>(i) + 1, {line.substr(position, 1), position}),
             "this is not a text: a byte with the code " + std::to_string(code) + " stands here",
             "A deck is plain text; a document, a picture or a compressed file is none.");
        return;
    }
}

constexpr Rule rules[] = {
    {"not-text", Level::error, "a file that is no text", look_for_bytes},
    {"utf-16", Level::error, "a text in UTF-16", look_for_utf16},
    {"byte-order-mark", Level::warning, "a byte order mark in front of the label", look_for_mark},
    {"tab", Level::error, "tabs where blanks are needed", look_for_tabs},
    {"no-break-space", Level::error, "no-break spaces where blanks are needed",
     look_for_no_break_spaces},
    {"non-ascii", Level::error, "other characters that are not ASCII in records",
     look_for_other_characters},
    {"decimal-comma", Level::error, "commas inside numbers", look_for_commas},
    {"semicolon", Level::error, "semicolons between numbers", look_for_semicolons},
};

} // namespace

std::span<const Rule> character_rules() {
    return rules;
}

} // namespace korvat::check
