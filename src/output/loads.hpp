// Reads the load vectors and writes the load file LOAD.09.
#pragma once

#include "model/store/store.hpp"
#include "output/record_file.hpp"

namespace korvat {

// Reads the load vector section from where readpi stopped and writes a label, a count and the pile
// records of each vector. IERR stays 0, or becomes 1 after a fault whose message and last lines
// are on NF6; what was written until then stays in the file.
void loads(Store& cmn, const RecordFile& load_file);

} // namespace korvat
