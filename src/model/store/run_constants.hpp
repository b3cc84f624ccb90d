// The constants that a run is set up with.
#pragma once

#include "model/store/store.hpp"

namespace korvat {

// Sets the unit numbers but those of console and message log, PI, TOL and the maximum counts.
void set_run_constants(Store& cmn);

} // namespace korvat
