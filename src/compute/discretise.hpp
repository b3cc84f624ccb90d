// Nodes and elements of every pile.
#pragma once

#include "model/store/store.hpp"

namespace korvat {

// Builds the piles 1..NUMPIL in increasing order: ICREL, XNOD, YNOD, ZNOD and NELP. At the first
// pile with too many nodes, or whose segments do not reach from head to tip, the message is written
// to NF6, IERR becomes 1 and false is returned; later piles are not built.
[[nodiscard]] bool discretise_piles(Store& cmn);

} // namespace korvat
