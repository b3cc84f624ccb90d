// Edits an integer under iw.m.
#pragma once

#include <cstddef>

namespace korvat::fortran {

// Stores the integer at `to`: at least `digits` digits, right-justified in `width` columns, wider
// where it needs more. Both are at most 62; the room needed is 80 characters. Returns how many
// characters were stored. A 0 under iw.0 has no digits.
[[nodiscard]] std::size_t edit_integer(char* to, int value, int width, int digits);

} // namespace korvat::fortran
