// Character plot of points in a plane, on the listing.
#pragma once

#include "model/store/store.hpp"

#include <span>

namespace korvat {

// Plots the points (XC, YC), XC to the right and YC downwards, in rows of NCOLS characters.
//   NP     in: number of points; negative: show them by their three-digit numbers instead of marks.
//          Out: its magnitude
//   NROWS  in: rows, 0: as many as keep the proportions. Out: the rows drawn, at most 200
//   NCOLS  columns, at most 130
void sketch(Store& cmn, std::span<const double> XC, std::span<const double> YC, int& NP, int& NROWS,
            int NCOLS, int IOUT);

} // namespace korvat
