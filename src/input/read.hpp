// Free-format record reader: one logical record of numbers, continued over lines by its count.
#pragma once

#include "model/store/store.hpp"

#include <string_view>

namespace korvat {

// The numbers of one logical record.
using Values = Table1<double, limits::record_values>;

// Reads one logical record from INUNIT.
//   NVAR    in: numbers expected; 0: as many as one line holds; -m: the m-th number tells how many
//           follow it. Out: the count found (0) or resolved (-m).
//   LOC     location code of the record, printed in every message
//   IOUNIT  unit of messages and of the lines shown with them
//   NPHYS   out: physical lines read
//   LINE    in: the previous record, whose first 80 columns are shown as the line above;
//           out: the lines of this record, joined with one blank between them
//   VAR     out: the numbers; after a success the places behind them are 0.0. A number that cannot
//           be converted leaves its place as it was.
//   IERR    out: 0, or 1 after a fault whose message has been written
//
// A surplus on the first line is ignored when NVAR >= 1; on a continuation line it is a fault.
void read(Store& cmn, int& NVAR, int LOC, int INUNIT, int IOUNIT, int& NPHYS, Line& LINE,
          Values& VAR, int& IERR);

// Extracts numbers from one physical line into VAR, from index K on.
//   N     in: at most this many; 0: as many as fit. Out: the count found.
//   IERR  out: 0, or -1 when a number cannot be converted
void getnum(std::string_view line, int K, Values& VAR, int& N, int& IERR);

// Position of the k-th number (from 1) of a line, from 0, behind the tabs in front of it; npos when
// there is none.
[[nodiscard]] std::size_t position_of_number(std::string_view line, int k);

// Place of the i-th number (from 1) of a record that was read into LINE and whose first physical
// line is number `first_line` of NF12; the whole of that line when there is no such number.
[[nodiscard]] DeckPlace place_of_number(const RecordLines& lines, const Line& LINE, int first_line,
                                        int i);

} // namespace korvat
