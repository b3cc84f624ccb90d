// Signals that the system sends where a write fails.
#pragma once

namespace korvat::platform {

// From now on a write to a pipe that nobody reads, or beyond the limit of a file's size, fails with
// an error instead of ending the process.
void take_write_signals_as_errors();

} // namespace korvat::platform
