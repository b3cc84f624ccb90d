#include "check/read_outline.hpp"

#include "check/rows.hpp"
#include "check/text.hpp"

#include <algorithm>

namespace korvat::check {
namespace {

// Commas separate numbers in the cross sections of revision 5 only.
std::string_view separators_of(deck::RecordId id) {
    const bool is_list = id == deck::RecordId::cross_section_5 ||
                         id == deck::RecordId::sub_section || id == deck::RecordId::curve_point;
    return is_list ? " \t," : " ";
}

// The place of what stands from column `place.column` on, up to a separator.
Place place_in(const Report& report, const std::vector<std::string>& lines, const DeckPlace& place,
               std::string_view separators) {
    const int number = file_line(report, place.line);
    const auto index = static_cast<std::size_t>(number) - 1;
    if (number < 1 || index >= lines.size() || place.column < 1) return {.line = number};
    const std::string_view line = lines[index];
    const std::size_t position = std::min(static_cast<std::size_t>(place.column) - 1, line.size());
    const std::size_t end = std::min(line.find_first_of(separators, position), line.size());
    return place_of(line, number, {line.substr(position, end - position), position});
}

Row row_of(const Report& report, const std::vector<std::string>& lines, const GivenRecord& given) {
    const auto id = static_cast<deck::RecordId>(given.kind);
    Row row{.id = id,
            .k = given.k,
            .place = {.line = file_line(report, given.first_line)},
            .numbers = {}};
    for (const GivenNumber& number : given.numbers) {
        row.numbers.push_back(
            {number.value, place_in(report, lines, number.place, separators_of(id))});
    }
    return row;
}

} // namespace

int file_line(const Report& report, int line) {
    if (line < 1) return 0;
    const auto index = static_cast<std::size_t>(line) - 1;
    return index < report.deck_lines.size() ? report.deck_lines[index] : report.deck_end;
}

Place file_place(const Report& report, const std::vector<std::string>& lines,
                 const DeckPlace& place) {
    return place_in(report, lines, place, " \t");
}

int last_line_read(const Report& report, int NLINE) {
    return file_line(report, NLINE);
}

SectionId section_of(deck::RecordId id) {
    using deck::RecordId;
    if (id <= RecordId::echo_level) return SectionId::control;
    if (id == RecordId::material) return SectionId::materials;
    if (id <= RecordId::curve_point) return SectionId::cross_sections;
    if (id == RecordId::segment_type) return SectionId::segment_types;
    if (id <= RecordId::tip_and_fix) return SectionId::geometry;
    if (id == RecordId::special_node_values) return SectionId::node_values;
    return SectionId::loads;
}

SectionId section_reached(const Report& report) {
    if (report.records.empty()) return SectionId::control;
    const GivenRecord& last = report.records.back();
    const SectionId section = section_of(static_cast<deck::RecordId>(last.kind));
    constexpr double first_pile = 0.5; // rounded to 1; the end record has a number below
    const bool is_end =
        section == SectionId::node_values && last.numbers.front().value < first_pile;
    return is_end ? SectionId::loads : section;
}

Outline read_outline(const Report& report, int NLINE, const std::vector<std::string>& lines,
                     const Layout& layout) {
    std::vector<Row> rows;
    for (const GivenRecord& given : report.records) {
        rows.push_back(row_of(report, lines, given));
    }
    const int last_read = last_line_read(report, NLINE);
    for (SectionRows& section : scan_rows(layout)) {
        for (Row& row : section.rows) {
            if (row.place.line > last_read) rows.push_back(std::move(row));
        }
    }
    return Outline(std::move(rows));
}

} // namespace korvat::check
