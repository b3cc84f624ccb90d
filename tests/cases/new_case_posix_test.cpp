// scripts/new-case, in a tree of its own: what it lays out, when that passes, and what it refuses (POSIX).
#include "../support/case.hpp"
#include "../support/program.hpp"
#include "../support/scratch_directory.hpp"
#include "../support/text.hpp"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

const std::filesystem::path cases_of_tree = KORVAT_CASES_DIR;
const std::string program = KORVAT_PROGRAM;
const std::string to_be_written = "(to be written: ";

struct Call {
    int exit_code = 0;
    ProgramOutput output;
};

class NewCase : public testing::Test {
protected:
    NewCase() {
        std::filesystem::create_directories(cases);
        std::filesystem::create_directory(tree.path() / "scripts");
        for (const char* const name : {"new-case", "case_folder.py"}) {
            std::filesystem::copy_file(cases_of_tree.parent_path().parent_path() / "scripts" / name,
                                       tree.path() / "scripts" / name);
        }
        for (const char* const name :
             {"run-smallest-deck", "readpi-numpil-above", "run-log-not-opened-on-posix"}) {
            std::filesystem::copy(cases_of_tree / name, cases / name,
                                  std::filesystem::copy_options::recursive);
        }
    }

    Call new_case(const std::string& arguments) const {
        const std::filesystem::path command = tree.path() / "command";
        write_whole_file(command, "#!/bin/sh\nexec scripts/new-case " + arguments + "\n");
        std::filesystem::permissions(command, std::filesystem::perms::owner_all);
        Call call;
        call.exit_code = run_program(command, tree.path(), call.output);
        return call;
    }
    void expect_laid_out(const std::string& arguments) const {
        const Call call = new_case(arguments + " --program '" + program + "'");
        ASSERT_EQ(call.exit_code, 0) << call.output.standard_error;
    }
    void expect_refused(const std::string& arguments, const std::string& reason) const {
        const Call call = new_case(arguments);
        EXPECT_EQ(call.exit_code, 1) << arguments;
        EXPECT_EQ(call.output.standard_error, "scripts/new-case: " + reason + "\n");
    }
    std::string text(const std::string& name) const { return read_whole_file(cases / name); }
    std::vector<std::string> differences(const std::string& name) const {
        return run_case(program, cases / name).differences;
    }
    void take_over(const std::string& file, const std::string& from, const std::string& to) const {
        std::filesystem::copy_file(cases / from / file, cases / to / file,
                                   std::filesystem::copy_options::overwrite_existing);
    }
    std::vector<std::string> names(const std::string& folder) const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(cases / folder))
            found.push_back(entry.path().filename().string());
        std::sort(found.begin(), found.end());
        return found;
    }

    const ScratchDirectory tree;
    const std::filesystem::path cases = tree.path() / "tests" / "cases";
};

using Names = std::vector<std::string>;

TEST_F(NewCase, FailsUntilItsLogIsWritten) {
    expect_laid_out("save-other");
    EXPECT_EQ(names("save-other"), (Names{"KORVAT.INP", "about.txt", "expected"}));
    EXPECT_EQ(names("save-other/expected"), (Names{"KORVAT.MLG", "run"}));
    EXPECT_EQ(text("save-other/KORVAT.INP"), text("run-smallest-deck/KORVAT.INP"));
    EXPECT_EQ(text("save-other/about.txt"),
              to_be_written + "what the case shows, and how you found the expectation)\n");
    EXPECT_EQ(text("save-other/expected/run"),
              "exit code 0\nKORVAT.INP\nKORVAT.LIS\nKORVAT.MLG\nPILE.07\nPILEPLOT.TXT\n");
    EXPECT_EQ(
        text("save-other/expected/KORVAT.MLG"),
        "\n THIS RUN WAS STARTED :  DD-MMM-YYYY  AT  HH:MM:SS HOURS\n(identification page)\n\n"
        " +++++ START PROGRAM KORVAT   VERSION =  7.6.0.81  DD-Mon-YYYY\n" +
            to_be_written + "the rest of the log)\n");
    const std::vector<std::string> found = differences("save-other");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_TRUE(found[0].starts_with("KORVAT.MLG:\n")) << found[0];

    take_over("expected/KORVAT.MLG", "run-smallest-deck", "save-other");
    EXPECT_EQ(differences("save-other"), Names{});
}

TEST_F(NewCase, FailsUntilTheReportIsWritten) {
    expect_laid_out("readpi-numpil-2.5 --from readpi-numpil-above");
    const std::string name = "readpi-numpil-2.5";
    EXPECT_EQ(names(name + "/expected"), (Names{"KORVAT.MLG", "run", "standard-error"}));
    EXPECT_EQ(text(name + "/KORVAT.INP"), text("readpi-numpil-above/KORVAT.INP"));
    EXPECT_EQ(text(name + "/expected/run"),
              "exit code 1\nKORVAT.INP\nKORVAT.LIS empty\nKORVAT.MLG\n"
              "PILE.07 no records\nPILEPLOT.TXT empty\n");
    EXPECT_EQ(text(name + "/expected/standard-error"),
              to_be_written + "what the program says, line by line)\n");
    take_over("expected/KORVAT.MLG", "readpi-numpil-above", name);
    const std::vector<std::string> found = differences(name);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_TRUE(found[0].starts_with("standard error:\n")) << found[0];
    take_over("expected/standard-error", "readpi-numpil-above", name);
    EXPECT_EQ(differences(name), Names{});
}

TEST_F(NewCase, TakesADeckOfItsAuthor) {
    write_whole_file(tree.path() / "deck",
                     with_change(text("readpi-numpil-above/KORVAT.INP"), "201", "200"));
    expect_laid_out("mine --deck deck");
    EXPECT_EQ(text("mine/KORVAT.INP"), read_whole_file(tree.path() / "deck"));
    EXPECT_TRUE(
        text("mine/expected/run").starts_with("exit code 1\n")); // 200 piles, one of them given
    expect_refused("other --deck none --program '" + program + "'", "there is no file none");
}

TEST_F(NewCase, TakesOverWhatStandsInTheWay) {
    expect_laid_out("run-log-elsewhere --from run-log-not-opened-on-posix");
    EXPECT_EQ(names("run-log-elsewhere"),
              (Names{"KORVAT.INP", "about.txt", "directories", "expected"}));
    EXPECT_EQ(names("run-log-elsewhere/expected"),
              (Names{"run", "standard-error", "standard-output"}));
    EXPECT_EQ(text("run-log-elsewhere/expected/run"),
              text("run-log-not-opened-on-posix/expected/run"));
}

TEST_F(NewCase, RefusesWhatMakesNoCase) {
    const std::string deck = text("run-smallest-deck/KORVAT.INP");
    const Names before = names(".");
    const std::string option = " --program '" + program + "'";
    expect_refused("run-smallest-deck --from readpi-numpil-above" + option,
                   "tests/cases/run-smallest-deck exists already");
    for (const std::string name :
         {"Upper", "under_line", "a--b", "a-", "../up", "a/b", ".", "''", "'a b'"}) {
        const std::string plain = name.starts_with('\'') ? name.substr(1, name.size() - 2) : name;
        expect_refused(name + option,
                       plain + ": a name has lower-case letters and digits, joined by - or .");
    }
    expect_refused("other --from none" + option, "none is not a case with a deck");
    expect_refused(
        "other --program none",
        "there is no program none; build it with scripts/run, or name one with --program");
    EXPECT_EQ(names("."), before);
    EXPECT_EQ(text("run-smallest-deck/KORVAT.INP"), deck);
}

} // namespace
} // namespace korvat::test
