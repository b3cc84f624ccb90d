// Scripts that let a shell complete commands and options.
#pragma once

#include "cli/command_table.hpp"

#include <string>
#include <vector>

namespace korvat::cli {

[[nodiscard]] std::string bash_completion(const std::vector<CommandEntry>& table);
[[nodiscard]] std::string zsh_completion(const std::vector<CommandEntry>& table);
[[nodiscard]] std::string fish_completion(const std::vector<CommandEntry>& table);

} // namespace korvat::cli
