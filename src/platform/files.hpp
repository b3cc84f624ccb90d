// Files and directories by name.
#pragma once

#include <string>
#include <vector>

namespace korvat::platform {

// Removes a file; false when there is none or it cannot be removed.
bool remove_file(const std::string& name);

// Gives a file another name. 0, or the system's error number (errno).
int rename_file(const std::string& from, const std::string& to);

// Whether there is a file of this name.
[[nodiscard]] bool file_exists(const std::string& name);

// The system's text for an error number (errno).
[[nodiscard]] std::string error_text(int error);

// The names of the entries of a directory, in no particular order. Raises std::runtime_error with
// the text "Error While Accessing :" followed by the path when it cannot be read.
[[nodiscard]] std::vector<std::string> directory_entries(const std::string& path);

} // namespace korvat::platform
