// Reads the input file into the store, up to the load vector section.
#pragma once

#include "model/store/store.hpp"

namespace korvat {

// Copies NF11 to NF12 without comments, finds the revision and reads every section into the store
// in internal units. IERR is 0 when the whole model was read, 1 after a fault: its message and the
// last lines read are then on NF6. Raises the runtime's stop when the revision cannot be found.
// With load vectors NF12 stands behind the blank line that opens their section.
void readpi(Store& cmn);

} // namespace korvat
