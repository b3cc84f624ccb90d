// Manual pages.
#pragma once

#include "cli/command_table.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace korvat::cli {

// The manual page, in roff, of an entry of the table: korvat-tools(1) or korvat-tools-COMMAND(1).
[[nodiscard]] std::string man_page(const std::vector<CommandEntry>& table,
                                   const CommandEntry& entry, std::string_view version);

} // namespace korvat::cli
