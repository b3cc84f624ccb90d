// The command line of korvat-tools: all commands on one program.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>

namespace korvat::cli {

// The program with its commands; the one that a command line chooses stores its exit code.
[[nodiscard]] std::unique_ptr<CLI::App> make_program(int& code);

} // namespace korvat::cli
