// Headings and records that are missing or too many, behind the message of a run: it shows where reading
// broke down, these where the deck ceases to be what its counts say.
#include "check/layout.hpp"
#include "check/read_outline.hpp"
#include "check/tell.hpp"
#include "check/text.hpp"
#include "model/store/integer.hpp"

#include <algorithm>
#include <optional>

namespace korvat::check {
namespace {

using deck::RecordId;
using Lines = std::span<const DeckLine>;

// A record as its lines show it; its numbers are those of its first line.
struct LineRecord {
    int line = 0;
    std::string_view text;
    std::vector<double> numbers;
    std::size_t found = 0; // numbers of all its lines
    bool is_short = false; // fewer than it needs, and the line behind it is a record of its own
};

std::vector<double> values_of(std::string_view line) {
    std::vector<double> values;
    for (const Token& token : leading_numbers(line)) {
        values.push_back(number_of(token.text).value_or(0.0));
    }
    return values;
}

// The record of `wanted` numbers that begins with the first line; `lines` keeps what is behind it.
LineRecord take_record(Lines& lines, std::size_t wanted) {
    const DeckLine& line = lines.front();
    LineRecord record{.line = line.number,
                      .text = line.text,
                      .numbers = values_of(line.text),
                      .found = width_of(line.text)};
    std::size_t used = 1;
    std::size_t sum = record.found;
    while (sum < wanted && used < lines.size()) {
        const std::size_t more = width_of(lines[used].text);
        if (more == 0 || sum + more > wanted) break;
        sum += more;
        ++used;
    }
    record.is_short = sum < wanted;
    if (!record.is_short) record.found = sum;
    lines = lines.subspan(record.is_short ? 1 : used);
    return record;
}

// The records up to a line that does not look like one.
std::vector<LineRecord> take_records(Lines& lines, std::size_t wanted) {
    std::vector<LineRecord> records;
    while (!lines.empty() && looks_like_record(lines.front().text)) {
        records.push_back(take_record(lines, wanted));
    }
    return records;
}

// The lines of a section behind its headings, whatever their number is.
Lines behind_headings(Lines lines) {
    while (!lines.empty() && !looks_like_record(lines.front().text)) {
        lines = lines.subspan(1);
    }
    return lines;
}

int headings_in(Lines lines) {
    return static_cast<int>(lines.size() - behind_headings(lines).size());
}

int number_in(const LineRecord& record) {
    return record.numbers.empty() ? 0 : nearest_integer(record.numbers.front());
}

const Row* control(const Subject& subject, RecordId id) {
    const std::vector<const Row*> rows = subject.outline.rows(id);
    return rows.empty() ? nullptr : rows.front();
}

int control_value(const Subject& subject, RecordId id) {
    const Row* const row = control(subject, id);
    return row == nullptr ? 0 : nearest_integer(row->numbers.front().value);
}

std::string in_line(const Row* row) {
    return row == nullptr ? "" : " in line " + std::to_string(row->place.line);
}

// The sections in front of the one in which reading ended are as their counts say.
bool is_looked_at(const Subject& subject, SectionId id) {
    return subject.exit_code != 0 && id >= section_reached(subject.cmn.report);
}

// The whole line, from its first character that is not blank.
Place place_of_line(int number, std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(" \t"), text.size());
    const std::size_t last = text.find_last_not_of(" \t") + 1;
    const std::string_view shown = text.substr(first, last > first ? last - first : 0);
    return place_of(text, number, {shown, first});
}

// A table whose records are numbered 1, 2, 3, ... up to a control value.
struct NumberedTable {
    SectionId section;
    RecordId record;
    RecordId count;
};

constexpr NumberedTable numbered_tables[] = {
    {SectionId::materials, RecordId::material, RecordId::materials},
    {SectionId::segment_types, RecordId::segment_type, RecordId::segment_types},
};

// The first record whose number is not that of its place; the size when there is none.
std::size_t first_misnumbered(const std::vector<LineRecord>& records) {
    std::size_t i = 0;
    while (i < records.size() && number_in(records[i]) == static_cast<int>(i) + 1)
        ++i;
    return i;
}

std::string records_against(const Subject& subject, SectionId section, std::size_t found,
                            RecordId count) {
    return std::string(name_of(section)) + ": " + counted(static_cast<long>(found), "record") +
           ", but " + std::string(deck::record(count).items.front().name) +
           in_line(control(subject, count)) + " is " +
           std::to_string(control_value(subject, count));
}

void count_numbered_table(const Subject& subject, const Layout& layout, const Rule& rule,
                          const NumberedTable& table, Findings& findings) {
    const Section* const section = layout.section(table.section);
    const Row* const count = control(subject, table.count);
    if (section == nullptr || count == nullptr || !is_looked_at(subject, table.section)) return;
    Lines lines = behind_headings(section->lines);
    const auto wanted = static_cast<std::size_t>(deck::record(table.record).count);
    const std::vector<LineRecord> records = take_records(lines, wanted);
    const auto expected =
        static_cast<std::size_t>(std::max(control_value(subject, table.count), 0));
    if (records.empty() || records.size() == expected) return;
    const std::string text = records_against(subject, table.section, records.size(), table.count);
    const std::string correct =
        ", or write " + std::to_string(records.size()) + in_line(count) + ".";
    const std::size_t at = std::min(first_misnumbered(records), expected);
    if (at < records.size()) {
        const LineRecord& record = records[at];
        const std::string here = at == expected
                                     ? "; the first one too many stands here"
                                     : "; number " + std::to_string(at + 1) + " is expected here";
        tell(findings, rule, place_of_line(record.line, record.text), text + here,
             (at == expected ? "Remove it" : "Correct the numbers of the records") + correct);
        return;
    }
    tell(findings, rule, {.line = records.back().line + 1},
         text + "; number " + std::to_string(records.size() + 1) + " is expected here",
         "Add it" + correct);
}

// A table whose records may leave out numbers, and that ends with the highest number. The item of a
// record with which it ends is its `last` (from 0).
struct EndingTable {
    RecordId record;
    RecordId count;
    std::size_t last;
    std::string_view name;
};

int ending_number(const LineRecord& record, const EndingTable& table) {
    return table.last < record.numbers.size() ? nearest_integer(record.numbers[table.last]) : 0;
}

// Whether the numbers of a table begin with 1 and increase; else it has an error of its own.
bool is_in_order(const std::vector<LineRecord>& records, const EndingTable& table) {
    int previous = 0;
    for (const LineRecord& record : records) {
        const int number = number_in(record);
        if (number <= previous || ending_number(record, table) < number) return false;
        if (previous == 0 && number != 1) return false;
        previous = ending_number(record, table);
    }
    return true;
}

void count_ending_table(const Subject& subject, const Rule& rule, const EndingTable& table,
                        const std::vector<LineRecord>& records, Findings& findings) {
    const Row* const count = control(subject, table.count);
    if (count == nullptr || records.empty()) return;
    const int wanted = control_value(subject, table.count);
    const std::string is_wanted = std::string(deck::record(table.count).items.front().name) +
                                  in_line(count) + " is " + std::to_string(wanted);
    const auto reaches = [&](const LineRecord& record) {
        return ending_number(record, table) == wanted;
    };
    const auto end = std::ranges::find_if(records, reaches);
    if (end == records.end()) {
        const int last = ending_number(records.back(), table);
        if (last > wanted || !is_in_order(records, table)) return;
        tell(findings, rule, {.line = records.back().line + 1},
             std::string(table.name) + ": the table ends with number " + std::to_string(last) +
                 ", but " + is_wanted,
             "Add the records up to number " + std::to_string(wanted) + ", or write " +
                 std::to_string(last) + in_line(count) + ".");
        return;
    }
    if (end + 1 == records.end()) return;
    const LineRecord& surplus = *(end + 1);
    const auto number = static_cast<long>(records.end() - end) - 1;
    tell(findings, rule, place_of_line(surplus.line, surplus.text),
         std::string(table.name) + ": " + counted(number, "record") + " behind number " +
             std::to_string(wanted) + ", which ends the table, as " + is_wanted,
         "Remove what stands behind it, or correct the count" + in_line(count) + ".");
}

constexpr std::size_t control_values = 9;

// The lines of the control section that ought to be its values.
Lines control_lines(const Layout& layout) {
    const Section* const section = layout.section(SectionId::control);
    return section == nullptr ? Lines() : behind_headings(section->lines);
}

// Whether the control section has too few or too many values: none of its counts is then known.
bool is_control_shifted(const Subject& subject, const Layout& layout) {
    const Lines lines = control_lines(layout);
    return is_looked_at(subject, SectionId::control) && !lines.empty() &&
           lines.size() != control_values;
}

void tell_of_control(const Layout& layout, const Rule& rule, Findings& findings) {
    const Lines lines = control_lines(layout);
    const bool is_surplus = lines.size() > control_values;
    const DeckLine& line = is_surplus ? lines[control_values] : lines.back();
    const Place place =
        is_surplus ? place_of_line(line.number, line.text) : Place{.line = line.number + 1};
    const std::string values = counted(static_cast<long>(lines.size()), "value");
    tell(findings, rule, place, "control section: " + values + ", but it has nine",
         "Its nine values stand one to a line: force factor, length factor, piles, cross sections, "
         "material types, segment types, load vectors, print level, echo level.");
}

// The piles of a geometry table that need a record in the segment table: those that are given, and
// those that are left out between two of them. None where the table or the count has an error of its own.
std::vector<int> given_piles(const std::vector<LineRecord>& records, int NUMPIL) {
    std::vector<int> piles;
    if (NUMPIL > limits::piles) return piles; // billions, perhaps
    int previous = 0;
    bool was_plain = false;
    for (const LineRecord& record : records) {
        const int NP = number_in(record);
        const bool is_given = record.numbers.size() > 2 && nearest_integer(record.numbers[1]) == 0;
        const bool is_plain = is_given && nearest_integer(record.numbers[2]) == 0;
        const bool is_gap = NP != previous + 1;
        if (NP <= previous || NP > NUMPIL || (is_gap && !(was_plain && is_plain))) return {};
        for (int skipped = previous + 1; skipped < NP; ++skipped) {
            piles.push_back(skipped);
        }
        if (is_given) piles.push_back(NP);
        previous = NP;
        was_plain = is_plain;
    }
    return previous == NUMPIL ? piles : std::vector<int>();
}

// The records of a segment table; a record may go on over lines. None where one of them does not have
// as many numbers as it says.
std::vector<LineRecord> take_segment_records(Lines& lines) {
    std::vector<LineRecord> records;
    bool all_whole = true;
    while (!lines.empty() && looks_like_record(lines.front().text)) {
        const std::vector<double> numbers = values_of(lines.front().text);
        const int listed = numbers.size() > 1 ? nearest_integer(numbers[1]) : 0;
        const auto wanted =
            static_cast<std::size_t>(std::clamp(listed, 0, limits::pile_segments)) + 2;
        LineRecord record = take_record(lines, wanted);
        all_whole = all_whole && record.found == wanted && listed <= limits::pile_segments;
        records.push_back(std::move(record));
    }
    return all_whole ? records : std::vector<LineRecord>();
}

void count_segment_table(const Rule& rule, const std::vector<int>& piles,
                         const std::vector<LineRecord>& records, Findings& findings) {
    if (piles.empty() || records.empty() || piles.size() == records.size()) return;
    const std::string text =
        "pile segment table: " + counted(static_cast<long>(records.size()), "record") +
        ", but the geometry has " + counted(static_cast<long>(piles.size()), "pile") +
        " with NGEN 0";
    constexpr std::string_view remedy = "Give one record for each pile that is not generated from "
                                        "another, those left out included.";
    const std::size_t both = std::min(piles.size(), records.size());
    std::size_t at = 0;
    while (at < both && number_in(records[at]) == piles[at])
        ++at;
    const std::string expected = at < piles.size()
                                     ? "; pile " + std::to_string(piles[at]) + " is expected here"
                                     : "; this one is too many";
    const Place place = at < records.size() ? place_of_line(records[at].line, records[at].text)
                                            : Place{.line = records.back().line + 1};
    tell(findings, rule, place, text + expected, std::string(remedy));
}

void count_geometry(const Subject& subject, const Layout& layout, const Rule& rule,
                    Findings& findings) {
    const Section* const section = layout.section(SectionId::geometry);
    if (section == nullptr || !is_looked_at(subject, SectionId::geometry)) return;
    constexpr EndingTable geometry{RecordId::pile_geometry, RecordId::piles, 0, "pile geometry"};
    constexpr EndingTable tips{RecordId::tip_and_fix, RecordId::piles, 1, "pile tip/fix table"};
    Lines lines = behind_headings(section->lines);
    const std::vector<LineRecord> piles = take_records(lines, 9);
    count_ending_table(subject, rule, geometry, piles, findings);
    lines = behind_headings(lines);
    const std::vector<LineRecord> segments = take_segment_records(lines);
    lines = behind_headings(lines);
    const std::vector<LineRecord> fixes = take_records(lines, 4);
    if (fixes.empty()) return; // a heading is missing: where the tables end is not known
    const int NUMPIL = control_value(subject, RecordId::piles);
    count_segment_table(rule, given_piles(piles, NUMPIL), segments, findings);
    count_ending_table(subject, rule, tips, fixes, findings);
}

// The cross sections of revision 5: each composite has as many tubes as its type says, and behind the
// last section stand as many points as the codes say. The width of a line tells what it is.
void count_list_section(const Subject& subject, const Section& section, const Rule& rule,
                        Findings& findings) {
    constexpr std::size_t section_width = 15;
    constexpr std::size_t tube_width = 16;
    constexpr std::size_t point_width = 6;
    int sections = 0;
    long tubes_left = 0;
    long points_left = 0;
    const int wanted = control_value(subject, RecordId::cross_sections);
    const Lines lines = behind_headings(section.lines);
    for (const DeckLine& line : lines) {
        const std::vector<double> numbers = values_of(line.text);
        const Place here = place_of_line(line.number, line.text);
        if (numbers.size() == tube_width) {
            if (tubes_left-- > 0) continue;
            tell(findings, rule, here,
                 "cross section " + std::to_string(sections) +
                     " has more tubes than its type says; the first one too many stands here",
                 "Correct the type, item 2 of its first line, or remove the tube.");
            return;
        }
        if (numbers.size() != section_width && numbers.size() != point_width) return;
        if (tubes_left > 0) {
            tell(findings, rule, here,
                 "cross section " + std::to_string(sections) + " has " +
                     counted(tubes_left, "tube") +
                     " fewer than its type says; one is expected here",
                 "Correct the type, item 2 of its first line, or add the tube.");
            return;
        }
        if (numbers.size() == point_width) {
            if (points_left == 0) return; // a section, perhaps, with something that is no number
            --points_left;
            continue;
        }
        ++sections;
        const double type = numbers[1];
        const double code = std::max(numbers[2], 0.0);
        const bool is_beyond = type > limits::sub_sections || code > limits::curve_points;
        if (is_beyond) return; // an error of its own
        tubes_left = type >= 2.0 ? static_cast<long>(type) : 0;
        points_left += static_cast<long>(code);
    }
    if (lines.empty()) return;
    if (tubes_left > 0) {
        tell(findings, rule, {.line = lines.back().number + 1},
             "cross section " + std::to_string(sections) + " has " + counted(tubes_left, "tube") +
                 " fewer than its type says; one is expected here",
             "Correct the type, item 2 of its first line, or add the tube.");
    } else if (sections != wanted) {
        tell(findings, rule, {.line = lines.back().number},
             records_against(subject, SectionId::cross_sections, static_cast<std::size_t>(sections),
                             RecordId::cross_sections),
             "Compare the sections with the count; tubes of composites are not counted.");
    } else if (points_left > 0) {
        tell(findings, rule, {.line = lines.back().number + 1},
             "the yield curves have " + counted(points_left, "point") +
                 " fewer than the non-linear codes of the sections say",
             "Give as many points for each section as its code, item 3, says.");
    }
}

void count_cross_sections(const Subject& subject, const Layout& layout, const Rule& rule,
                          Findings& findings) {
    const Section* const section = layout.section(SectionId::cross_sections);
    if (section == nullptr || !is_looked_at(subject, SectionId::cross_sections)) return;
    if (layout.revision() == 5) return count_list_section(subject, *section, rule, findings);
    constexpr EndingTable table{RecordId::cross_section, RecordId::cross_sections, 0,
                                "cross sections"};
    Lines lines = behind_headings(section->lines);
    count_ending_table(subject, rule, table, take_records(lines, 9), findings);
}

void count_node_values(const Subject& subject, const Layout& layout, const Rule& rule,
                       Findings& findings) {
    const Section* const section = layout.section(SectionId::node_values);
    if (section == nullptr || !is_looked_at(subject, SectionId::node_values)) return;
    Lines lines = behind_headings(section->lines);
    const std::vector<LineRecord> records = take_records(lines, 11);
    const auto ends = [](const LineRecord& record) { return number_in(record) < 1; };
    if (records.empty() || std::ranges::any_of(records, ends)) return;
    tell(findings, rule, {.line = records.back().line + 1},
         "special pile node values: " + counted(static_cast<long>(records.size()), "record") +
             ", and no end record behind them",
         "Add a record of eleven zeros: the table ends with a pile number below 1.");
}

// One load vector after the other: the number of piles against the records below it.
void count_loads(const Subject& subject, const Layout& layout, const Rule& rule,
                 Findings& findings) {
    const Section* const section = layout.section(SectionId::loads);
    if (section == nullptr || !is_looked_at(subject, SectionId::loads)) return;
    Lines lines = section->lines.subspan(1);
    const int wanted = control_value(subject, RecordId::load_vectors);
    for (int v = 1; v <= wanted; ++v) {
        if (lines.size() < 4) {
            tell(findings, rule, {.line = section->lines.back().number},
                 "load vectors: " + counted(v - 1, "whole vector") + ", but NUMLOD" +
                     in_line(control(subject, RecordId::load_vectors)) + " is " +
                     std::to_string(wanted),
                 "Compare the load vectors with the count.");
            return;
        }
        const std::vector<double> count = values_of(lines[1].text);
        const std::string vector = "load vector " + std::to_string(v);
        if (count.size() != 1 || values_of(lines[2].text).size() != 1) return;
        lines = lines.subspan(4);
        const int last = lines.empty() ? section->lines.back().number : lines.front().number - 1;
        const std::vector<LineRecord> records = take_records(lines, 7);
        const int piles = nearest_integer(count.front());
        if (static_cast<int>(records.size()) == piles) continue;
        const auto surplus = static_cast<std::size_t>(std::max(piles, 0));
        const bool is_surplus = surplus < records.size();
        const Place place = is_surplus
                                ? place_of_line(records[surplus].line, records[surplus].text)
                                : Place{.line = records.empty() ? last : records.back().line + 1};
        tell(findings, rule, place,
             vector + ": " + counted(static_cast<long>(records.size()), "record") +
                 ", but its number of loaded piles is " + std::to_string(piles),
             "Correct the number of loaded piles, the first line behind the label.");
        return;
    }
}

void look_at_counts(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.exit_code == 0) return;
    const Layout& layout = *subject.layout;
    if (is_control_shifted(subject, layout)) return tell_of_control(layout, rule, findings);
    for (const NumberedTable& table : numbered_tables) {
        count_numbered_table(subject, layout, rule, table, findings);
    }
    count_cross_sections(subject, layout, rule, findings);
    count_geometry(subject, layout, rule, findings);
    count_node_values(subject, layout, rule, findings);
    count_loads(subject, layout, rule, findings);
}

