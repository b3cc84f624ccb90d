#include "fortran/edit_exponent.hpp"

#include "fortran/fem_runtime.hpp"

#include <cmath>
#include <cstring>

namespace korvat::fortran {

std::size_t edit_exponent(char* to, double value, int width, int digits, int scale) {
    const auto columns = static_cast<std::size_t>(width);
    if (!std::isfinite(value)) { // the runtime would write outside its buffer
        std::memset(to, '*', columns);
        return columns;
    }
    const fem::utils::double_to_string_scientific_notation edited(value, width, digits, scale, 'E');
    std::memcpy(to, edited.buffer, columns);
    return columns;
}

} // namespace korvat::fortran
