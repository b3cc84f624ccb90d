// Tests of integers out of reals.
#include "model/store/integer.hpp"

#include <gtest/gtest.h>
#include <limits>

namespace korvat::test {
namespace {

constexpr int lowest = std::numeric_limits<int>::min();  // -2147483648
constexpr int highest = std::numeric_limits<int>::max(); // 2147483647
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

TEST(NearestInteger, HalvesGoUp) {
    EXPECT_EQ(nearest_integer(0.5), 1);
    EXPECT_EQ(nearest_integer(1.5), 2);
    EXPECT_EQ(nearest_integer(2.5), 3);
    EXPECT_EQ(nearest_integer(-0.5), 0);
    EXPECT_EQ(nearest_integer(-1.5), -1);
    EXPECT_EQ(nearest_integer(-2.5), -2);
}

TEST(NearestInteger, OtherValuesGoToTheNearest) {
    EXPECT_EQ(nearest_integer(0.0), 0);
    EXPECT_EQ(nearest_integer(7.0), 7);
    EXPECT_EQ(nearest_integer(6.75), 7);
    EXPECT_EQ(nearest_integer(7.25), 7);
    EXPECT_EQ(nearest_integer(-7.25), -7);
    EXPECT_EQ(nearest_integer(-6.75), -7);
    EXPECT_EQ(nearest_integer(-0.25), 0);
}

TEST(NearestInteger, HalfIsAddedInDouble) {
    // The largest number below 0.5: the sum with 0.5 rounds to 1.
    EXPECT_EQ(nearest_integer(0.49999999999999994), 1);
}

TEST(NearestInteger, StaysWithin32Bits) {
    EXPECT_EQ(nearest_integer(2147483647.25), highest);
    EXPECT_EQ(nearest_integer(2147483646.5), highest);
    EXPECT_EQ(nearest_integer(2147483646.25), highest - 1);
    EXPECT_EQ(nearest_integer(2147483647.5), highest);
    EXPECT_EQ(nearest_integer(1e300), highest);
    EXPECT_EQ(nearest_integer(-2147483648.0), lowest);
    EXPECT_EQ(nearest_integer(-2147483647.75), lowest);
    EXPECT_EQ(nearest_integer(-2147483647.25), lowest + 1);
    EXPECT_EQ(nearest_integer(-2147483649.0), lowest);
    EXPECT_EQ(nearest_integer(-1e300), lowest);
}

TEST(NearestInteger, ValuesThatAreNotFinite) {
    EXPECT_EQ(nearest_integer(infinity), highest);
    EXPECT_EQ(nearest_integer(-infinity), lowest);
    EXPECT_EQ(nearest_integer(not_a_number), lowest);
}

TEST(Truncated, CutsTowardsZero) {
    EXPECT_EQ(truncated(2.999, 1, 5), 2);
    EXPECT_EQ(truncated(3.0, 1, 5), 3);
    EXPECT_EQ(truncated(-2.999, -5, 5), -2);
    EXPECT_EQ(truncated(-0.5, -5, 5), 0);
}

TEST(Truncated, IsHeldWithinItsLimits) {
    EXPECT_EQ(truncated(0.5, 1, 5), 1);
    EXPECT_EQ(truncated(1.0, 1, 5), 1);
    EXPECT_EQ(truncated(5.999, 1, 5), 5);
    EXPECT_EQ(truncated(1e300, 1, 5), 5);
    EXPECT_EQ(truncated(-1e300, 1, 5), 1);
    EXPECT_EQ(truncated(3.0, 2, 2), 2);
    EXPECT_EQ(truncated(infinity, 1, 5), 5);
    EXPECT_EQ(truncated(-infinity, 1, 5), 1);
    EXPECT_EQ(truncated(not_a_number, 1, 5), 1);
    EXPECT_EQ(truncated(1e300, lowest, highest), highest);
    EXPECT_EQ(truncated(-1e300, lowest, highest), lowest);
}

TEST(SaturatedSum, StaysWithin32Bits) {
    EXPECT_EQ(saturated_sum(2, 3), 5);
    EXPECT_EQ(saturated_sum(-2, 2), 0);
    EXPECT_EQ(saturated_sum(highest - 2, 2), highest);
    EXPECT_EQ(saturated_sum(highest - 1, 2), highest);
    EXPECT_EQ(saturated_sum(highest, highest), highest);
    EXPECT_EQ(saturated_sum(lowest, 2), lowest + 2);
    EXPECT_EQ(saturated_sum(lowest, -1), lowest);
}

} // namespace
} // namespace korvat::test