// A table of records with a fixed number of numbers.
void look_at_widths(const Subject& subject, const Rule& rule, SectionId id, RecordId record,
                    const std::vector<LineRecord>& records, Findings& findings) {
    if (!is_looked_at(subject, id)) return;
    for (std::size_t i = 0; i + 1 < records.size(); ++i) {
        if (!records[i].is_short) continue;
        tell(findings, rule, place_of_line(records[i].line, records[i].text),
             "record " + std::to_string(i + 1) + " of the " +
                 std::string(lower_case(deck::record(record).section)) + " has " +
                 counted(static_cast<long>(records[i].found), "number") + " instead of " +
                 std::to_string(deck::record(record).count) +
                 ", so the others are taken from the next line",
             "Complete the record; what a number means is in the heading of its section.");
        return; // what follows is shifted
    }
}

void look_for_short_records(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.exit_code == 0) return;
    const Layout& layout = *subject.layout;
    struct Table {
        SectionId section;
        RecordId record;
    };
    constexpr Table tables[] = {{SectionId::materials, RecordId::material},
                                {SectionId::cross_sections, RecordId::cross_section},
                                {SectionId::segment_types, RecordId::segment_type},
                                {SectionId::geometry, RecordId::pile_geometry},
                                {SectionId::node_values, RecordId::special_node_values}};
    for (const Table& table : tables) {
        const Section* const section = layout.section(table.section);
        const bool is_list = table.section == SectionId::cross_sections && layout.revision() == 5;
        if (section == nullptr || is_list) continue;
        Lines lines = behind_headings(section->lines);
        const auto wanted = static_cast<std::size_t>(deck::record(table.record).count);
        look_at_widths(subject, rule, table.section, table.record, take_records(lines, wanted),
                       findings);
    }
}

