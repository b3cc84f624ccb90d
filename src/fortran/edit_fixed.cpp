#include "fortran/edit_fixed.hpp"

#include "fortran/digits.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace korvat::fortran {
namespace {

__extension__ using uint128 = unsigned __int128;

constexpr std::size_t longest_text =
    most_columns; // of the runtime's buffer, its terminator left out

// A real is m 2^e with a whole m below 2^53.
struct Binary {
    std::uint64_t m;
    int e;
};

Binary binary_of(double value) {
    constexpr std::uint64_t fraction_mask = (std::uint64_t{1} << 52) - 1;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const auto exponent = static_cast<int>((bits >> 52) & 0x7FFU);
    const std::uint64_t fraction = bits & fraction_mask;
    if (exponent == 0) return {fraction, -1074};
    return {fraction | (fraction_mask + 1), exponent - 1075};
}

// n 2^-shift, rounded to a whole number, ties to even: a shift, and what it drops decides, compared
// with one half.
template <typename Unsigned>
Unsigned rounded_shift(Unsigned n, int shift) {
    const Unsigned whole = n >> shift;
    const Unsigned rest = n - (whole << shift);
    const Unsigned half = Unsigned{1} << (shift - 1);
    const bool is_up = rest > half || (rest == half && (whole & 1) != 0);
    return is_up ? whole + 1 : whole;
}

// |value| 10^digits, rounded to a whole number: the decimals as one integer. m 10^digits is exact
// in 128 bits, and mostly in 64. Nothing where a result below 2^63 cannot be had that way.
std::optional<std::uint64_t> whole_of(double value, int digits) {
    if (digits >= static_cast<int>(powers_of_ten.size())) return std::nullopt;
    constexpr uint128 limit = uint128{1} << 63;
    const auto [m, e] = binary_of(value);
    const uint128 n = uint128{m} * powers_of_ten[static_cast<std::size_t>(digits)];
    if (e >= 0) {
        if (e >= 63 || n >= limit >> e) return std::nullopt;
        return static_cast<std::uint64_t>(n << e);
    }
    const int shift = -e;
    if (n < limit && shift < 64) return rounded_shift(static_cast<std::uint64_t>(n), shift);
    if (shift >= 120) return 0; // n has at most 117 bits: less than one half is left
    const uint128 whole = rounded_shift(n, shift);
    if (whole >= limit) return std::nullopt;
    return static_cast<std::uint64_t>(whole);
}

// Columns that the decimal takes: its digits, at least one before the point, the point, the sign.
int columns_of(std::uint64_t whole, int digits, bool is_negative) {
    const int figures = std::max(digits_of(whole), digits + 1);
    return figures + (digits > 0 ? 1 : 0) + (is_negative ? 1 : 0);
}

// Stores the decimal so that it ends before `end`.
void put_decimal_before(char* end, std::uint64_t whole, int digits, bool is_negative) {
    if (digits > 0) {
        for (int i = digits; i > 1; i -= 2) {
            end = put_pair_before(end, whole % 100);
            whole /= 100;
        }
        if (digits % 2 != 0) {
            *--end = static_cast<char>('0' + whole % 10);
            whole /= 10;
        }
        *--end = '.';
    }
    if (whole == 0) *--end = '0';
    end = put_digits_before(end, whole);
    if (is_negative) *--end = '-';
}

std::size_t justified(char* to, std::string_view text, int width) {
    const std::size_t columns = std::max(text.size(), static_cast<std::size_t>(width));
    put_blanks(to);
    std::memcpy(to + (columns - text.size()), text.data(), text.size());
    return columns;
}

std::size_t asterisks(char* to, int width) {
    std::memset(to, '*', static_cast<std::size_t>(width));
    return static_cast<std::size_t>(width);
}

// The way of values and digits that are too large for the whole number. Apart, so that the usual way
// has no need of the room.
[[gnu::noinline]] std::size_t edit_large(char* to, double value, int width, int digits) {
    std::array<char, longest_text> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::fixed, digits);
    if (end.ec != std::errc()) return asterisks(to, width);
    return justified(to, {text.data(), static_cast<std::size_t>(end.ptr - text.data())}, width);
}

[[gnu::noinline]] std::size_t edit_infinity_or_nan(char* to, double value, int width) {
    const std::string_view name = std::isnan(value) ? "-nan" : "-inf";
    return justified(to, name.substr(std::signbit(value) ? 0 : 1), width);
}

} // namespace

std::size_t edit_fixed(char* to, double value, int width, int digits) {
    if (width > static_cast<int>(longest_text)) return asterisks(to, width);
    if (!std::isfinite(value)) return edit_infinity_or_nan(to, value, width);
    const auto whole = whole_of(value, digits);
    if (!whole) return edit_large(to, value, width, digits);
    const bool is_negative = std::signbit(value);
    const int columns = std::max(columns_of(*whole, digits, is_negative), width);
    put_blanks(to);
    put_decimal_before(to + columns, *whole, digits, is_negative);
    return static_cast<std::size_t>(columns);
}

} // namespace korvat::fortran
