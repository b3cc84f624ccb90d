#include "model/store/run_constants.hpp"

#include <cmath>

namespace korvat {

void set_run_constants(Store& cmn) {
    cmn.NF7 = 7;
    cmn.NF9 = 9;
    cmn.NF11 = 11;
    cmn.NF12 = 12;
    cmn.NF13 = 13;
    cmn.NF14 = 14;
    cmn.PI = 4.0 * std::atan(1.0);
    cmn.TOL = 1.0e-10;
    cmn.MAXPIL = limits::piles;
    cmn.MAXCRS = limits::cross_sections;
    cmn.MAXMAT = limits::materials;
    cmn.MAXSEG = limits::segment_types;
    cmn.MAXELM = limits::pile_elements;
    cmn.MAXNOD = limits::pile_nodes;
    cmn.MAXSPP = limits::pile_segments;
    cmn.MAXSPC = limits::special_records;
}

} // namespace korvat
