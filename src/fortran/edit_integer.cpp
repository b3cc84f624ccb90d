#include "fortran/edit_integer.hpp"

#include "fortran/digits.hpp"

#include <algorithm>
#include <cstdlib>

namespace korvat::fortran {

std::size_t edit_integer(char* to, int value, int width, int digits) {
    const auto magnitude = static_cast<std::uint64_t>(std::abs(std::int64_t{value}));
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
