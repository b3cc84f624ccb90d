#include "model/sections/readpi.hpp"

#include "input/get_revision.hpp"
#include "input/input_copy.hpp"
#include "input/linerd.hpp"
#include "model/sections/section_reader.hpp"

namespace korvat {
namespace {

Cause copy_input(SectionReader& in) {
    const fortran::ReadStatus status = copy_without_comments(in.cmn, in.cmn.NF11, in.cmn.NF12);
    if (status != fortran::ReadStatus::line) return in.report_unreadable(status);
    return Cause::none;
}

void find_revision(SectionReader& in) {
    Store& cmn = in.cmn;
    cmn.runtime.rewind(cmn.NF12);
    GetRevision(cmn, cmn.NF12, cmn.NF6, cmn.LABEL, cmn.IREV, cmn.IRDATE, cmn.NLINE, cmn.IERR,
                "KORVAT");
    if (cmn.IERR != 0) in.terminate();
}

// Every stage in deck order; the first fault ends the reading.
Cause read_sections(SectionReader& in) {
    if (const Cause fault = copy_input(in)) return fault;
    find_revision(in);
    using Section = Cause (*)(SectionReader&);
    constexpr Section sections[] = {read_control_section, read_material_types,
                                    read_cross_sections,  read_segment_types,
                                    read_pile_geometry,   read_pile_segment_table,
                                    read_tip_fix_table,   read_special_node_values};
    for (const Section section : sections) {
        if (const Cause fault = section(in)) return fault;
    }
    return Cause::none;
}

} // namespace

void readpi(Store& cmn) {
    cmn.IERR = 0;
    SectionReader in(cmn);
    const Cause fault = read_sections(in);
    if (!fault) return;
    linerd(cmn, cmn.NF12, cmn.NF6, cmn.NLINE, fault);
    cmn.IERR = 1;
}

} // namespace korvat
