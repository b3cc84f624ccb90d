// The runtime's STOP: ends the run from anywhere, as an exception that only the entry catches.
#pragma once

namespace korvat::fortran {

// Raises the runtime's stop (a std::exception). No closing steps follow: the entry destroys what
// the run built and the process ends with -1.
[[noreturn]] void stop();

} // namespace korvat::fortran
