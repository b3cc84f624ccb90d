// The host number that is formed from the hardware addresses of network adapters.
#include "platform/system_identification.hpp"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace korvat::test {
namespace {

using platform::HardwareAddress;
using platform::host_number_of;

using Adapters = std::vector<std::optional<HardwareAddress>>;

// Bytes 3, 2, 5 and 4, high to low.
constexpr HardwareAddress first = {0x00, 0x11, 0x22, 0x33, 0x44, 0x55};  // 0x33225544
constexpr HardwareAddress second = {0xAA, 0xBB, 0x02, 0x01, 0x04, 0x03}; // 0x01020304
constexpr HardwareAddress zero = {0xAA, 0xBB, 0x00, 0x00, 0x00, 0x00};

TEST(HostNumber, IsMadeOfFourBytesOfTheAddress) {
    EXPECT_EQ(host_number_of(Adapters{first}), 0x33225544);
    EXPECT_EQ(host_number_of(Adapters{second}), 0x01020304);
}

TEST(HostNumber, TakesEachByteFromItsPlace) {
    EXPECT_EQ(host_number_of(Adapters{HardwareAddress{0, 0, 0, 1, 0, 0}}), 1 << 24);
    EXPECT_EQ(host_number_of(Adapters{HardwareAddress{0, 0, 1, 0, 0, 0}}), 1 << 16);
    EXPECT_EQ(host_number_of(Adapters{HardwareAddress{0, 0, 0, 0, 0, 1}}), 1 << 8);
    EXPECT_EQ(host_number_of(Adapters{HardwareAddress{0, 0, 0, 0, 1, 0}}), 1);
    EXPECT_EQ(host_number_of(Adapters{HardwareAddress{1, 1, 0, 0, 0, 0}}), 0);
}

TEST(HostNumber, IsMaskedTo31Bits) {
    const HardwareAddress all_ones = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
    EXPECT_EQ(host_number_of(Adapters{all_ones}), std::numeric_limits<int>::max());
    const HardwareAddress top_bit = {0, 0, 0, 0x80, 0, 0};
    EXPECT_EQ(host_number_of(Adapters{top_bit}), 0);
    const HardwareAddress top_bit_and_one = {0, 0, 0, 0x80, 1, 0};
    EXPECT_EQ(host_number_of(Adapters{top_bit_and_one}), 1);
}

TEST(HostNumber, IsThatOfTheLastAdapter) {
    EXPECT_EQ(host_number_of(Adapters{first, second}), 0x01020304);
    EXPECT_EQ(host_number_of(Adapters{second, first}), 0x33225544);
    EXPECT_EQ(host_number_of(Adapters{std::nullopt, zero, first}), 0x33225544);
}

TEST(HostNumber, IsNegativeWhenTheLastQueryFailed) {
    EXPECT_EQ(host_number_of(Adapters{first, std::nullopt}), -0x33225544);
    EXPECT_EQ(host_number_of(Adapters{first, second, std::nullopt}), -0x33225544);
}

TEST(HostNumber, IsTheNegativeOfTheFirstPositiveNumber) {
    EXPECT_EQ(host_number_of(Adapters{first, second, zero}), -0x33225544);
    EXPECT_EQ(host_number_of(Adapters{std::nullopt, zero, second, first, zero}), -0x01020304);
}

TEST(HostNumber, IsZeroWithoutANumber) {
    EXPECT_EQ(host_number_of(Adapters{}), 0);
    EXPECT_EQ(host_number_of(Adapters{zero}), 0);
    EXPECT_EQ(host_number_of(Adapters{std::nullopt}), 0);
    EXPECT_EQ(host_number_of(Adapters{zero, std::nullopt, zero}), 0);
}

} // namespace
} // namespace korvat::test
