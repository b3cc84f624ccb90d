// Record files on disk.
#pragma once

#include "output/record_file.hpp"

#include <string>

namespace korvat {

// Creates the stream of a record file on disk and opens the record file on it. Raises
// std::system_error when the file cannot be opened.
[[nodiscard]] RecordFile open_record_file(const std::string& file_name);

} // namespace korvat
