#include "compute/build.hpp"

#include "compute/discretise.hpp"
#include "compute/section_properties.hpp"
#include "compute/yldsrf.hpp"
#include "model/store/report_error.hpp"

#include <cstdint>
#include <cstdlib>

namespace korvat {
namespace {

void check_tip_code(Store& cmn, int np) {
    const int nodes = cmn.NELP(np) + 1;
    if (std::abs(std::int64_t{cmn.ITIP(np)}) < nodes) return;
    cmn.IERR = 1;
    report_error(cmn, cmn.NF6, cmn.report.places.ITIP(np),
                 "(/,' **** SR/BUILD : TIP CODE ERROR  NP,ND,ICTIP=',3i5)", np, nodes,
                 cmn.ITIP(np));
}

// A pile may only be fixed to a dummy pile.
void check_fixing(Store& cmn, int np) {
    const int f = cmn.IFIX(np);
    if (f == 0 || cmn.NELP(f) == 0) return;
    cmn.IERR = 1;
    report_error(
        cmn, cmn.NF6, cmn.report.places.IFIX(np),
        "(/,' **** SR/BUILD : PILE ',i3.3,' FIXED TO ',i3.3,' , THIS IS NOT A DUMMY PILE')", np, f);
}

// Only piles with a negative tip code are checked, for their fixing too. No error stops the loop.
void check_tips_and_fixings(Store& cmn) {
    for (int np = 1; np <= cmn.NUMPIL; ++np) {
        if (cmn.ITIP(np) >= 0) continue;
        check_tip_code(cmn, np);
        check_fixing(cmn, np);
    }
}

void form_yield_curves(Store& cmn, int primary_sections) {
    for (int i = 1; i <= primary_sections; ++i) {
        if (cmn.NLCRS(i) < 0) yldsrf(cmn, i);
    }
}

} // namespace

void build(Store& cmn) {
    const int primary_sections = cmn.NUMCRS; // before the sub-sections of composites are counted
    form_section_properties(cmn);
    form_composite_sections(cmn);
    if (!discretise_piles(cmn)) return;
    check_tips_and_fixings(cmn);
    form_yield_curves(cmn, primary_sections);
}

} // namespace korvat
