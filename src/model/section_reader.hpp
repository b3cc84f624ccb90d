// What the readers of the deck's sections share: the current location, lines, records, blank lines.
#pragma once

#include "input/linerd.hpp"
#include "input/read.hpp"
#include "model/deck_records.hpp"
#include "model/store.hpp"

#include <string_view>

namespace korvat {

inline constexpr int no_fault = 0;

// Reads the temporary input copy NF12, counting its lines in NLINE. Every function returns
// no_fault, or a cause code after it has written the message of the fault to NF6.
class SectionReader {
public:
    explicit SectionReader(Store& store) : cmn(store) {}

    // Reads a heading line, whatever it holds, into LINE.
    [[nodiscard]] int skip_heading();
    [[nodiscard]] int skip_headings(int count);

    // Reads a line into LINE and requires that its 120 characters are blank.
    [[nodiscard]] int require_blank_line(std::string_view section);

    // Reads the k-th record of its kind into VAR and sets LOC to its location code.
    [[nodiscard]] int read_record(deck::RecordId id, int k = 0);

    // Writes an error message of a failed check; returns its cause code.
    template <fortran::Writable... Items>
    [[nodiscard]] int reject(std::string_view format, const Items&... items) {
        cmn.runtime.write(cmn.NF6, format, items...);
        return cause::bad_value;
    }

    // Writes a warning; reading goes on.
    template <fortran::Writable... Items>
    void warn(std::string_view format, const Items&... items) {
        cmn.runtime.write(cmn.NF6, format, items...);
    }

    // Reports why a line could not be read at the present location.
    [[nodiscard]] int report_unreadable(fortran::ReadStatus status);

    // Number i of the record just read, as the nearest integer.
    [[nodiscard]] int integer(int i) const;

    Store& cmn;
    int LOC = 0;         // location code of the record being read
    int NPHYS = 0;       // physical lines of the record just read
    Values VAR;          // the record just read; keeps its numbers between records
    int NUMSEG = 0;      // pile segment types, 1..MAXSEG
    double stress = 0.0; // stress factor FACF / FACL / FACL

private:
    int read_text_line();
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
