// The records of a file, one by one, with their places and items.
#pragma once

#include "group/read_files.hpp"
#include "group/records.hpp"

#include <optional>
#include <string>

namespace korvat::cli {

// For each record its number, offset, bytes of data and what it holds by its place among the records of such a
// file; then its items. From the first record that is not as it must be there, and in a file of unknown
// kind, the bytes are shown.
[[nodiscard]] std::string records_text(const group::Records& records,
                                       std::optional<group::FileKind> kind);

} // namespace korvat::cli
