// The one place that includes the Fortran-emulation runtime; only files of src/fortran include it.
#pragma once

#include <fem.hpp>

#include <fem/read.hpp>
#include <fem/write.hpp>
