// The constants that a run is set up with.
#pragma once

#include "model/store/store.hpp"

namespace korvat {

// Sets PI, TOL, the maximum counts, and all unit numbers except those of console and message log.
void set_run_constants(Store& cmn);

} // namespace korvat
