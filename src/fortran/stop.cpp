// The runtime's STOP: ends the run from anywhere, as an exception that only the entry catches.
#include "fortran/stop.hpp"

#include "fortran/fem_runtime.hpp"

namespace korvat::fortran {

void stop() {
    FEM_STOP(0);
}

} // namespace korvat::fortran
