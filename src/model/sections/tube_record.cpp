#include "model/sections/tube_record.hpp"

namespace korvat {

TubeRecord scaled(const TubeRecord& given, const Store& cmn) {
    const double FACF = cmn.FACF;
    const double FACL = cmn.FACL;
    return {.MATCRS = given.MATCRS,
            .DIAM = given.DIAM * FACL,
            .WALL = given.WALL * FACL,
            .STFAX = given.STFAX * FACF,
            .STFBN = given.STFBN * (FACF * FACL * FACL),
            .STFSH = given.STFSH * FACF,
            .STFTO = given.STFTO * (FACF * FACL * FACL),
            .UWFLD = given.UWFLD * (stress_factor(cmn) / FACL)};
}

ValueError size_error(const TubeRecord& tube, const Store& cmn, int DIAM_value) {
    ValueError error;
    if (cmn.TOL > tube.DIAM) error = {1, DIAM_value};
    if (cmn.TOL > tube.WALL) error = {2, DIAM_value + 1};
    if (tube.WALL > tube.DIAM * 0.5 + cmn.TOL) error = {3, DIAM_value + 1};
    return error;
}

void store_tube(Store& cmn, int number, const TubeRecord& tube) {
    cmn.MATCRS(number) = tube.MATCRS;
    cmn.DIAM(number) = tube.DIAM;
    cmn.WALL(number) = tube.WALL;
    cmn.STFAX(number) = tube.STFAX;
    cmn.STFBN(number) = tube.STFBN;
    cmn.STFSH(number) = tube.STFSH;
    cmn.STFTO(number) = tube.STFTO;
    cmn.UWFLD(number) = tube.UWFLD;
}

} // namespace korvat
