// Runs the program under a fault of the machine, and tells how the run ended.
#pragma once

#include "shim.hpp"

#include <array>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace korvat::test {

// The fault of a run. Without a call the library is not preloaded.
struct Fault {
    std::optional<Call> call{};
    std::uint64_t at = 0; // 0: the calls are counted, none fails
    Action action = Action::fail;
    bool all_after = false;
    int error = 0;
    std::uint32_t buffer_size = 256; // of the blocks that go in or out, in bytes
};

// The surroundings of a run.
struct Surroundings {
    Fault fault{};
    std::filesystem::path standard_output{};     // empty: kept for the outcome
    std::array<bool, 3> closed{};                // of the standard streams, at the start
    std::optional<std::uint64_t> largest_file{}; // limit of the size of a file, in bytes
    bool as_nobody = false;                      // without the rights of root
    std::optional<double> killed_after{};        // seconds after the start
};

constexpr int not_ended = 128 + 14; // the exit code of a run that was ended after ten seconds

struct Outcome {
    int exit_code = 0; // as the shell shows it: 128 + the number of the signal that ended the run
    std::string standard_output;
    std::string standard_error;
    std::array<std::uint64_t, call_kinds> counts{};
    std::uint64_t fired = 0;
    std::uint64_t bytes_written = 0;
    std::vector<std::string> hit;             // names of the files that were hit
    std::map<std::string, std::string> files; // in the directory after the run; empty if it is gone

    std::uint64_t count(Call call) const { return counts[static_cast<std::size_t>(call)]; }
};

// The regular files of a directory by name; none when there is no such directory.
std::map<std::string, std::string> files_in(const std::filesystem::path& directory);

// Throws std::runtime_error when the program cannot be started.
Outcome faulty_run(const std::filesystem::path& directory, const Surroundings& surroundings = {});

} // namespace korvat::test
