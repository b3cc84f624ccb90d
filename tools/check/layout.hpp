// The lines and sections of a deck as they can be made out without reading it: by blank lines, by the
// number of their headings, by what looks like a record.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::check {

inline constexpr std::size_t record_width = 80; // columns that are read of a line with numbers
inline constexpr std::size_t list_width = 120;  // in the cross sections of revision 5

// A line that the program reads: no comment, and in front of END.
struct DeckLine {
    int number = 0; // in the file, from 1
    std::string_view text;
};

enum class SectionId {
    control,
    materials,
    cross_sections,
    segment_types,
    geometry, // with the segment table and the tip/fix table
    node_values,
    loads
};

// As the messages name it.
[[nodiscard]] std::string_view name_of(SectionId id);

// The heading lines below its blank line; the load vectors' one.
[[nodiscard]] int headings_of(SectionId id, int revision);

// A section from the line behind its blank line on, up to the next blank line.
struct Section {
    SectionId id = SectionId::control;
    std::span<const DeckLine> lines;
    int line_before = 0; // number of the line in front, its blank line
};

class Layout {
public:
    // The lines must outlive it.
    explicit Layout(const std::vector<std::string>& file);

    [[nodiscard]] const std::vector<DeckLine>& lines() const { return lines_; }
    [[nodiscard]] int end_line() const { return end_line_; } // that begins with END; 0: none
    [[nodiscard]] int version_line() const { return version_line_; } // 0: none
    [[nodiscard]] int revision() const { return revision_; }

    // The sections in deck order as far as each stands where it is expected: the first that does not
    // leaves out those behind it.
    [[nodiscard]] const std::vector<Section>& sections() const { return sections_; }
    [[nodiscard]] const Section* section(SectionId id) const;

    // The columns that are read of a line, by its number; 0 where its text does not count.
    [[nodiscard]] std::size_t width_of_line(int number) const;

private:
    void find_version();
    [[nodiscard]] std::size_t block_end(std::size_t begin) const;
    void find_sections();

    std::vector<DeckLine> lines_;
    std::vector<Section> sections_;
    int end_line_ = 0;
    int version_line_ = 0;
    std::size_t top_ = 1; // lines of label and version line
    int revision_ = 4;
};

[[nodiscard]] bool is_comment(std::string_view line); // anywhere but on line 1

} // namespace korvat::check
