// The version of the program, as CMakeLists.txt gives it.
#pragma once

#include <string_view>

namespace korvat {

// Like "7.6.0.81", at most 10 characters.
[[nodiscard]] std::string_view program_version();

} // namespace korvat
