// What the commands are given to read: a PILE.07 or LOAD.09 by its content, or the directory of a run.
#pragma once

#include "group/read_files.hpp"

#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace korvat::cli {

// The bytes of a file, or of standard input for `-`. Raises std::system_error when they cannot be read.
[[nodiscard]] std::vector<char> input_bytes(const std::string& name);

// One damage of a file: "NAME: offset 93: REASON".
[[nodiscard]] std::string damage_text(const std::string& name, const group::Damage& damage);

// Why it cannot be read: "NAME: No such file or directory".
[[nodiscard]] std::string unreadable_text(const std::string& name, const std::system_error& error);

// What a file of unknown kind has to be told of: its damage, or that it is neither of the two.
[[nodiscard]] group::Damage unknown_kind(const group::Records& records);

} // namespace korvat::cli
