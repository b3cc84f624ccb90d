// What a failed run tells on standard error.
#pragma once

#include "model/store/report.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace korvat {

// Lines for standard error: the run's first error with the line of the deck it is about, a caret
// under the value at fault, and where to read on; then every output that could not be written.
// `exception` is what escaped the run; it is told when there is nothing else to tell. The deck is
// read once more from the current directory; where that fails its line is left out.
[[nodiscard]] std::string run_report(const Report& run,
                                     const std::vector<fortran::WriteFault>& lost,
                                     std::string_view exception);

} // namespace korvat
