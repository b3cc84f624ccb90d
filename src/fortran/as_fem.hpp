// Texts on their way into the runtime.
#pragma once

#include "fortran/fem_runtime.hpp"

#include <string_view>

namespace korvat::fortran {

[[nodiscard]] inline fem::str_cref as_fem(std::string_view text) {
    return {text.data(), static_cast<int>(text.size())};
}

} // namespace korvat::fortran
