// Shows a file to the user with the program that the system has for it.
#pragma once

#include <string>

namespace korvat::platform {

// Opens a file, by its absolute path. False when the system has no program for it or this one fails.
// Returns when that program has begun, or where the system has it so, when it ends.
[[nodiscard]] bool open_file(const std::string& path);

} // namespace korvat::platform
