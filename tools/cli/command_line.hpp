// A whole call of korvat-tools, from its arguments to its exit code.
#pragma once

namespace korvat::cli {

// Carries out the command that the arguments name. Wrong use is told on standard error, with the nearest
// name where one was misspelt.
[[nodiscard]] int run_command_line(int argc, const char* const* argv);

} // namespace korvat::cli
