// Turns the model as read into discrete piles.
#pragma once

#include "model/store/store.hpp"

namespace korvat {

// Forms the cross-section properties, discretises every pile, checks tip codes and fixings and
// asks for the yield curves. Failures are written to NF6 and set IERR to 1. Runs once on a store:
// a second time would count the sub-sections of composites twice.
void build(Store& cmn);

} // namespace korvat
