#include "check/layout.hpp"

#include "check/text.hpp"

#include <algorithm>

namespace korvat::check {
namespace {

constexpr std::size_t lines_searched = 10; // below the label

struct SectionShape {
    SectionId id;
    std::string_view name;
    int headings;
    int headings_of_5;
    std::size_t numbers; // of its widest record
};

constexpr SectionShape shapes[] = {
    {SectionId::control, "control section", 1, 1, 1},
    {SectionId::materials, "material types", 2, 3, 6},
    {SectionId::cross_sections, "cross sections", 2, 3, 9},
    {SectionId::segment_types, "pile segment types", 2, 2, 5},
    {SectionId::geometry, "pile geometry", 2, 2, 9},
    {SectionId::node_values, "special pile node values", 2, 2, 11},
    {SectionId::loads, "load vectors", 1, 1, 7},
};

const SectionShape& shape_of(SectionId id) {
    return *std::ranges::find(shapes, id, &SectionShape::id);
}

std::size_t widest(std::span<const DeckLine> lines) {
    std::size_t width = 0;
    for (const DeckLine& line : lines) {
        width = std::max(width, width_of(line.text, " \t,"));
    }
    return width;
}

bool is_version_line(std::string_view line) {
    return line.starts_with("KORVAT Version:") || line.starts_with("KORVAT version:");
}

} // namespace

std::string_view name_of(SectionId id) {
    return shape_of(id).name;
}

int headings_of(SectionId id, int revision) {
    return revision == 5 ? shape_of(id).headings_of_5 : shape_of(id).headings;
}

bool is_comment(std::string_view line) {
    return line.starts_with('*') || line.starts_with('C') || line.starts_with('c');
}

Layout::Layout(const std::vector<std::string>& file) {
    for (std::size_t i = 0; i < file.size(); ++i) {
        const int number = static_cast<int>(i) + 1;
        if (file[i].starts_with("END")) {
            end_line_ = number;
            break;
        }
        if (i == 0 || !is_comment(file[i])) lines_.push_back({number, file[i]});
    }
    find_version();
    find_sections();
}

void Layout::find_version() {
    for (std::size_t i = 1; i < std::min(lines_.size(), lines_searched + 1); ++i) {
        if (!is_version_line(lines_[i].text)) continue;
        version_line_ = lines_[i].number;
        top_ = i + 1;
        if (lines_[i].text.find("2009") != std::string_view::npos) revision_ = 5;
        return;
    }
}

// The end of the block of lines that begins at `begin`: the next blank line, or the headings of a section
// whose blank line is missing: two lines that are no records, between records.
std::size_t Layout::block_end(std::size_t begin) const {
    bool has_records = false;
    std::size_t others = 0; // lines in a row that are no records
    for (std::size_t i = begin; i < lines_.size(); ++i) {
        if (is_blank(lines_[i].text)) return i;
        if (!looks_like_record(lines_[i].text)) {
            ++others;
            continue;
        }
        if (has_records && others >= 2) return i - others;
        has_records = true;
        others = 0;
    }
    return lines_.size();
}

void Layout::find_sections() {
    std::size_t next = 0; // section
    std::size_t begin = top_;
    while (begin < lines_.size() && next < std::size(shapes)) {
        if (is_blank(lines_[begin].text)) {
            ++begin;
            continue;
        }
        const SectionShape& shape = shapes[next];
        const bool is_last = shape.id == SectionId::loads; // a label may be blank
        const std::size_t end = is_last ? lines_.size() : block_end(begin);
        const auto lines = std::span(lines_).subspan(begin, end - begin);
        const int blank = lines_[begin - 1].number;
        begin = end;
        const std::size_t width = widest(lines);
        if (width == 0) continue; // no records: not a section of its own
        const bool is_headed = !looks_like_record(lines.front().text);
        if (width < shape.numbers || (!is_headed && shape.id != SectionId::control)) return;
        sections_.push_back({shape.id, lines, blank});
        ++next;
    }
}

const Section* Layout::section(SectionId id) const {
    const auto found = std::ranges::find(sections_, id, &Section::id);
    return found == sections_.end() ? nullptr : &*found;
}

std::size_t Layout::width_of_line(int number) const {
    for (const Section& section : sections_) {
        if (number < section.lines.front().number || number > section.lines.back().number) continue;
        const bool has_lists = section.id == SectionId::cross_sections && revision_ == 5;
        return has_lists ? list_width : record_width;
    }
    return 0;
}

} // namespace korvat::check
