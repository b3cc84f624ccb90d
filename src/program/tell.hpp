// Tells the user how a run ended.
#pragma once

#include "run/entry.hpp"

namespace korvat {

// Writes the report of a run to standard error; returns its exit code.
int tell(const RunEnd& end);

} // namespace korvat
