// Reads the input file into the store, up to the load vector section.
#include "model/sections/readpi.hpp"

#include "fortran/stop.hpp"
#include "input/get_revision.hpp"
#include "input/input_copy.hpp"
#include "model/sections/rev5inp.hpp"
#include "model/sections/section_reader.hpp"

namespace korvat {
namespace {

[[noreturn]] void terminate(Store& cmn) {
    cmn.runtime.write(cmn.NF6, "(/,' **** Error termination of KORVAT')");
    fortran::stop();
}

int copy_input(SectionReader& in) {
    const fortran::ReadStatus status = copy_without_comments(in.cmn, in.cmn.NF11, in.cmn.NF12);
    return status == fortran::ReadStatus::line ? no_fault : in.report_unreadable(status);
}

void find_revision(Store& cmn) {
    cmn.runtime.rewind(cmn.NF12);
    GetRevision(cmn, cmn.NF12, cmn.NF6, cmn.LABEL, cmn.IREV, cmn.IRDATE, cmn.NLINE, cmn.IERR,
                "KORVAT");
    if (cmn.IERR != 0) terminate(cmn);
}

// Every stage in deck order; the first fault ends the reading.
int read_sections(SectionReader& in) {
    if (const int fault = copy_input(in); fault != no_fault) return fault;
    find_revision(in.cmn);
    using Section = int (*)(SectionReader&);
    constexpr Section sections[] = {
        read_control_section, read_material_types,     read_cross_sections_by_revision,
        read_segment_types,   read_pile_geometry,      read_pile_segment_table,
        read_tip_fix_table,   read_special_node_values};
    for (const Section section : sections) {
        if (const int fault = section(in); fault != no_fault) return fault;
    }
    return no_fault;
}

} // namespace

int read_cross_sections_by_revision(SectionReader& in) {
    Store& cmn = in.cmn;
    if (cmn.IREV < 5) return read_cross_sections(in);
    if (cmn.IREV > 5) {
        report_error(cmn, cmn.NF6, {}, "(/,' **** SR/READPI : Program revision number > 5')");
        terminate(cmn);
    }
    rev5inp(cmn);
    return cmn.IERR; // rev5inp's code is the cause code
}

void readpi(Store& cmn) {
    cmn.IERR = 0;
    SectionReader in(cmn);
    const int fault = read_sections(in);
    if (fault == no_fault) return;
    linerd(cmn, cmn.NF12, cmn.NF6, cmn.NLINE, fault);
    cmn.IERR = 1;
}

} // namespace korvat
