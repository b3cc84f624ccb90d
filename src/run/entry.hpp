// The whole run behind every program entry.
#pragma once

#include <string>

namespace korvat {

struct RunEnd {
    int exit_code = 0;
    bool out_of_memory = false; // the run or its report; there may be no report then
    std::string report{};       // lines for standard error; empty after a clean run
};

// Shows the taskbar button, runs the driver on a fresh store in the current directory and tells how
// it ended. The exit code is IERR of the run, 1 when the button cannot be registered (no file is
// touched then), -1 when an exception escapes, or when IERR is 0 and an output could not be written
// whole. The arguments go to the runtime and are otherwise not used.
[[nodiscard]] RunEnd run_program(int argc, const char* const* argv);

} // namespace korvat
