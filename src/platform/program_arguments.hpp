// The arguments with which the program was called.
#pragma once

#include <string>
#include <vector>

namespace korvat::platform {

// The arguments in UTF-8, the program's own name first; given what the entry of the program was given.
// Windows hands that over in a code page without most letters, so they are taken from its wide command
// line there. What is no valid text in it becomes the replacement character.
[[nodiscard]] std::vector<std::string> program_arguments(int argc, const char* const* argv);

} // namespace korvat::platform
