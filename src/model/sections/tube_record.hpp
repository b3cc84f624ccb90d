// The values of one cross section as the deck gives them, in either revision.
#pragma once

#include "model/sections/value_error.hpp"
#include "model/store/store.hpp"

namespace korvat {

struct TubeRecord {
    int MATCRS = 0;
    double DIAM = 0.0;
    double WALL = 0.0;
    double STFAX = 0.0;
    double STFBN = 0.0;
    double STFSH = 0.0;
    double STFTO = 0.0;
    double UWFLD = 0.0;
};

// The record in internal units.
[[nodiscard]] TubeRecord scaled(const TubeRecord& given, const Store& cmn);

// 1: no diameter, 2: no wall, 3: a wall of more than half the diameter; the last that applies.
// `DIAM_value` is the place of the diameter in the record; the wall stands behind it.
[[nodiscard]] ValueError size_error(const TubeRecord& tube, const Store& cmn, int DIAM_value);

// Stores a scaled record as cross section `number`.
void store_tube(Store& cmn, int number, const TubeRecord& tube);

} // namespace korvat
