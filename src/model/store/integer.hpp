// Integers from reals, always within range.
#pragma once

namespace korvat {

// The largest integer not above value + 0.5, limited to the 32-bit range; not-a-number gives the
// lowest integer.
[[nodiscard]] int nearest_integer(double value);

// The value limited to lowest..highest, then truncated towards zero; not-a-number gives lowest.
[[nodiscard]] int truncated(double value, int lowest, int highest);

// a + b, limited to the 32-bit range.
[[nodiscard]] int saturated_sum(int a, int b);

} // namespace korvat
