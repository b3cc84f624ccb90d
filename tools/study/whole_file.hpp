// Files that are read and written as a whole.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace korvat::study {

// The bytes of a file; none where there is none or it cannot be read.
[[nodiscard]] std::optional<std::string> file_bytes(const std::filesystem::path& path);

// Writes a file under another name and gives it its own then, so that nobody sees a part of it; leaves one
// that has these bytes as it is. Whether it was written. Raises std::system_error where the disk does not
// take it.
bool replace_file(const std::filesystem::path& path, std::string_view bytes);

} // namespace korvat::study
