// Writes the result pages of the listing.
#pragma once

#include "fortran/text.hpp"
#include "model/store/store.hpp"
#include "model/store/time_fields.hpp"

namespace korvat {

// Writes to NF13 the cross-section tables, at print level 2 the nodes of every pile and the dummy
// pile heads, and the check sums. `ITIME` is the time in the page headers.
void printpil(Store& cmn, const fortran::Text<10>& version, const fortran::Text<11>& release_date,
              const TimeFields& ITIME);

} // namespace korvat
