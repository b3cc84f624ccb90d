// Tests of the test support itself: runs of programs and cases (POSIX).
#include "case.hpp"
#include "program.hpp"
#include "scratch_directory.hpp"

#include <gtest/gtest.h>
#include <stdexcept>

namespace korvat::test {
namespace {

std::filesystem::path script(const ScratchDirectory& directory, const std::string& commands) {
    directory.write_file("program", "#!/bin/sh\n" + commands);
    std::filesystem::permissions(directory.path() / "program", std::filesystem::perms::owner_all);
    return directory.path() / "program";
}

TEST(SupportProgram, ReportsCodesAndStreams) {
    const ScratchDirectory directory;
    ProgramOutput output;
    const auto run = [&](const std::string& commands) {
        return run_program(script(directory, commands), directory.path(), output);
    };
    EXPECT_EQ(run("echo out; echo err >&2; touch made; exit 255\n"), 255);
    EXPECT_EQ(output.standard_output, "out\n");
    EXPECT_EQ(output.standard_error, "err\n");
    EXPECT_TRUE(directory.has("made"));
    EXPECT_EQ(run("kill -KILL $$\n"), 137);
    EXPECT_EQ(run("exit 0\n"), 0);
    EXPECT_THROW(run_program(directory.path() / "none", directory.path(), output),
                 std::runtime_error);
}

TEST(SupportCase, RunsAFolder) {
    const ScratchDirectory directory;
    const auto program = script(directory, "cp KORVAT.INP PILEPLOT.TXT; echo why >&2; exit 2\n");
    const std::filesystem::path folder = directory.path() / "some-case";
    std::filesystem::create_directories(folder / "expected");
    write_whole_file(folder / "KORVAT.INP", "deck\n");
    write_whole_file(folder / "expected" / "exit-code", "2\n");
    write_whole_file(folder / "expected" / "outputs", "KORVAT.INP\nPILEPLOT.TXT\n");
    write_whole_file(folder / "expected" / "PILEPLOT.TXT", "deck\n");
    write_whole_file(folder / "expected" / "standard-error", "why\n");
    EXPECT_EQ(case_folders(directory.path()), (std::vector<std::filesystem::path>{folder}));
    EXPECT_TRUE(run_case(program, folder).differences.empty());
    write_whole_file(folder / "expected" / "exit-code", "0\n");
    write_whole_file(folder / "expected" / "outputs", "KORVAT.INP\n");
    write_whole_file(folder / "expected" / "PILEPLOT.TXT", "deck \n");
    write_whole_file(folder / "expected" / "PILE.07", "K\x82");
    EXPECT_EQ(run_case(program, folder).differences.size(), 5U); // with what standard error was
}

TEST(SupportCase, FaultsOfTheMachineStandApart) {
    const ScratchDirectory directory;
    const std::filesystem::path plain = directory.path() / "a";
    const std::filesystem::path faulty = directory.path() / "b";
    std::filesystem::create_directories(plain / "expected");
    std::filesystem::create_directories(faulty / "expected");
    write_whole_file(faulty / "fault", "read 1 EIO 64\n");
    std::filesystem::create_directories(directory.path() / "no-case");
    EXPECT_EQ(case_folders(directory.path()), (std::vector<std::filesystem::path>{plain}));
    EXPECT_EQ(fault_case_folders(directory.path()), (std::vector<std::filesystem::path>{faulty}));
}

std::string first_difference(const std::filesystem::path& program,
                             const std::filesystem::path& folder) {
    const CaseResult run = run_case(program, folder);
    return run.differences.empty() ? "" : run.differences.front();
}

TEST(SupportCase, ComparesTheStandardStreams) {
    const ScratchDirectory directory;
    const auto program = script(directory, "ls; echo why >&2; exit $(cat KORVAT.INP)\n");
    const std::filesystem::path folder = directory.path() / "some-case";
    std::filesystem::create_directories(folder / "expected");
    write_whole_file(folder / "KORVAT.INP", "1");
    write_whole_file(folder / "directories", "LOAD.09/below\n");
    write_whole_file(folder / "expected" / "exit-code", "1\n");
    write_whole_file(folder / "expected" / "outputs", "KORVAT.INP\nLOAD.09\n");
    write_whole_file(folder / "expected" / "standard-output", "KORVAT.INP\nLOAD.09\n");
    EXPECT_EQ(first_difference(program, folder), "the case has no expected standard error");
    write_whole_file(folder / "expected" / "standard-error", "why\n");
    EXPECT_EQ(first_difference(program, folder), "");
    // A run that succeeds says nothing, unless the case tells what.
    write_whole_file(folder / "KORVAT.INP", "0");
    write_whole_file(folder / "expected" / "exit-code", "0\n");
    EXPECT_EQ(first_difference(program, folder), "");
    std::filesystem::remove(folder / "expected" / "standard-error");
    EXPECT_EQ(first_difference(program, folder),
              "standard error, line 1\n  found    [why]\n  expected (no such line)");
    write_whole_file(folder / "expected" / "standard-error", "why\n");
    std::filesystem::remove(folder / "expected" / "standard-output");
    EXPECT_EQ(first_difference(program, folder).substr(0, 15), "standard output");
}

} // namespace
} // namespace korvat::test
