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

constexpr std::size_t longest_text =
    most_columns; // of the runtime's buffer, its terminator left out

// A real is m 2^e with a whole m below 2^53.
struct Binary {
    std::uint64_t m;
    int e;
};

constexpr std::uint64_t fraction_mask = (std::uint64_t{1} << 52) - 1;

Binary binary_of(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const auto exponent = static_cast<int>((bits >> 52) & 0x7FFU);
    const std::uint64_t fraction = bits & fraction_mask;
    if (exponent == 0) return {fraction, -1074};
    return {fraction | (fraction_mask + 1), exponent - 1075};
}

// n 2^-shift, rounded to a whole number, ties to even: what the shift drops carries into the whole
// number where it is above one half, and where it is one half and the whole number is odd. Below
// 2^(bits - 1) the sum has room.
template <typename Unsigned>
Unsigned rounded_shift(Unsigned n, int shift) {
    const Unsigned half = Unsigned{1} << (shift - 1);
    const Unsigned odd = (n >> shift) & 1;
    return (n + (half - 1) + odd) >> shift;
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
    // n has at most 117 bits: from 120 on every shift leaves less than one half of it.
    const uint128 whole = rounded_shift(n, std::min(shift, 120));
    if (whole >= limit) return std::nullopt;
    return static_cast<std::uint64_t>(whole);
}

// Digits behind the point that the short way takes, at most.
constexpr int most_short_digits = 7;

// Below this |value| has at most eight decimals, the last of them under `digits`, before it is rounded.
constexpr std::array<double, most_short_digits + 1> short_values = {1e8, 1e7, 1e6, 1e5,
                                                                    1e4, 1e3, 1e2, 1e1};

// |value| 10^digits, rounded as in whole_of, for a value from 2^-12 up to short_values: there is a k
// from 0 to 35 with |value| = m 2^(k - 64), and the upper half of the product m (10^digits 2^k) is the
// whole number, the lower half what is dropped.
std::uint64_t short_whole_of(std::uint64_t bits, int digits) {
    const int k = static_cast<int>((bits >> 52) & 0x7FFU) - 1011;
    const std::uint64_t m = (bits & fraction_mask) | (fraction_mask + 1);
    const uint128 n = uint128{m} * (powers_of_ten[static_cast<std::size_t>(digits)] << k);
    const auto whole = static_cast<std::uint64_t>(n >> 64);
    const auto dropped = static_cast<std::uint64_t>(n);
    const std::uint64_t half = dropped >> 63;
    const bool is_more_or_odd = ((dropped << 1) | (whole & 1)) != 0;
    return whole + (half & static_cast<std::uint64_t>(is_more_or_odd));
}

// The whole number of a value that the short way takes, or short_limit where it takes another.
std::uint64_t short_whole(double value, int digits) {
    const auto place = static_cast<std::size_t>(digits);
    if (place - 1 >= most_short_digits) return short_limit;
    const double magnitude = std::fabs(value);
    if (magnitude == 0.0) return 0;
    if (!(magnitude >= 0x1p-12 && magnitude < short_values[place])) return short_limit;
    return short_whole_of(std::bit_cast<std::uint64_t>(value), digits);
}

// The way of decimals of at most eight digits: sixteen characters are put together in registers.
std::size_t edit_short(char* to, std::uint64_t whole, int width, int digits, bool is_negative) {
    const std::uint64_t decimal = eight_digits(whole);
    const int zeros = std::min(zeros_in_front(decimal), 7 - digits); // one stays before the point
    const std::uint64_t characters = digit_characters(decimal, zeros);
    // The last eight of the sixteen: the digits but the first, and the point among them; the first
    // digit is the last of the eight before.
    const int point = 8 * (7 - digits); // bits below it
    const std::uint64_t before_point = (std::uint64_t{1} << point) - 1;
    const std::uint64_t last = (characters >> 8 & before_point) | std::uint64_t{'.'} << point |
                               (characters & ~before_point << 8);
    const std::uint64_t first = 0x0020'2020'2020'2020 | characters << 56;
    int blanks = 7 + zeros;
    uint128 field = uint128{last} << 64 | first;
    if (is_negative) field = with_minus(field, blanks--);
    return put_field(to, field, blanks, width);
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

std::size_t edit_long(char* to, std::uint64_t whole, int width, int digits, bool is_negative) {
    const int columns = std::max(columns_of(whole, digits, is_negative), width);
    put_blanks(to);
    put_decimal_before(to + columns, whole, digits, is_negative);
    return static_cast<std::size_t>(columns);
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

// The way of values and digits that are too large for the whole number.
std::size_t edit_large(char* to, double value, int width, int digits) {
    std::array<char, longest_text> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::fixed, digits);
    if (end.ec != std::errc()) return asterisks(to, width);
    return justified(to, {text.data(), static_cast<std::size_t>(end.ptr - text.data())}, width);
}

std::size_t edit_infinity_or_nan(char* to, double value, int width) {
    const std::string_view name = std::isnan(value) ? "-nan" : "-inf";
    return justified(to, name.substr(std::signbit(value) ? 0 : 1), width);
}

// Any value that the short way does not take. Apart, so that the short way has no need of the room.
[[gnu::noinline]] std::size_t edit_other(char* to, double value, int width, int digits) {
    if (!std::isfinite(value)) return edit_infinity_or_nan(to, value, width);
    const auto whole = whole_of(value, digits);
    if (!whole) return edit_large(to, value, width, digits);
    return edit_long(to, *whole, width, digits, std::signbit(value));
}

} // namespace

std::size_t edit_fixed(char* to, double value, int width, int digits) {
    if (width > static_cast<int>(longest_text)) return asterisks(to, width);
    const std::uint64_t whole = short_whole(value, digits);
    if (whole < short_limit) return edit_short(to, whole, width, digits, std::signbit(value));
    return edit_other(to, value, width, digits);
}

} // namespace korvat::fortran
