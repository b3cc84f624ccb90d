// The whole run behind every program entry.
#pragma once

namespace korvat {

// Shows the taskbar button, runs the driver on a fresh store in the current directory and returns
// the exit code: IERR of the run, 1 when the button cannot be registered (no file is touched then),
// -1 when an exception escapes. The arguments go to the runtime and are otherwise ignored.
[[nodiscard]] int run_program(int argc, const char* const* argv);

} // namespace korvat
