// The commands of korvat-tools. Each adds itself to the program with its options and help; when it is
// chosen, it stores the exit code of the program.
#pragma once

#include <CLI/CLI.hpp>

namespace korvat::cli {

namespace exit_code {
inline constexpr int fine = 0;
inline constexpr int found = 1; // the deck has errors, the comparison differences, a file damage
inline constexpr int wrong_use = 2; // of the command line, or a file that cannot be read
} // namespace exit_code

void add_batch(CLI::App& program, int& code);
void add_check(CLI::App& program, int& code);
void add_completion(CLI::App& program, int& code);
void add_diff(CLI::App& program, int& code);
void add_dump(CLI::App& program, int& code);
void add_export(CLI::App& program, int& code);
void add_help(CLI::App& program, int& code);
void add_merge(CLI::App& program, int& code);
void add_report(CLI::App& program, int& code);
void add_sweep(CLI::App& program, int& code);

} // namespace korvat::cli
