// What a failed run tells on standard error: lines, carets, lost outputs.
#include "run_fixture.hpp"

#include "run/entry.hpp"
#include "run/report.hpp"
#include "support/text.hpp"

#include <cerrno>

namespace korvat::test {
namespace {

using namespace std::string_literals;

class Report : public RunTest {
protected:
    // The report of a run whose fault is on this line and column of the copy.
    std::string report(const std::string& deck, const DeckPlace& place) {
        directory.write_file("KORVAT.INP", deck);
        given.fault.place = place;
        return failure_report(given, {}, "");
    }

    // The lines of a report between its first and its last.
    std::string shown(const std::string& deck_line, int column) {
        given.deck_lines = {1};
        const std::string text = report(deck_line + "\n", {.line = 1, .column = column});
        const std::string first = "korvat: KORVAT.INP:1: bad\n";
        const std::string last = "see KORVAT.MLG\n";
        EXPECT_TRUE(text.starts_with(first)) << text;
        EXPECT_TRUE(text.ends_with(last)) << text;
        return text.substr(first.size(), text.size() - first.size() - last.size());
    }

    Report() {
        given.fault.message = "\n **** bad";
        given.outputs = {"KORVAT.MLG"};
        given.deck_lines = {1, 3, 4};
        given.deck_end = 6;
    }

