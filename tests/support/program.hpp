// Runs a program in a directory and keeps what it wrote to its standard streams.
#pragma once

#include <filesystem>
#include <string>

namespace korvat::test {

struct ProgramOutput {
    std::string standard_output;
    std::string standard_error;
};

// The exit code as the shell shows it: 0 to 255, or 128 + the number of the signal that ended the
// program; on Windows a negative number when the program died. The program gets no arguments, and an
// empty standard input. Throws std::runtime_error when it cannot be started.
int run_program(const std::filesystem::path& program, const std::filesystem::path& directory,
                ProgramOutput& output);

} // namespace korvat::test