// A comment between two lines of the file that begins with a word: the letter C is its first.
std::optional<int> word_comment(const Subject& subject, int after, int before) {
    const auto is_letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    for (int number = after + 1; number < before; ++number) {
        const std::string_view line = subject.lines[static_cast<std::size_t>(number) - 1];
        if (number > 1 && is_comment(line) && line.size() > 1 && is_letter(line[1])) return number;
    }
    return std::nullopt;
}

std::optional<int> star_comment(const Subject& subject, int after, int before) {
    for (int number = after + 1; number < before; ++number) {
        if (number > 1 && is_comment(subject.lines[static_cast<std::size_t>(number) - 1])) {
            return number;
        }
    }
    return std::nullopt;
}

void tell_swallowed(const Subject& subject, const Rule& rule, int number, std::string_view what,
                    Findings& findings) {
    const std::string_view line = subject.lines[static_cast<std::size_t>(number) - 1];
    tell(findings, rule, place_of_line(number, line),
         std::string(what) + " begins with " + line.front() + " and is taken for a comment",
         "Begin it with a blank or another letter.");
}

// The lines between the records of the geometry tables, where each table has a heading.
bool has_inner_headings(Lines lines) {
    lines = behind_headings(lines);
    take_records(lines, 9);
    if (lines.empty()) return false;
    lines = behind_headings(lines);
    take_segment_records(lines);
    return !lines.empty();
}

