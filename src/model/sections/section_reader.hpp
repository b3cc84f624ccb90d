// What the readers of readpi's sections share: headings, blank lines, warnings.
#pragma once

#include "model/sections/deck_reader.hpp"

#include <string_view>

namespace korvat {

// The reader of readpi. Functions return no_fault or a cause code, as those of DeckReader do.
class SectionReader : public DeckReader {
public:
    explicit SectionReader(Store& store);

    // Reads a heading line, whatever it holds, into LINE.
    [[nodiscard]] int skip_heading();
    [[nodiscard]] int skip_headings(int count);

    // Reads a line into LINE and requires that its 120 characters are blank.
    [[nodiscard]] int require_blank_line(std::string_view section);

    // Writes a warning; reading goes on.
    template <fortran::Writable... Items>
    void warn(std::string_view format, const Items&... items) {
        cmn.runtime.write(cmn.NF6, format, items...);
    }

    int NUMSEG = 0; // pile segment types, 1..MAXSEG
};

// The sections, in deck order. Each leaves the reader behind its last line.
[[nodiscard]] int read_control_section(SectionReader& in);
[[nodiscard]] int read_material_types(SectionReader& in);
[[nodiscard]] int read_cross_sections(SectionReader& in);
[[nodiscard]] int read_segment_types(SectionReader& in);
[[nodiscard]] int read_pile_geometry(SectionReader& in);
[[nodiscard]] int read_pile_segment_table(SectionReader& in);
[[nodiscard]] int read_tip_fix_table(SectionReader& in);
[[nodiscard]] int read_special_node_values(SectionReader& in);

} // namespace korvat
