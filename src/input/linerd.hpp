// Shows the last lines read from the temporary input copy after a fault.
#pragma once

#include "model/store/store.hpp"

namespace korvat {

// Why a section reader gives up: the cause codes that linerd explains.
namespace cause {
inline constexpr int format_error = 1; // a line could not be read
inline constexpr int end_of_file = 2;  // the input ended inside a section
inline constexpr int record_fault = 3; // read reported a fault
inline constexpr int bad_value = 4;    // a value failed a check
} // namespace cause

// Rewinds NFR and prints its lines up to number NLINE, at most the last 12, to IOUT under the
// heading of KIND (a cause code; any other prints no heading). An end of file before the first
// line to be shown leaves as the runtime's exception.
void linerd(Store& cmn, int NFR, int IOUT, int NLINE, int KIND);

} // namespace korvat
