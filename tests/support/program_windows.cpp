// Runs a program in a directory and keeps what it wrote to its standard streams (Windows).
#include "process_windows.hpp"
#include "program.hpp"
#include "scratch_directory.hpp"

namespace korvat::test {

int run_program(const std::filesystem::path& program, const std::filesystem::path& directory,
                ProgramOutput& output) {
    const ScratchDirectory streams;
    const Process process(program, directory, streams.path() / "standard-output",
                          streams.path() / "standard-error");
    const DWORD code = process.exit_code();
    output.standard_output = streams.read_file("standard-output");
    output.standard_error = streams.read_file("standard-error");
    // A shell shows the code -1 as 255. The code of a program that died, 0xC0000000 or more, stays
    // as it is: no program of ours ends with it.
    constexpr DWORD minus_one = 0xFFFFFFFF;
    return code == minus_one ? 255 : static_cast<int>(code);
}

} // namespace korvat::test
