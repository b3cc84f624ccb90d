// The one place that includes the Fortran-emulation runtime; only files of src/fortran include it.
#pragma once

#include <cstdint>

// The runtime defines its 64-bit integer as long, which has 32 bits on Windows: every number would
// lose digits there. Defining the guard of that header skips it; the types below replace its own.
#define FEM_UTILS_INT_TYPES_HPP
namespace fem::utils {
using std::int16_t;
using std::int32_t;
using std::int64_t;
using std::int8_t;
} // namespace fem::utils

#include <fem.hpp>

#include <fem/read.hpp>
#include <fem/write.hpp>
