// What a run tells on standard error at its end.
#pragma once

#include "model/store/report.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace korvat {

// Lines for standard error after a run that failed: its first error with the line of the deck it is
// about, a caret under the value at fault, and where to read on; then every output that could not be
// written. `exception` is the text of what escaped the run; it appears when there is nothing else to
// report. The deck is read once more from the current directory; where that fails, its line is left
// out.
[[nodiscard]] std::string failure_report(const Report& run,
                                         const std::vector<fortran::WriteFault>& lost,
                                         std::string_view exception);

// Lines for standard error after a run that succeeded: its warnings, each with the number of its line
// in the deck, and what has been lost of a log on standard output. Nothing after a clean run.
[[nodiscard]] std::string warning_report(const Report& run,
                                         const std::vector<fortran::WriteFault>& lost);

// The line that tells a user who gave arguments that they are not used; nothing without any. The
// runtime's own option is none.
[[nodiscard]] std::string argument_warning(int argc, const char* const* argv);

} // namespace korvat
