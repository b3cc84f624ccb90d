// The one place that includes the Fortran-emulation runtime; only files of src/fortran include it.
#pragma once

#include <cstdint>

// The runtime takes long for an integer of 64 bits, which it is not on Windows: it would lose digits
// of every number. Its guard keeps its own types out, and these, right everywhere, take their place.
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
