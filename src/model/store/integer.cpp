#include "model/store/integer.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace korvat {
namespace {

constexpr int lowest_int = std::numeric_limits<int>::min();
constexpr int highest_int = std::numeric_limits<int>::max();

} // namespace

int truncated(double value, int lowest, int highest) {
    // Written so that not-a-number takes the first branch.
    if (!(value > lowest)) return lowest;
    if (value >= highest) return highest;
    return static_cast<int>(value);
}

int nearest_integer(double value) {
    return truncated(std::floor(value + 0.5), lowest_int, highest_int);
}

int saturated_sum(int a, int b) {
    const std::int64_t sum = std::int64_t{a} + std::int64_t{b};
    return static_cast<int>(std::clamp<std::int64_t>(sum, lowest_int, highest_int));
}

} // namespace korvat
