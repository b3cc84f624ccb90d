// Paths from and to the text that the program reads and shows.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace korvat::platform {

// The file or directory of this name. A name is UTF-8 on Windows; elsewhere its bytes are the path.
[[nodiscard]] std::filesystem::path path_of(std::string_view name);

// The name of a path, the same on every system: with slashes between its parts, also on Windows.
[[nodiscard]] std::string name_of(const std::filesystem::path& path);

} // namespace korvat::platform
