// The cross-section section of a revision-5 input.
#pragma once

#include "model/store.hpp"

namespace korvat {

// A step of its own that this version does not have: it reads nothing and leaves IERR at 0.
inline void rev5inp(Store& /*cmn*/) {}

} // namespace korvat
