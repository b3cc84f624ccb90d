// Puts a report on the disk.
#pragma once

#include <filesystem>
#include <string_view>

namespace korvat::report {

// Writes a file whole or not at all: it is written beside its place and takes the place of an older one at
// the end. What is no plain file, such as a device or a pipe, is written as it is. Raises
// std::system_error, with the system's reason, when it cannot be written; nothing is left then.
void write_file(const std::filesystem::path& path, std::string_view content);

} // namespace korvat::report
