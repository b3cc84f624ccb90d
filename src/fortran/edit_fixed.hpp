// Edits a real under fw.d.
#pragma once

#include <cstddef>

namespace korvat::fortran {

// Stores the exactly rounded decimal at `to`, ties to even, right-justified in `width` columns,
// wider where it needs more: what printf gives, which the runtime uses. The runtime has room for
// 63 characters; a longer text appears as `width` asterisks. A value that is not finite appears as
// inf or nan with its sign. `width` and `digits` are at most 255, the room needed is 256
// characters. Returns how many were stored.
[[nodiscard]] std::size_t edit_fixed(char* to, double value, int width, int digits);

} // namespace korvat::fortran