// The line of a heading of a section, or of a label among its loads, that is taken for a comment.
std::optional<int> swallowed(const Subject& subject, const Layout& layout, const Section& section) {
    const int last = section.lines.back().number;
    const Lines records = behind_headings(section.lines);
    const int first_record = records.empty() ? last : records.front().number;
    if (section.id == SectionId::loads) {
        // A comment among loads that were not read may well be one.
        if (section_reached(subject.cmn.report) != SectionId::loads) return std::nullopt;
        return word_comment(subject, section.line_before, last);
    }
    if (headings_in(section.lines) < headings_of(section.id, layout.revision())) {
        const auto heading = word_comment(subject, section.line_before, first_record);
        return heading ? heading : star_comment(subject, section.line_before, first_record);
    }
    if (section.id != SectionId::geometry || has_inner_headings(section.lines)) return std::nullopt;
    return word_comment(subject, first_record, last);
}

// The revision tells how many headings there are.
bool has_known_headings(const Subject& subject) {
    return subject.exit_code != 0 && subject.cmn.IREV != 0;
}

void look_for_swallowed_headings(const Subject& subject, const Rule& rule, Findings& findings) {
    if (!has_known_headings(subject)) return;
    const Layout& layout = *subject.layout;
    for (const Section& section : layout.sections()) {
        if (!is_looked_at(subject, section.id)) continue;
        const auto number = swallowed(subject, layout, section);
        if (!number) continue;
        const bool is_load = section.id == SectionId::loads;
        tell_swallowed(subject, rule, *number, is_load ? "a label or heading" : "a heading",
                       findings);
    }
}

