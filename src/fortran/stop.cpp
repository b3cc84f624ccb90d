#include "fortran/stop.hpp"

#include "fortran/fem_runtime.hpp"

namespace korvat::fortran {

void stop() {
    FEM_STOP(0);
}

} // namespace korvat::fortran
