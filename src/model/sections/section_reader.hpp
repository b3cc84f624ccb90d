// What the readers of readpi's sections share: headings, blank lines, warnings.
#pragma once

#include "model/sections/deck_reader.hpp"

#include <string_view>

namespace korvat {

// The reader of readpi. Functions return a cause, as those of DeckReader do.
class SectionReader : public DeckReader {
public:
    explicit SectionReader(Store& store);

    // Reads a heading line, whatever it holds, into LINE.
    Cause skip_heading();
    Cause skip_headings(int count);

    // Reads a line into LINE and requires that its 120 characters are blank.
    Cause require_blank_line(std::string_view section);

    // Writes a warning about a place; reading goes on.
    template <fortran::Writable... Items>
    void warn(const DeckPlace& place, std::string_view format, const Items&... items) {
        report_warning(cmn, cmn.NF6, place, format, items...);
    }

    // Ends the run through the runtime's stop.
    [[noreturn]] void terminate();

    int NUMSEG = 0; // pile segment types, 1..MAXSEG
};

// The sections, in deck order. Each leaves the reader behind its last line.
Cause read_control_section(SectionReader& in);
Cause read_material_types(SectionReader& in);
Cause read_cross_sections(SectionReader& in);
Cause read_segment_types(SectionReader& in);
Cause read_pile_geometry(SectionReader& in);
Cause read_pile_segment_table(SectionReader& in);
Cause read_tip_fix_table(SectionReader& in);
Cause read_special_node_values(SectionReader& in);

} // namespace korvat
