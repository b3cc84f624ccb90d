// Finds the revision of the input's layout from a version line near its top.
#pragma once

#include "model/store/store.hpp"

#include <string_view>

namespace korvat {

// Reads unit NF from its present position.
//   IOUT   unit of messages
//   LABEL  in: text that leading lines are compared with (blank); out: the first line of NF
//   IREV   out: 4 or 5; 0 after a fault
//   IDATE  out: year, month, day of the revision; set for revision 5 only
//   NLINE  out: lines of NF consumed; reading goes on behind them
//   IERR   out: 0; 2 the date is not accepted; 3 it names no revision; 4 end of file. The message
//          of a fault has been written.
//   NAME   program name, the first word of a version line: "NAME Version: YYYY-MM-DD"
//
// An input without a version line is of revision 4; NF then stands behind its first line.
void GetRevision(Store& cmn, int NF, int IOUT, Label& LABEL, int& IREV, Table1<int, 3>& IDATE,
                 int& NLINE, int& IERR, std::string_view NAME);

} // namespace korvat
