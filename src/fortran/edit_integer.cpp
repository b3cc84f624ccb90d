#include "fortran/edit_integer.hpp"

#include "fortran/digits.hpp"

#include <cstdlib>

namespace korvat::fortran {

std::size_t edit_integer(char* to, int value, int width, int digits) {
    char text[80];
    char* const end = text + sizeof text;
    const auto magnitude = static_cast<std::uint64_t>(std::abs(std::int64_t{value}));
    char* begin = put_digits_before(end, magnitude, digits);
    if (value < 0) *--begin = '-';
    while (end - begin < width) {
        *--begin = ' ';
    }
    const auto size = static_cast<std::size_t>(end - begin);
    std::memcpy(to, begin, size);
    return size;
}

} // namespace korvat::fortran
