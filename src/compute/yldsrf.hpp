// Yield curves of a tubular cross section.
#pragma once

#include "model/store/store.hpp"

namespace korvat {

// Generates the ten points of the elastic and the plastic curve of a cross section with a negative
// non-linear code: FAXEL, FAXPL (the same levels, from the compression capacity down to tension
// yield, exactly one of them 0.0), FMOEL and FMOPL; then sets NLCRS to 10. The capacity is that of
// norchk for code -1, of isochk for any other. An error is written to NF6 and raises the runtime's
// stop.
void yldsrf(Store& cmn, int section);

} // namespace korvat
