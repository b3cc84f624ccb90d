// Blanks and decimal digits of a number's field.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace korvat::fortran {

__extension__ using uint128 = unsigned __int128;

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

// Short numbers are edited in registers: eight or sixteen characters are the bytes of one unsigned
// integer, the first of them in the lowest byte, as it lies in memory.
static_assert(std::endian::native == std::endian::little);

// Values below this one have eight digits with the zeros in front.
inline constexpr int short_digits = 8;
inline constexpr std::uint64_t short_limit = 100'000'000;

// The eight decimal digits of a value below short_limit, one a byte. The halves, the pairs of each
// half and the digits of each pair are divided side by side; the factors are 1/100 and 1/10 rounded
// up, exact as far as 9999 and 99 go.
[[nodiscard]] inline std::uint64_t eight_digits(std::uint64_t value) {
    const std::uint64_t halves = value / 10'000 | (value % 10'000) << 32;
    const std::uint64_t hundreds = ((halves * 10'486) >> 20) & 0x0000'007F'0000'007F;
    const std::uint64_t pairs = hundreds | (halves - 100 * hundreds) << 16;
    const std::uint64_t tens = ((pairs * 103) >> 10) & 0x000F'000F'000F'000F;
    return tens | (pairs - 10 * tens) << 8;
}

// Digits of eight_digits as characters, blanks in the place of the first `blanks` zeros, at most 7.
[[nodiscard]] inline std::uint64_t digit_characters(std::uint64_t digits, int blanks) {
    constexpr std::uint64_t zero_characters = 0x3030'3030'3030'3030;
    constexpr std::uint64_t zero_to_blank = 0x1010'1010'1010'1010;
    const std::uint64_t in_front = (std::uint64_t{1} << (8 * blanks)) - 1;
    return (digits | zero_characters) ^ (zero_to_blank & in_front);
}

// How many of the eight digits are zeros in front of the first other one; 8 for none other.
[[nodiscard]] inline int zeros_in_front(std::uint64_t digits) {
    return std::countr_zero(digits) / 8;
}

inline constexpr int short_columns = 16;

// A minus sign in the place of the blank before `number`, which begins behind `blanks` blanks.
[[nodiscard]] inline uint128 with_minus(uint128 field, int blanks) {
    constexpr uint128 blank_to_minus = ' ' ^ '-';
    return field ^ blank_to_minus << (8 * (blanks - 1));
}

// Stores a number's last sixteen columns, `blanks` of them blank, right-justified in `width` columns
// or in as many as it needs. Returns how many; behind them up to 64 characters may change.
inline std::size_t put_field(char* to, uint128 field, int blanks, int width) {
    if (width <= short_columns) {
        const int columns = width > short_columns - blanks ? width : short_columns - blanks;
        field >>= 8 * (short_columns - columns);
        std::memcpy(to, &field, sizeof field);
        return static_cast<std::size_t>(columns);
    }
    put_blanks(to);
    std::memcpy(to + (width - short_columns), &field, sizeof field);
    return static_cast<std::size_t>(width);
}

} // namespace korvat::fortran
