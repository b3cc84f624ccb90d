// Writes the analysis input file PILE.07 and the plot file.
#pragma once

#include "model/store/store.hpp"
#include "output/record_file.hpp"

namespace korvat {

// Writes every record of PILE.07, then PILEPLOT.TXT on NF14. IERR becomes 1 when a special node
// record reaches past a pile's last node and 2 when soil displacements are given at a dummy pile
// without springs; the message is on NF6, PILE.07 is left incomplete and no plot is written.
void save(Store& cmn, const RecordFile& pile_file);

} // namespace korvat
