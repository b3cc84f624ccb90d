// Input that is lost, or read otherwise than it looks.
#include "check/layout.hpp"
#include "check/read_outline.hpp"
#include "check/tell.hpp"
#include "check/text.hpp"
#include "model/store/integer.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace korvat::check {
namespace {

using deck::RecordId;

std::string_view line_of(const Subject& subject, int number) {
    const auto index = static_cast<std::size_t>(number) - 1;
    return number >= 1 && index < subject.lines.size() ? std::string_view(subject.lines[index])
                                                       : std::string_view();
}

bool is_list(RecordId id) {
    return id == RecordId::cross_section_5 || id == RecordId::sub_section ||
           id == RecordId::curve_point;
}

// One place for several tokens of a line, from the first to the last.
Place place_of_all(std::string_view line, int number, const std::vector<Token>& all) {
    const Token& last = all.back();
    const std::size_t start = all.front().position;
    const std::size_t length = last.position + last.text.size() - start;
    return place_of(line, number, {line.substr(start, length), start});
}

// The numbers behind the last one of a record, on its line; a remark ends them. A single value may have
// a remark that begins with a number, but not one of numbers alone.
std::vector<Token> surplus_numbers(const Subject& subject, const Row& row) {
    if (row.numbers.empty() || row.id == RecordId::pile_segments) return {};
    const Place& last = row.numbers.back().place;
    const std::string_view line = line_of(subject, last.line);
    const std::size_t behind =
        static_cast<std::size_t>(last.column - 1) + static_cast<std::size_t>(last.length);
    if (last.column < 1 || behind >= line.size()) return {};
    const std::size_t width = is_list(row.id) ? list_width : record_width;
    std::vector<Token> rest = tokens(line.substr(0, width), is_list(row.id) ? " \t," : " ");
    std::erase_if(rest, [&](const Token& token) { return token.position < behind; });
    const auto is_none = [](const Token& token) { return !number_of(token.text); };
    const auto remark = std::ranges::find_if(rest, is_none);
    if (row.numbers.size() == 1 && remark != rest.end()) return {};
    rest.erase(remark, rest.end());
    return rest;
}

void look_for_surplus(const Subject& subject, const Rule& rule, Findings& findings) {
    for (const Row& row : subject.outline.rows()) {
        const std::vector<Token> surplus = surplus_numbers(subject, row);
        if (surplus.empty()) continue;
        const int number = row.numbers.back().place.line;
        tell(
            findings, rule, place_of_all(line_of(subject, number), number, surplus),
            counted(static_cast<long>(surplus.size()), "number") + " behind the " +
                std::to_string(row.numbers.size()) + " of the record " +
                (surplus.size() == 1 ? "is" : "are") + " not read",
            "Look whether a number was added in front of it: all behind that are then in the wrong "
            "place. Otherwise remove it, or put a word in front of a remark.");
    }
}

void look_for_width(const Subject& subject, const Rule& rule, Findings& findings) {
    const Layout& layout = *subject.layout;
    for (const DeckLine& line : layout.lines()) {
        if (line.text.size() <= record_width) continue; // most
        const std::size_t width = layout.width_of_line(line.number);
        if (width == 0) continue;
        const auto token = number_beyond(line.text, width);
        if (!token) continue;
        const std::string column = std::to_string(width);
        const std::string kept(token->text.substr(
            0, token->position < width ? width - token->position : std::size_t{0}));
        std::string text(token->text);
        text += kept.empty() ? " is beyond column " : " crosses column ";
        text += column;
        text += kept.empty() ? " and is not read" : " and is read as ";
        text += kept;
        tell(findings, rule, place_of(line.text, line.number, *token), std::move(text),
             "Move the numbers into the first " + column +
                 " columns, or go on with the record on the next line.");
    }
}

// The lines with text behind the last one that a run with exit code 0 has read, by their numbers.
std::vector<int> unread_lines(const Subject& subject) {
    const Report& report = subject.cmn.report;
    std::vector<int> numbers;
    if (subject.exit_code != 0) return numbers;
    for (const int line : report.text_lines) {
        if (line > subject.cmn.NLINE) numbers.push_back(file_line(report, line));
    }
    return numbers;
}

// Whether one of the lines is a record of loads, of seven numbers.
bool has_loads(const Subject& subject, const std::vector<int>& numbers) {
    constexpr std::size_t load_numbers = 7;
    return std::ranges::any_of(numbers, [&](int number) {
        return leading_numbers(line_of(subject, number)).size() == load_numbers;
    });
}

Place whole_line(const Subject& subject, int number) {
    const std::string_view line = line_of(subject, number);
    const std::size_t first = std::min(line.find_first_not_of(" \t"), line.size());
    const std::size_t last = line.find_last_not_of(" \t\r") + 1;
    return place_of(line, number, {line.substr(first, last > first ? last - first : 0), first});
}

void look_for_unread_lines(const Subject& subject, const Rule& rule, Findings& findings) {
    const std::vector<int> numbers = unread_lines(subject);
    if (numbers.empty() || has_loads(subject, numbers)) return;
    tell(findings, rule, whole_line(subject, numbers.front()),
         counted(static_cast<long>(numbers.size()), "line") +
             " behind the last record, in front of END, " + (numbers.size() == 1 ? "is" : "are") +
             " not read; this is the first",
         "Compare the counts of the control section with the tables, or remove what is left over.");
}

void look_for_unread_loads(const Subject& subject, const Rule& rule, Findings& findings) {
    const std::vector<int> numbers = unread_lines(subject);
    if (numbers.empty() || subject.cmn.NUMLOD >= 1 || !has_loads(subject, numbers)) return;
    tell(findings, rule, whole_line(subject, numbers.front()),
         "load vectors stand here, but NUMLOD is " + std::to_string(subject.cmn.NUMLOD) +
             ": none is read and no LOAD.09 is written",
         "Write the number of the load vectors into the control section.");
}

void look_for_second_vector(const Subject& subject, const Rule& rule, Findings& findings) {
    const std::vector<int> numbers = unread_lines(subject);
    if (numbers.empty() || subject.cmn.NUMLOD < 1 || !has_loads(subject, numbers)) return;
    tell(findings, rule, whole_line(subject, numbers.front()),
         "loads behind load vector " + std::to_string(subject.cmn.NUMLOD) +
             ", the last one that NUMLOD counts, are not read",
         "Correct NUMLOD, or the number of loaded piles of the vector in front.");
}

void look_behind_end(const Subject& subject, const Rule& rule, Findings& findings) {
    const int end = subject.layout->end_line();
    if (end == 0 || subject.exit_code != 0) return; // behind an error, end-line looks at it
    int count = 0;
    int first = 0;
    const int lines = static_cast<int>(subject.lines.size());
    for (int number = end + 1; number <= lines; ++number) {
        const std::string_view line = line_of(subject, number);
        if (is_comment(line) || !looks_like_record(line)) continue;
        if (++count == 1) first = number;
    }
    if (count == 0) return;
    tell(findings, rule, whole_line(subject, first),
         counted(count, "line") + " of numbers behind END in line " + std::to_string(end) + " " +
             (count == 1 ? "is" : "are") + " not read; this is the first",
         "Move END behind them, or remove them; what is kept for later is safe as a comment.");
}

void look_at_tip_table(const Subject& subject, const Rule& rule, Findings& findings) {
    const Row* previous = nullptr;
    for (const Row* const row : subject.outline.rows(RecordId::tip_and_fix)) {
        const int last = previous == nullptr ? 0 : nearest_integer(previous->numbers[1].value);
        const int first = nearest_integer(row->numbers[0].value);
        if (nearest_integer(row->numbers[1].value) < first) return; // an error of the run
        previous = row;
        const bool is_first = last == 0; // which must be of pile 1
        if (is_first || last < 0 || first > subject.cmn.NUMPIL || first <= last) continue;
        if (first - last == 1) continue; // none between them
        const bool is_one = first == last + 2;
        tell(findings, rule, place_of(row, 1),
             (is_one ? "pile " + std::to_string(last + 1) + " is"
                     : "piles " + std::to_string(last + 1) + " to " + std::to_string(first - 1) +
                           " are") +
                 " in no range of the tip/fix table: tip code 0, fixed to none",
             "Add a record for " + std::string(is_one ? "it" : "them") +
                 ", even where it says the same.");
    }
}

// The rows whose number leaves out others behind the row in front.
struct Gap {
    const Row* before;
    const Row* behind;
    int first; // number left out
    int last;
};

// Up to the highest number of the table: beyond it the run ends with an error.
std::vector<Gap> gaps(const Subject& subject, RecordId id, int highest) {
    std::vector<Gap> found;
    const Row* before = nullptr;
    for (const Row* const row : subject.outline.rows(id)) {
        const int behind = nearest_integer(row->numbers[0].value);
        if (behind < 1 || behind > highest) break;
        if (before != nullptr) {
            const int last = nearest_integer(before->numbers[0].value);
            if (behind - 1 > last) found.push_back({before, row, last + 1, behind - 1});
        }
        before = row;
    }
    return found;
}

std::string numbers_of(const Gap& gap) {
    const std::string first = std::to_string(gap.first);
    return gap.first == gap.last ? first : first + " to " + std::to_string(gap.last);
}

// The gaps in words, each with what `detail` says of it; the first ones stand for many.
template <typename Detail>
std::string listed(const std::vector<Gap>& gaps, Detail detail) {
    constexpr std::size_t most_listed = 4;
    std::string text;
    for (std::size_t i = 0; i < std::min(gaps.size(), most_listed); ++i) {
        text += (i == 0 ? "" : ", ") + numbers_of(gaps[i]) + detail(gaps[i]);
    }
    if (gaps.size() <= most_listed) return text;
    return text + " and " + counted(static_cast<long>(gaps.size() - most_listed), "other range");
}

// The range of values that the sections of a gap get, each at the middle of its part.
std::string range_of(const Gap& gap, std::size_t item) {
    const double made = gap.last - gap.first + 1;
    const double start = gap.before->numbers[item].value;
    const double step = (gap.behind->numbers[item].value - start) / made;
    const std::string first = text_of(start + step * 0.5);
    const std::string last = text_of(start + step * (made - 0.5));
    return first == last ? first : first + " to " + last;
}

void look_for_made_sections(const Subject& subject, const Rule& rule, Findings& findings) {
    constexpr std::size_t diameter = 2;
    constexpr std::size_t wall = 3;
    const std::vector<Gap> all = gaps(subject, RecordId::cross_section, subject.cmn.NUMCRS);
    if (all.empty()) return;
    const auto detail = [](const Gap& gap) {
        return " (diameter " + range_of(gap, diameter) + ", wall " + range_of(gap, wall) + ")";
    };
    tell(findings, rule, place_of(all.front().behind, 1),
         "cross sections that are made between two given ones: " + listed(all, detail),
         "Nothing, if this is meant. They stand at the middles of equal parts, not at equal steps "
         "between the two.");
}

// No pile is made beside a generated one: the run ends with an error.
bool is_generated(const Row* pile) {
    return nearest_integer(pile->numbers[1].value) != 0 ||
           nearest_integer(pile->numbers[2].value) != 0;
}

void look_for_made_piles(const Subject& subject, const Rule& rule, Findings& findings) {
    std::vector<Gap> all = gaps(subject, RecordId::pile_geometry, subject.cmn.NUMPIL);
    std::erase_if(
        all, [](const Gap& gap) { return is_generated(gap.before) || is_generated(gap.behind); });
    if (all.empty()) return;
    const auto detail = [](const Gap& gap) {
        return " (between " + std::to_string(gap.first - 1) + " and " +
               std::to_string(gap.last + 1) + ")";
    };
    tell(findings, rule, place_of(all.front().behind, 1),
         "piles that are made at equal distances between two given ones: " + listed(all, detail),
         "Nothing, if this is meant. Each needs a record in the pile segment table.");
}

// Items of a record that are whole numbers, counted from 1 up to this one; in the node values and in the
// segment types others stand between them.
bool is_whole_item(RecordId id, std::size_t item) {
    switch (id) {
    case RecordId::material:
    case RecordId::pile_load:
        return item == 1;
    case RecordId::cross_section:
        return item <= 2;
    case RecordId::segment_type:
        return item != 4;
    case RecordId::pile_geometry:
        return item <= 3;
    case RecordId::special_node_values:
        return item <= 5;
    case RecordId::force_factor:
    case RecordId::length_factor:
    case RecordId::load_factor:
        return false;
    default:
        return !is_list(id);
    }
}

// The program's conversion of decimals may be wrong in the last bit, and 109 a little below 109.
bool is_whole(double value) {
    constexpr double tolerance = 1.0E-9;
    return std::fabs(value - std::round(value)) <= tolerance * std::max(std::fabs(value), 1.0);
}

void look_for_rounding(const Subject& subject, const Rule& rule, Findings& findings) {
    for (const Row& row : subject.outline.rows()) {
        for (std::size_t i = 1; i <= row.numbers.size(); ++i) {
            const double value = row.numbers[i - 1].value;
            if (!is_whole_item(row.id, i) || is_whole(value)) continue;
            tell(
                findings, rule, place_of(&row, i),
                text_of(value) + " stands for a whole number and is read as " +
                    std::to_string(nearest_integer(value)),
                "Write the whole number; if this is another value, one is missing or too many in front "
                "of it.");
            break;
        }
    }
}

constexpr std::string_view revision_dates[] = {"2006-06-11", "2009-09-01"};

// A line near the top that was meant as a version line: without one the deck is of revision 4.
void look_for_version(const Subject& subject, const Rule& rule, Findings& findings) {
    constexpr std::size_t lines_searched = 10;
    const Layout& layout = *subject.layout;
    if (layout.version_line() != 0) return;
    const std::vector<DeckLine>& lines = layout.lines();
    for (std::size_t i = 1; i < std::min(lines.size(), lines_searched + 1); ++i) {
        const std::string text = lower_case(lines[i].text);
        const auto has = [&](std::string_view word) {
            return text.find(word) != std::string::npos;
        };
        const bool has_word = has("version") || has("revision");
        const bool is_meant =
            std::ranges::any_of(revision_dates, has) || (has("korvat") && has_word);
        if (!is_meant) continue;
        tell(
            findings, rule, whole_line(subject, lines[i].number),
            "this line looks like a version line and is none: the deck is read as one of revision 4",
            "Write \"KORVAT Version: 2006-06-11\" (revision 4) or \"KORVAT Version: 2009-09-01\" "
            "(revision 5), from column 1 and in these letters.");
        return;
    }
}

void look_at_name(const Subject& subject, const Rule& rule, Findings& findings) {
    constexpr std::string_view name = "KORVAT.INP";
    if (subject.deck_name == name || lower_case(subject.deck_name) != lower_case(name)) return;
    tell(findings, rule, {},
         "the deck is named " + std::string(subject.deck_name) +
             ": where capitals count, KORVAT does not find it",
         "Name it KORVAT.INP.");
}

constexpr Rule rules[] = {
    {"deck-name", Level::error, "KORVAT.INP in other letters", look_at_name},
    {"version-line", Level::warning, "a line that was meant as a version line", look_for_version},
    {"surplus-numbers", Level::warning, "numbers behind the last one of a record",
     look_for_surplus},
    {"beyond-column", Level::warning, "numbers beyond or across the last column that is read",
     look_for_width},
    {"rounded-number", Level::warning, "whole numbers with a fraction", look_for_rounding},
    {"unread-lines", Level::warning, "lines between the last record and END",
     look_for_unread_lines},
    {"unread-loads", Level::warning, "load vectors of a deck whose count is 0 or below",
     look_for_unread_loads},
    {"unread-vector", Level::warning, "loads behind the last vector that is counted",
     look_for_second_vector},
    {"behind-end", Level::warning, "numbers behind END", look_behind_end},
    {"no-tip-code", Level::warning, "piles in no range of the tip/fix table", look_at_tip_table},
    {"made-sections", Level::note, "cross sections made between two given ones",
     look_for_made_sections},
    {"made-piles", Level::note, "piles made between two given ones", look_for_made_piles},
};

} // namespace

std::span<const Rule> input_rules() {
    return rules;
}

} // namespace korvat::check
