// Reads the cross-section section of a revision-5 input.
#pragma once

#include "input/cause.hpp"
#include "model/store/store.hpp"

namespace korvat {

// Reads the cross sections, the sub-sections of composites (stored behind NUMCRS, which is not
// changed) and the given points of non-linear sections from NF12. The cause of a fault, whose message
// is on NF6, is also the code in IERR: 1 a value cannot be converted, 2 end of file, 4 a check failed.
// Raises the runtime's stop for a composite of more than 12 sub-sections.
Cause rev5inp(Store& cmn);

} // namespace korvat
