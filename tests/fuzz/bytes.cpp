// The fuzzer's bytes, taken from the front as numbers and texts.
#include "bytes.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

namespace korvat::test {
namespace {

using Real = std::numeric_limits<double>;
using Integer = std::numeric_limits<int>;

constexpr std::array extreme_integers{0,
                                      1,
                                      -1,
                                      9,
                                      10,
                                      -9,
                                      -10,
                                      99,
                                      100,
                                      999,
                                      1000,
                                      99999,
                                      100000,
                                      -999,
                                      -9999,
                                      -99999,
                                      Integer::max(),
                                      Integer::min(),
                                      Integer::min() + 1};

constexpr std::array extreme_reals{0.0,
                                   -0.0,
                                   1.0,
                                   -1.0,
                                   0.1,
                                   -0.1,
                                   0.5,
                                   9.9995,
                                   99999.5,
                                   -99999.5,
                                   1.0e15,
                                   -1.0e15,
                                   9.99e14,
                                   1.0e16,
                                   1.0e22,
                                   1.0e58,
                                   2.0e58,
                                   -2.0e58,
                                   2.0e59,
                                   1.0e99,
                                   1.0e100,
                                   1.0e-99,
                                   1.0e-100,
                                   1.0e308,
                                   -1.0e308,
                                   1.0e-308,
                                   -1.0e-308,
                                   1.0e-320,
                                   Real::max(),
                                   Real::lowest(),
                                   Real::min(),
                                   Real::denorm_min(),
                                   -Real::denorm_min(),
                                   Real::infinity(),
                                   -Real::infinity(),
                                   Real::quiet_NaN(),
                                   Real::epsilon(),
                                   999999.5,
                                   0.99999999999999989};

} // namespace

std::uint8_t Bytes::take_byte() {
    return static_cast<std::uint8_t>(take_bits(1));
}

int Bytes::take_integer() {
    const std::size_t choice = take_byte();
    if (choice < extreme_integers.size()) return extreme_integers[choice];
    return std::bit_cast<int>(static_cast<std::uint32_t>(take_bits(4)));
}

double Bytes::take_real() {
    const std::size_t choice = take_byte();
    if (choice < extreme_reals.size()) return extreme_reals[choice];
    return std::bit_cast<double>(take_bits(8));
}

std::string Bytes::take_text(std::size_t count) {
    const std::string text(rest_.substr(0, count));
    rest_.remove_prefix(text.size());
    return text;
}

std::uint64_t Bytes::take_bits(std::size_t count) {
    std::uint64_t value = 0;
    const std::size_t present = std::min(count, rest_.size());
    for (std::size_t i = present; i > 0; --i) {
        value = (value << 8U) | static_cast<unsigned char>(rest_[i - 1]);
    }
    rest_.remove_prefix(present);
    return value;
}

} // namespace korvat::test
