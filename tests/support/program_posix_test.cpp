// Tests of the test support itself: runs of programs and cases (POSIX).
#include "case.hpp"
#include "program.hpp"
#include "scratch_directory.hpp"
#include "text.hpp"

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

class OneCase : public testing::Test {
protected:
    OneCase() {
        std::filesystem::create_directories(folder / "expected");
        write_whole_file(folder / "KORVAT.INP", "deck\n");
    }
    void expect(const std::string& name, std::string_view content) const {
        write_whole_file(folder / "expected" / name, content);
    }
    // Runs the commands instead of the program.
    std::vector<std::string> differences(const std::string& commands) const {
        return run_case(script(directory, commands), folder).differences;
    }

    const ScratchDirectory directory;
    const std::filesystem::path folder = directory.path() / "some-case";
};

using Differences = std::vector<std::string>;

TEST_F(OneCase, ComparesTheRunAndEveryFile) {
    const std::string commands = "cp KORVAT.INP PILEPLOT.TXT; echo why >&2; exit 2\n";
    expect("run", "exit code 2\nKORVAT.INP\nPILEPLOT.TXT\n");
    expect("PILEPLOT.TXT", "deck\n");
    expect("standard-error", "why\n");
    EXPECT_EQ(case_folders(directory.path()), (std::vector<std::filesystem::path>{folder}));
    EXPECT_EQ(differences(commands), Differences{});
    expect("run", "exit code 0\nKORVAT.INP\n");
    expect("PILEPLOT.TXT", "deck \n");
    expect("PILE.07", "K\x82\x82");
    expect("standard-error", "Why\n");
    EXPECT_EQ(differences(commands),
              (Differences{"run:\n--- expected\n+++ found\n@@ -1,2 +1,3 @@\n-exit code 0\n"
                           "+exit code 2\n KORVAT.INP\n+PILEPLOT.TXT",
                           "standard error:\n--- expected\n+++ found\n@@ -1,1 +1,1 @@\n-Why\n+why",
                           "PILE.07 was not written",
                           "PILEPLOT.TXT:\n--- expected\n+++ found\n@@ -1,1 +1,1 @@\n"
                           "-deck\xC2\xB7\n+deck"}));
}

TEST_F(OneCase, TellsWhichFilesAreEmpty) {
    write_whole_file(folder / "directories", "PILEPLOT.TXT\n");
    const std::string commands = ": >KORVAT.LIS; printf 'K\\202' >PILE.07; printf K >LOAD.09\n";
    const std::string right = "exit code 0\nKORVAT.INP\nKORVAT.LIS empty\nLOAD.09\n"
                              "PILE.07 no records\nPILEPLOT.TXT directory\n";
    expect("run", right);
    EXPECT_EQ(differences(commands), Differences{});
    for (const std::string word : {" empty", " no records", " directory"}) {
        expect("run", with_change(right, word, ""));
        EXPECT_EQ(differences(commands).size(), 1U) << word;
    }
    expect("run", with_change(right, "LOAD.09", "LOAD.09 no records"));
    EXPECT_EQ(differences(commands).size(), 1U);
}

TEST_F(OneCase, SaysByAWordWhatAWordCanSay) {
    const std::string commands = ": >KORVAT.LIS; printf 'K\\202' >PILE.07\n";
    expect("run", "exit code 0\nKORVAT.INP\nKORVAT.LIS empty\nPILE.07 no records\n");
    expect("KORVAT.LIS", "");
    expect("PILE.07", "K\x82");
    expect("standard-error", "");
    const std::string says = " says no more than a word in expected/run would";
    EXPECT_EQ(differences(commands),
              (Differences{"expected/KORVAT.LIS" + says, "expected/PILE.07" + says,
                           "expected/standard-error" + says}));
}

TEST_F(OneCase, NeedsAnExitCode) {
    for (const std::string text : {"", "KORVAT.INP\n", "exit code\nKORVAT.INP\n", "exit 0\n"}) {
        expect("run", text);
        EXPECT_THROW(expected_exit_code(folder), std::runtime_error) << text;
    }
    expect("run", "exit code 255\nKORVAT.INP\n");
    EXPECT_EQ(expected_exit_code(folder), 255);
    std::filesystem::remove(folder / "expected" / "run");
    EXPECT_THROW(expected_exit_code(folder), std::runtime_error);
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

TEST_F(OneCase, ComparesTheStandardStreams) {
    const std::string commands = "ls; echo why >&2; exit $(cat KORVAT.INP)\n";
    write_whole_file(folder / "KORVAT.INP", "1");
    write_whole_file(folder / "directories", "LOAD.09/below\n");
    expect("run", "exit code 1\nKORVAT.INP\nLOAD.09 directory\n");
    expect("standard-output", "KORVAT.INP\nLOAD.09\n");
    const std::string surplus = "standard error:\n--- expected\n+++ found\n@@ -0,0 +1,1 @@\n+why";
    EXPECT_EQ(differences(commands),
              (Differences{"the case has no expected standard error", surplus}));
    expect("standard-error", "why\n");
    EXPECT_EQ(differences(commands), Differences{});
    // A run that succeeds says nothing, unless the case tells what.
    write_whole_file(folder / "KORVAT.INP", "0");
    expect("run", "exit code 0\nKORVAT.INP\nLOAD.09 directory\n");
    EXPECT_EQ(differences(commands), Differences{});
    std::filesystem::remove(folder / "expected" / "standard-error");
    EXPECT_EQ(differences(commands), Differences{surplus});
    expect("standard-error", "why\n");
    std::filesystem::remove(folder / "expected" / "standard-output");
    EXPECT_EQ(differences(commands),
              Differences{"standard output:\n--- expected\n+++ found\n@@ -0,0 +1,2 @@\n"
                          "+KORVAT.INP\n+LOAD.09"});
}

} // namespace
} // namespace korvat::test
