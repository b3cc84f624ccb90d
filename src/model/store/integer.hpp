// Integers out of reals, never out of range.
#pragma once

namespace korvat {

// The largest integer not above value + 0.5, held within the 32-bit range; not-a-number gives the
// lowest integer.
[[nodiscard]] int nearest_integer(double value);

// The value cut towards zero, first held within lowest..highest; not-a-number gives lowest.
[[nodiscard]] int truncated(double value, int lowest, int highest);

// a + b, held within the 32-bit range.
[[nodiscard]] int saturated_sum(int a, int b);

} // namespace korvat
