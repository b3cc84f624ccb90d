// Edits a real under ew.d.
#pragma once

#include <cstddef>

namespace korvat::fortran {

// Stores the real at `to` by the runtime's own conversion, in exactly `width` columns (1..255),
// with `scale` digits before the point, or as asterisks where it does not fit or is not finite. The
// conversion is not correctly rounded; its digits are the program's. Returns `width`.
std::size_t edit_exponent(char* to, double value, int width, int digits, int scale);

} // namespace korvat::fortran
