#include "fortran/edit_integer.hpp"

#include "fortran/digits.hpp"

#include <algorithm>
#include <cstdlib>

namespace korvat::fortran {
namespace {

// The way of at most eight digits, put together in a register.
std::size_t edit_short(char* to, std::uint64_t magnitude, int width, int digits, bool is_negative) {
    const std::uint64_t decimal = eight_digits(magnitude);
    const int zeros = std::min(zeros_in_front(decimal), short_digits - digits);
    int blanks = short_columns - short_digits + zeros;
    uint128 field = uint128{digit_characters(decimal, zeros)} << 64 | 0x2020'2020'2020'2020;
    if (is_negative) field = with_minus(field, blanks--);
    return put_field(to, field, blanks, width);
}

} // namespace

std::size_t edit_integer(char* to, int value, int width, int digits) {
    const auto magnitude = static_cast<std::uint64_t>(std::abs(std::int64_t{value}));
    if (magnitude < short_limit && digits >= 1 && digits <= short_digits) {
        return edit_short(to, magnitude, width, digits, value < 0);
    }
    const int figures = std::max(digits_of(magnitude), digits) + (value < 0 ? 1 : 0);
    const int columns = std::max(figures, width);
    put_blanks(to);
    char* begin = put_digits_before(to + columns, magnitude);
    const auto zeros = std::max<std::ptrdiff_t>(digits - (to + columns - begin), 0);
    if (zeros > 0) {
        begin -= zeros;
        std::memset(begin, '0', static_cast<std::size_t>(zeros));
    }
    if (value < 0) *--begin = '-';
    return static_cast<std::size_t>(columns);
}

} // namespace korvat::fortran
