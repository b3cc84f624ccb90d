// Blanks and decimal digits of a number's field.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace korvat::fortran {

inline constexpr std::array<std::uint64_t, 20> powers_of_ten = [] {
    std::array<std::uint64_t, 20> powers{};
    std::uint64_t power = 1;
    for (std::uint64_t& entry : powers) {
        entry = power;
        power *= 10;
    }
    return powers;
}();

// How many decimal digits an integer below 2^63 has; none for 0.
[[nodiscard]] inline int digits_of(std::uint64_t value) {
    // 1233 / 4096 is log 2, a little above it: the power of ten tells which of two counts it is.
    const int guess = (static_cast<int>(std::bit_width(value | 1)) * 1233) >> 12;
    return guess + (value >= powers_of_ten[static_cast<std::size_t>(guess)] ? 1 : 0);
}

// Blanks as far as a field of at most 63 columns reaches: as many as are always stored, which is
// quicker than to store as many as are needed.
inline constexpr int most_columns = 63;
inline void put_blanks(char* to) {
    static constexpr char blanks[most_columns + 2] =
        "                                                                ";
    std::memcpy(to, blanks, most_columns + 1);
}

// Stores the two digits of a value below 100 so that they end before `end`; returns where they begin.
inline char* put_pair_before(char* end, std::uint64_t value) {
    static constexpr char pairs[] = "0001020304050607080910111213141516171819"
                                    "2021222324252627282930313233343536373839"
                                    "4041424344454647484950515253545556575859"
                                    "6061626364656667686970717273747576777879"
                                    "8081828384858687888990919293949596979899";
    end -= 2;
    std::memcpy(end, pairs + 2 * value, 2);
    return end;
}

// Stores the digits of `value` so that they end before `end`, none for 0. Returns where they begin.
inline char* put_digits_before(char* end, std::uint64_t value) {
    while (value >= 100) {
        end = put_pair_before(end, value % 100);
        value /= 100;
    }
    if (value >= 10) return put_pair_before(end, value);
    if (value > 0) *--end = static_cast<char>('0' + value);
    return end;
}

} // namespace korvat::fortran