    korvat::Report given;
};

const std::string deck = "label\n* star\n one\n 2 x\n* star\nEND of it\nbehind\n";

TEST_F(Report, ShowsTheDecksOwnLineAndACaretUnderTheValue) {
    EXPECT_EQ(report(deck, {.line = 3, .column = 4}), "korvat: KORVAT.INP:4: bad\n"
                                                      " 2 x\n"
                                                      "   ^\n"
                                                      "see KORVAT.MLG\n");
}

TEST_F(Report, ShowsAWholeLineWithoutACaret) {
    EXPECT_EQ(report(deck, {.line = 2}), "korvat: KORVAT.INP:3: bad\n one\nsee KORVAT.MLG\n");
}

TEST_F(Report, BehindTheLastLineItShowsTheOneThatEndedTheInput) {
    EXPECT_EQ(report(deck, {.line = 4}), "korvat: KORVAT.INP:6: bad\nEND of it\nsee KORVAT.MLG\n");
}

TEST_F(Report, WithoutALineItNamesTheFileOnly) {
    EXPECT_EQ(report(deck, {}), "korvat: KORVAT.INP: bad\nsee KORVAT.MLG\n");
    given.deck_lines.clear();
    given.deck_end = 0;
    EXPECT_EQ(report("", {.line = 1}), "korvat: KORVAT.INP: bad\nsee KORVAT.MLG\n");
    given.fault.file = "KORVAT.LIS";
    EXPECT_EQ(report("", {}), "korvat: KORVAT.LIS: bad\nsee KORVAT.MLG\n");
}

TEST_F(Report, WithoutALogItDoesNotSendThere) {
    given.outputs = {"KORVAT.LIS"};
    EXPECT_EQ(report(deck, {}), "korvat: KORVAT.INP: bad\n");
}

TEST_F(Report, ADeckThatIsGoneOrShorterNowIsNotShown) {
    EXPECT_EQ(report("label\n", {.line = 3, .column = 4}),
              "korvat: KORVAT.INP:4: bad\nsee KORVAT.MLG\n");
    std::filesystem::remove("KORVAT.INP");
    EXPECT_EQ(failure_report(given, {}, ""), "korvat: KORVAT.INP:4: bad\nsee KORVAT.MLG\n");
}

TEST_F(Report, JoinsTheLinesOfAMessage) {
    given.fault.message = "\n **** SR/X : one  two\n\n   three,   \n                four";
    EXPECT_EQ(report(deck, {}),
              "korvat: KORVAT.INP: SR/X : one  two three, four\nsee KORVAT.MLG\n");
}

TEST_F(Report, AnEmptyLineIsShownEmpty) {
    EXPECT_EQ(shown("", 0), "\n");
    EXPECT_EQ(shown("   ", 0), "\n");
}

TEST_F(Report, CutsTrailingBlanksAndTheCarriageReturn) {
    EXPECT_EQ(shown(" 1 2  \r", 4), " 1 2\n   ^\n");
}

TEST_F(Report, TheCaretFollowsTabsAndCharactersOfSeveralBytes) {
    EXPECT_EQ(shown("\t1\t x", 5), "\t1\t x\n\t \t ^\n");
    EXPECT_EQ(shown("\xC3\xA9 x", 4), "\xC3\xA9 x\n  ^\n");
}

TEST_F(Report, TheCaretStandsBehindALineThatEndsBeforeIt) {
    EXPECT_EQ(shown("1 ", 4), "1\n   ^\n");
    EXPECT_EQ(shown("\t", 3), "\t\n\t ^\n");
}

TEST_F(Report, NoControlCharacterReachesTheTerminal) {
    EXPECT_EQ(shown("a\x1B[2J\x7F\0z"s, 0), "a?[2J??z\n");
    given.fault.message = " **** a\x1B[2J\tb";
    EXPECT_EQ(report(deck, {}), "korvat: KORVAT.INP: a?[2J?b\nsee KORVAT.MLG\n");
}

TEST_F(Report, ShowsAtMostTheColumnsThatAreRead) {
    EXPECT_EQ(shown(std::string(120, 'x') + "yz", 0), std::string(120, 'x') + "\n");
    EXPECT_EQ(shown(std::string(1000000, 'x'), 0), std::string(120, 'x') + "\n");
}

TEST_F(Report, TellsEveryOutputThatIsIncomplete) {
    given.fault.message.clear();
    EXPECT_EQ(failure_report(given, {{"PILE.07", ENOENT}, {"LOAD.09", EACCES}}, "stopped"),
              "korvat: cannot write PILE.07: No such file or directory\n"
              "korvat: cannot write LOAD.09: Permission denied\n");
}

TEST_F(Report, TellsTheFaultBeforeTheLostOutputs) {
    EXPECT_EQ(failure_report(given, {{"PILE.07", EACCES}}, "stopped"),
              "korvat: KORVAT.INP: bad\n"
              "see KORVAT.MLG\n"
              "korvat: cannot write PILE.07: Permission denied\n");
}

TEST_F(Report, TellsAnExceptionThatNothingElseExplains) {
    given.fault.message.clear();
    EXPECT_EQ(failure_report(given, {}, "Error rewinding file: x"),
              "korvat: Error rewinding file: x\n");
}

class WarningReport : public Report {};

TEST_F(WarningReport, IsEmptyAfterACleanRun) {
    EXPECT_EQ(warning_report(given, {}), "");
}

// Lines 1, 2 and 3 of the copy are lines 1, 3 and 4 of the deck.
TEST_F(WarningReport, TellsEachWarningInALine) {
    given.warnings = {{"\n WARNING FROM SR/X :  A=    1\n   B=  2", {.line = 3, .column = 4}},
                      {"no place", {}},
                      {"behind the last line", {.line = 9}}};
    EXPECT_EQ(warning_report(given, {}), "korvat: KORVAT.INP:4: warning: SR/X :  A=    1 B=  2\n"
                                         "korvat: warning: no place\n"
                                         "korvat: KORVAT.INP:6: warning: behind the last line\n");
}

TEST_F(WarningReport, TellsALogThatIsLost) {
    EXPECT_EQ(warning_report(given, {{"standard output", EACCES}}),
              "korvat: warning: cannot write standard output: Permission denied\n");
}

TEST_F(WarningReport, LetsNoControlCharacterReachTheTerminal) {
    given.warnings = {{"a\x1B[2J", {}}};
    EXPECT_EQ(warning_report(given, {}), "korvat: warning: a?[2J\n");
}

// The first argument is the program's name.
TEST(ArgumentWarning, IsThereForAnArgumentOfTheUser) {
    const auto warning = [](std::vector<const char*> arguments) {
        return argument_warning(static_cast<int>(arguments.size()), arguments.data());
    };
    EXPECT_EQ(warning({}), "");
    EXPECT_EQ(warning({"korvat"}), "");
    EXPECT_EQ(warning({"korvat", "--fem-dynamic-parameters", "--fem-dynamic-parameters=7"}), "");
    const std::string due =
        "korvat: warning: arguments are not used; the deck is always KORVAT.INP "
        "in the current directory\n";
    EXPECT_EQ(warning({"korvat", "x"}), due);
    EXPECT_EQ(warning({"korvat", ""}), due);
    EXPECT_EQ(warning({"korvat", "--fem-dynamic-parameters=7", "-h"}), due);
}

} // namespace
} // namespace korvat::test
