// Shows the last lines read from the temporary input copy after a fault.
#pragma once

#include "input/cause.hpp"
#include "model/store/store.hpp"

namespace korvat {

// Rewinds NFR and prints its lines up to number NLINE, at most the last 12, to IOUT under the
// heading of KIND (none: without a heading). An end of file before the first line to be shown, and a
// read error, leave as an exception.
void linerd(Store& cmn, int NFR, int IOUT, int NLINE, Cause KIND);

} // namespace korvat
