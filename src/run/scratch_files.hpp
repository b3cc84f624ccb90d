// The runtime's scratch files, removed at the end of a run.
#pragma once

#include <string>

namespace korvat {

// Removes every entry of the directory whose name begins with "fem_io". When the directory cannot
// be read, tells so on standard error and returns normally.
void remove_scratch_files(const std::string& directory = ".");

} // namespace korvat