void look_at_headings(const Subject& subject, const Rule& rule, Findings& findings) {
    if (!has_known_headings(subject)) return;
    const Layout& layout = *subject.layout;
    for (const Section& section : layout.sections()) {
        if (section.id == SectionId::loads || !is_looked_at(subject, section.id)) continue;
        const int found = headings_in(section.lines);
        const int wanted = headings_of(section.id, layout.revision());
        if (found == wanted || swallowed(subject, layout, section)) continue;
        const Place place{.line = section.lines.front().number};
        tell(findings, rule, place,
             std::string(name_of(section.id)) + ": " + counted(found, "heading line") +
                 " between the blank line and the first record, but a deck of revision " +
                 std::to_string(layout.revision()) + " has " + std::to_string(wanted),
             found < wanted ? "Add a heading line; it may hold any text that does not begin with "
                              "C, c or *."
                            : "Remove a heading line, or make it a comment with * in column 1.");
    }
}

void look_at_end(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.exit_code == 0) return;
    const int end = subject.layout->end_line();
    if (end == 0) {
        for (std::size_t i = subject.lines.size(); i > 0; --i) {
            const std::string_view line = subject.lines[i - 1];
            if (is_blank(line)) continue;
            const std::string first = lower_case(line.substr(line.find_first_not_of(" \t")));
            const bool is_meant = first.starts_with("end");
            tell(findings, rule, place_of_line(static_cast<int>(i), line),
                 is_meant ? "this line does not end the deck: END stands in column 1, in capitals"
                          : "the deck has no line END: this is its last line",
                 "End the deck with a line END that begins in column 1.");
            return;
        }
        return;
    }
    const std::string_view line = subject.lines[static_cast<std::size_t>(end) - 1];
    constexpr std::string_view word = "END";
    const auto behind = std::span(subject.lines).subspan(static_cast<std::size_t>(end));
    const bool has_records = std::ranges::any_of(
        behind, [](const std::string& text) { return looks_like_record(text); });
    if (is_blank(line.substr(word.size())) || !has_records) return;
    tell(findings, rule, place_of_line(end, line),
         "this line begins with END and so ends the deck; records stand behind it",
         "Begin it with a blank or another word.");
}

constexpr Rule rules[] = {
    {"heading-comment", Level::error, "a heading that is taken for a comment",
     look_for_swallowed_headings},
    {"heading-count", Level::error, "a heading line too few or too many", look_at_headings},
    {"short-record", Level::error, "a record that takes numbers from the next line",
     look_for_short_records},
    {"record-count", Level::error, "records against the counts of the control section",
     look_at_counts},
    {"end-line", Level::error, "a missing line END, or one too early", look_at_end},
};

} // namespace

std::span<const Rule> structure_rules() {
    return rules;
}

} // namespace korvat::check
