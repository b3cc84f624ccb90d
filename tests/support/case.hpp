// Runs a case folder, a deck with what its run must leave behind, and compares.
#pragma once

#include "scratch_directory.hpp"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace korvat::test {

struct CaseResult {
    int exit_code = 0;
    std::vector<std::string> outputs;         // names in the run directory, sorted
    std::map<std::string, std::string> files; // their content, as written
    std::string standard_output;
    std::string standard_error;
    // Each tells one thing that is not as expected; empty when the run is right.
    std::vector<std::string> differences;
};

// The folders below the directory that hold a folder named expected, sorted; none when there is no
// such directory. A case with a file named fault asks for a fault of the machine, "CALL N ERROR
// SIZE": the N-th call of a kind fails with an error, streams having buffers of SIZE bytes. These
// stand in a list of their own.
std::vector<std::filesystem::path> case_folders(const std::filesystem::path& directory);
std::vector<std::filesystem::path> fault_case_folders(const std::filesystem::path& directory);

// Runs the program in a fresh directory that holds the deck and nothing else. Without a deck the
// directory is empty.
CaseResult run_deck(const std::filesystem::path& program, const std::string* deck);

// Puts the deck of a case, if it has one, and the directories that its file "directories" names into
// the directory of a run.
void lay_out_case(const std::filesystem::path& case_dir, const ScratchDirectory& directory);

// A run in the form of a case's file expected/run: a line "exit code N", then a line for each name in
// the directory. A word follows the name of what needs no expected file: "empty", "no records" (of a
// record file), "directory".
std::string described_run(const CaseResult& run);

// Adds to the differences of a run what is not as the case's folder "expected" tells.
void compare_with_case(const std::filesystem::path& case_dir, CaseResult& result);

// Runs the program on a case, and compares.
CaseResult run_case(const std::filesystem::path& program, const std::filesystem::path& case_dir);

int expected_exit_code(const std::filesystem::path& case_dir);

} // namespace korvat::test
