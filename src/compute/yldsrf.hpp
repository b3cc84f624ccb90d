// Yield curves of a tubular cross section.
#pragma once

#include "model/store.hpp"

namespace korvat {

// A step of its own that this version does not have: it leaves the curves and IERR as they are.
inline void yldsrf(Store& /*cmn*/, int /*section*/) {}

} // namespace korvat
