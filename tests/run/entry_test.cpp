// The entry of the program: its exit codes.
#include "run_fixture.hpp"

#include "run/entry.hpp"
#include "support/text.hpp"

#include <vector>

namespace korvat::test {
namespace {

using Names = std::vector<std::string>;

class Entry : public RunTest {
protected:
    int run_deck(const std::string& deck) {
        directory.write_file("KORVAT.INP", deck);
        return run_program(0, nullptr).exit_code;
    }
};

const std::string deck(small_deck);

TEST_F(Entry, ReturnsZeroAfterACleanRun) {
    EXPECT_EQ(run_deck(deck), 0);
    EXPECT_EQ(log(), std::string(log_start) + "\n Input data is for revision 4 : 2006-06-11\n \n" +
                         input_read("One pile") +
                         " +++++ PILE GEOMETRY VALUES COMPUTED\n"
                         " +++++ TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED\n"
                         " +++++ NO LOAD VECTOR WAS GIVEN\n"
                         " \n" +
                         normal_exit());
    EXPECT_EQ(directory.list(),
              (Names{"KORVAT.INP", "KORVAT.LIS", "KORVAT.MLG", "PILE.07", "PILEPLOT.TXT"}));
}

TEST_F(Entry, ReturnsTheCodeOfAFailedOpen) {
    EXPECT_EQ(run_program(0, nullptr).exit_code, 1);
    EXPECT_EQ(log(), std::string(log_start) +
                         "\n **** SR/CONTRL  FILE KORVAT.INP OPEN PROBLEM  IERR=    1\n" +
                         error_exit());
    EXPECT_EQ(directory.list(), (Names{"KORVAT.MLG", "PILE.07"}));
}

TEST_F(Entry, ReturnsTheCodeOfAFailedStep) {
    // 10 m of segments, but 9 m between head and tip.
    EXPECT_EQ(run_deck(with_change(deck, " 1 0 0 0 0 0 0 0 10\n", " 1 0 0 0 0 0 0 0 9\n")), 1);
    EXPECT_EQ(log(), std::string(log_start) + "\n Input data is for revision 4 : 2006-06-11\n \n" +
                         input_read("One pile") +
                         "\n **** SR/BUILD : PILE LENGTH ERROR  NP,L1,L2=    1     10.0000"
                         "      9.0000\n"
                         "\n **** SR/CONTRL  ERROR FROM SR/BUILD  IERR=    1\n" +
                         error_exit());
    EXPECT_EQ(directory.read_file("PILE.07"), no_records);
}

// The code of soil displacements on a dummy pile.
TEST_F(Entry, ReturnsTwoFromSave) {
    std::string text = with_change(deck, " 1\n 1\n 1\n 1\n 1\n 1\n", " 1\n 1\n 2\n 1\n 1\n 1\n");
    text = with_change(text, " 1 0 0 0 0 0 0 0 10\n", " 1 0 0 0 0 0 0 0 10\n 2 0 0 0 0 0 0 0 10\n");
    text = with_change(text, " 1 1 1\nheading\n 1 1 0 0\n", " 1 1 1\n 2 0\nheading\n 1 2 0 0\n");
    text = with_change(text, " 0 0 0 0 0 0 0 0 0 0 0\n",
                       " 2 2 1 1 3 0.5 0 0 0 0 0\n 0 0 0 0 0 0 0 0 0 0 0\n");
    EXPECT_EQ(run_deck(text), 2);
    EXPECT_EQ(log(), std::string(log_start) + "\n Input data is for revision 4 : 2006-06-11\n \n" +
                         input_read("One pile") +
                         " +++++ PILE GEOMETRY VALUES COMPUTED\n"
                         "\n **** SPECIAL NODE VALUES PROBLEM\n"
                         " SOIL DISPL WERE GIVEN AT DUMMY PILE =    2\n"
                         "  0.5000E+00  0.0000E+00  0.0000E+00\n"
                         "\n **** SR/CONTRL  ERROR FROM SR/SAVE  IERR=    2\n" +
                         error_exit());
}

TEST_F(Entry, ReturnsMinusOneAfterAStop) {
    EXPECT_EQ(run_deck(with_change(deck, "One pile\n", "One pile\nKORVAT Version: 2006-06-32\n")),
              -1);
    EXPECT_EQ(log(), std::string(log_start) +
                         "\n **** Error message from SR/GetRevision:\n"
                         " Non-accepted date: Year-Month-Day= 2006-06-32\n " +
                         padded("KORVAT Version: 2006-06-32", 80) +
                         "\n"
                         "\n **** Error termination of KORVAT\n");
    EXPECT_EQ(directory.read_file("PILE.07"), no_records);
    EXPECT_EQ(directory.list(), (Names{"KORVAT.INP", "KORVAT.LIS", "KORVAT.MLG", "PILE.07",
                                       "PILEPLOT.TXT", "fem_io_unit_012"}));
}

// What a stopped run left behind neither enters the next run nor survives it.
TEST_F(Entry, RunsAfterAStoppedRun) {
    EXPECT_EQ(run_deck(with_change(deck, "One pile\n", "One pile\nKORVAT Version: 2006-06-32\n")),
              -1);
    ASSERT_TRUE(directory.has("fem_io_unit_012"));
    EXPECT_EQ(run_deck(deck), 0);
    EXPECT_FALSE(directory.has("fem_io_unit_012"));
}

constexpr const char* arguments_warning =
    "korvat: warning: arguments are not used; the deck is always KORVAT.INP in the current "
    "directory\n";

TEST_F(Entry, TellsThatArgumentsAreNotUsed) {
    directory.write_file("KORVAT.INP", deck);
    const char* const arguments[] = {"korvat", "OTHER.INP", "--version"};
    const RunEnd end = run_program(3, arguments);
    EXPECT_EQ(end.exit_code, 0);
    EXPECT_EQ(end.report, arguments_warning);
}

// A user who names a deck may have none of the name that counts.
TEST_F(Entry, TellsSoToAUserWithoutADeckToo) {
    const char* const arguments[] = {"korvat", "OTHER.INP"};
    const RunEnd end = run_program(2, arguments);
    EXPECT_EQ(end.exit_code, 1);
    EXPECT_EQ(end.report,
              std::string(arguments_warning) +
                  "korvat: KORVAT.INP: SR/CONTRL  FILE KORVAT.INP OPEN PROBLEM  IERR=    1\n"
                  "see KORVAT.MLG\n");
}

TEST_F(Entry, TakesTheOptionOfTheRuntime) {
    directory.write_file("KORVAT.INP", deck);
    const char* const arguments[] = {"korvat", "--fem-dynamic-parameters=1,2"};
    EXPECT_EQ(run_program(2, arguments).report, "");
    const char* const more[] = {"korvat", "--fem-dynamic-parameters=1,2", "x"};
    EXPECT_EQ(run_program(3, more).report, arguments_warning);
}

TEST_F(Entry, TellsWarningsWithTheirLines) {
    // Levels 3 and 2 on lines 11 and 12; moduli of line 16 that make a Poisson ratio of 0.57.
    std::string text = with_change(deck, " 0\n 0\n 0\n\n", " 0\n 3\n 2\n\n");
    text = with_change(text, "8.1E7", "6.7E7");
    directory.write_file("KORVAT.INP", text);
    const RunEnd end = run_program(0, nullptr);
    EXPECT_EQ(end.exit_code, 0);
    EXPECT_EQ(end.report,
              "korvat: KORVAT.INP:11: warning: SR/READPI :  JPRINT=    3\n"
              "korvat: KORVAT.INP:12: warning: SR/READPI :  JECHO=    2\n"
              "korvat: KORVAT.INP:16: warning: SR/READPI :  N,EMOD,GMOD=    1  0.2100E+09  "
              "0.6700E+08\n");
}

TEST_F(Entry, TellsTheWarningsOfASuccessOnly) {
    std::string text = with_change(deck, " 0\n 0\n 0\n\n", " 0\n 3\n 2\n\n");
    text = with_change(text, " 1 0 0 0 0 0 0 0 10\n", " 1 0 0 0 0 0 0 0 9\n");
    directory.write_file("KORVAT.INP", text);
    const RunEnd end = run_program(0, nullptr);
    EXPECT_EQ(end.exit_code, 1);
    EXPECT_TRUE(end.report.starts_with("korvat: KORVAT.INP:")) << end.report;
    EXPECT_EQ(end.report.find("warning"), std::string::npos) << end.report;
}

TEST_F(Entry, TellsThatTheLoadFileIsOfAnEarlierRun) {
    directory.write_file("KORVAT.INP", deck);
    directory.write_file("LOAD.09", "earlier");
    const RunEnd end = run_program(0, nullptr);
    EXPECT_EQ(end.exit_code, 0);
    EXPECT_EQ(end.report,
              "korvat: warning: LOAD.09 is of an earlier run: the deck has no load vectors\n");
}

TEST_F(Entry, CountsTheLinesThatAreNotRead) {
    directory.write_file("KORVAT.INP",
                         with_change(deck, "END\n", "\n* comment\n \t\n1 2\n\nx\nEND\nbehind\n"));
    const RunEnd end = run_program(0, nullptr);
    EXPECT_EQ(end.exit_code, 0);
    // The end record stands on line 36.
    EXPECT_EQ(end.report,
              "korvat: KORVAT.INP:40: warning: 2 lines that are not blank stand between "
              "the last line read and END; this is the first\n");
}

TEST_F(Entry, RunsTwiceInOneProcess) {
    EXPECT_EQ(run_deck(deck), 0);
    const std::string first = directory.read_file("PILE.07");
    EXPECT_EQ(run_deck(deck), 0);
    EXPECT_EQ(directory.read_file("PILE.07"), first);
    EXPECT_GT(first.size(), no_records.size());
}

TEST_F(Entry, ReportsNothingAfterACleanRun) {
    directory.write_file("KORVAT.INP", deck);
    const RunEnd end = run_program(0, nullptr);
    EXPECT_EQ(end.report, "");
    EXPECT_FALSE(end.out_of_memory);
}

TEST_F(Entry, ReportsTheFirstErrorOfARun) {
    const std::string commented = with_change(deck, "One pile\n", "One pile\n* one\n* two\n");
    directory.write_file("KORVAT.INP",
                         with_change(commented, " 1 1 1 10.0 2\n", " 1 1 9 10.0 2\n"));
    EXPECT_EQ(run_program(0, nullptr).report,
              "korvat: KORVAT.INP:26: SR/READPI : SEGMENT ERROR  NUM,IERR=    1    4\n"
              " 1 1 9 10.0 2\n"
              "     ^\n"
              "see KORVAT.MLG\n");
}

TEST_F(Entry, ReportsAStop) {
    directory.write_file("KORVAT.INP",
                         with_change(deck, "One pile\n", "One pile\nKORVAT Version: 2006-06-32\n"));
    EXPECT_EQ(run_program(0, nullptr).report,
              "korvat: KORVAT.INP:2: Error message from SR/GetRevision: Non-accepted date: "
              "Year-Month-Day= 2006-06-32 KORVAT Version: 2006-06-32\n"
              "KORVAT Version: 2006-06-32\n"
              "                ^\n"
              "see KORVAT.MLG\n");
}

TEST_F(Entry, ReportsAMissingDeck) {
    EXPECT_EQ(run_program(0, nullptr).report,
              "korvat: KORVAT.INP: SR/CONTRL  FILE KORVAT.INP OPEN PROBLEM  IERR=    1\n"
              "see KORVAT.MLG\n");
}

} // namespace
} // namespace korvat::test
