// Tests of the record reader: counts, continuation lines, joined lines and every message.
#include "support/model_fixture.hpp"

#include "input/read.hpp"

namespace korvat::test {
namespace {

// The block that follows every message. `lines` are those shown with a mark.
std::string context(const std::string& above, const std::vector<std::string>& lines) {
    std::string text =
        "      LINE ABOVE INPUT LINE AND INPUT LINE IS PRINTED BELOW WITH A '-' IN FRONT.\n";
    if (lines.size() > 1) {
        text += "      'PHYSICAL CONTINUATION LINE' IS PRINTED WITH A '&' IN FRONT.\n";
    }
    text += " " + std::string(79, '-') + "\n\n - " + above + "\n";
    for (std::size_t i = 0; i < lines.size(); ++i)
        text += (i == 0 ? " - " : " & ") + lines[i] + "\n";
    return text + "\n\n\n"; // (/,/) are three records
}

std::string wrong_count(const std::string& expected, const std::string& found) {
    return "\n **** SR/READ : NUMBER OF VARIABLES WHICH SHOULD BE ON LINE:" + expected +
           ",\n                WAS NOT EQUAL TO NUMBER OF INPUT VARIABLES FOUND:" + found +
           ",\n                AT LOCATION =   215\n";
}

std::string too_long(const std::string& column) {
    return "\n **** SR/READ : LENGTH OF ONE LOGICAL INPUT LINE LONGER THAN:" + column +
           " CHARACTERS.\n                AT LOCATION =   215\n";
}

constexpr std::string_view no_number_on_continuation =
    "\n **** SR/READ : NO NUMBERS FOUND AT LOCATION =  215, ON A 'PHYSICAL CONTINUATION\n"
    "                LINE.'\n";

// A line with numbers in its first columns whose last character, a digit, is in column `width`.
std::string line_of_width(std::size_t width) {
    return padded("1", width - 1) + "2";
}

class Read : public ModelTest {
protected:
    // Reads one record with location code 215; returns the count that comes back.
    int read_record(int NVAR) {
        read(cmn(), NVAR, 215, 12, 6, NPHYS, LINE, VAR, IERR);
        return NVAR;
    }

    std::vector<double> values(int count) const {
        const auto all = VAR.all();
        return {all.begin(), all.begin() + count};
    }

    std::string line() const { return std::string(fortran::trimmed(LINE.view())); }

    Line LINE;
    Values VAR;
    int NPHYS = 7;
    int IERR = 7;
};

TEST_F(Read, SurplusOnTheFirstLineIsIgnored) {
    give_copy("1 2 3 4\n5\n");
    EXPECT_EQ(read_record(3), 3);
    EXPECT_EQ(values(4), (std::vector{1.0, 2.0, 3.0, 0.0}));
    EXPECT_EQ(NPHYS, 1);
    EXPECT_EQ(IERR, 0);
    EXPECT_EQ(next_line(12), "5");
    EXPECT_EQ(log(), "");
}

TEST_F(Read, ContinuesUntilTheCountIsReached) {
    give_copy("1 2\n3 4\n5\n");
    EXPECT_EQ(read_record(4), 4);
    EXPECT_EQ(values(5), (std::vector{1.0, 2.0, 3.0, 4.0, 0.0}));
    EXPECT_EQ(NPHYS, 2);
    EXPECT_EQ(IERR, 0);
    EXPECT_EQ(line(), "1 2 3 4");
    EXPECT_EQ(next_line(12), "5");
}

TEST_F(Read, LinesAreJoinedWithOneBlankBehindTheLastCharacter) {
    give_copy("  1   2   \n  3\n");
    read_record(3);
    EXPECT_EQ(line(), "  1   2   3"); // "  3" starts in column 9
    EXPECT_EQ(IERR, 0);
}

TEST_F(Read, SurplusOnAContinuationLineIsAFault) {
    give_copy("1\n2 3\n");
    EXPECT_EQ(read_record(2), 2);
    EXPECT_EQ(IERR, 1);
    EXPECT_EQ(NPHYS, 2);
    EXPECT_EQ(values(4), (std::vector{1.0, 2.0, 3.0, 0.0}));
    EXPECT_EQ(line(), "1 2 3");
    EXPECT_EQ(log(), wrong_count("    2", "    3") + context(" ", {"1", "2 3"}));
}

TEST_F(Read, ContinuationLineIsReadToItsEnd) {
    give_copy("1\n2 3 4 5\n");
    read_record(2);
    EXPECT_EQ(values(6), (std::vector{1.0, 2.0, 3.0, 4.0, 5.0, 0.0}));
    EXPECT_EQ(log(), wrong_count("    2", "    5") + context(" ", {"1", "2 3 4 5"}));
}

TEST_F(Read, AnyNumberOfValuesIsCountedOnOneLine) {
    give_copy("5 6 7\n8\n");
    EXPECT_EQ(read_record(0), 3);
    EXPECT_EQ(values(4), (std::vector{5.0, 6.0, 7.0, 0.0}));
    EXPECT_EQ(IERR, 0);
    EXPECT_EQ(next_line(12), "8");
}

TEST_F(Read, LastPlacesAreZeroAfterASuccess) {
    for (double& value : VAR.all())
        value = 9.0;
    give_copy("1 2\n");
    read_record(2);
    std::vector<double> expected(40, 0.0);
    expected[0] = 1.0;
    expected[1] = 2.0;
    EXPECT_EQ(values(40), expected);
}

TEST_F(Read, FirstValueGivesTheCount) {
    give_copy("3 10\n20 30\n");
    EXPECT_EQ(read_record(-1), 4);
    EXPECT_EQ(values(4), (std::vector{3.0, 10.0, 20.0, 30.0}));
    EXPECT_EQ(IERR, 0);
}

TEST_F(Read, SecondValueGivesTheCountRoundedHalfUp) {
    give_copy("8 1.5 4 5\n8 0\n");
    EXPECT_EQ(read_record(-2), 4); // 1.5 is 2, and the two before
    EXPECT_EQ(values(4), (std::vector{8.0, 1.5, 4.0, 5.0}));
    EXPECT_EQ(read_record(-2), 2);
    EXPECT_EQ(IERR, 0);
}

TEST_F(Read, SurplusBehindACountInTheDataIsAFaultAlsoOnTheFirstLine) {
    give_copy("8 1 4 5\n");
    EXPECT_EQ(read_record(-2), 3);
    EXPECT_EQ(IERR, 1);
    EXPECT_EQ(log(), wrong_count("    3", "    4") + context(" ", {"8 1 4 5"}));
}

TEST_F(Read, NegativeCountInTheData) {
    give_copy("8 -2 4 5\n8 -3\n");
    EXPECT_EQ(read_record(-2), 4); // -2 + 2 is 0: as many as there are
    EXPECT_EQ(IERR, 0);
    EXPECT_EQ(read_record(-2), -1);
    EXPECT_EQ(IERR, 1);
    EXPECT_EQ(log(), wrong_count("   -1", "    2") + context("8 -2 4 5", {"8 -3"}));
}

TEST_F(Read, HugeCountInTheDataSaturates) {
    give_copy("8 1e300\n1\n");
    EXPECT_EQ(read_record(-2), 2147483647);
    EXPECT_EQ(IERR, 1);
    EXPECT_EQ(log(), "\n **** SR/READ : END-OF-FILE AT LOCATION =   215\n" +
                         context(" ", {"8 1e300", "1"}));
}

TEST_F(Read, HugeCountsAreShownWhole) {
    give_copy("8 1e300 x\n8 -1e300\n");
    EXPECT_EQ(read_record(-2), 2147483647);
    EXPECT_EQ(read_record(-2), -2147483646); // the lowest integer and 2
    EXPECT_EQ(log(), wrong_count("2147483647", "    2") + context(" ", {"8 1e300 x"}) +
                         wrong_count("-2147483646", "    2") + context("8 1e300 x", {"8 -1e300"}));
}

TEST_F(Read, FailedCountKeepsTheOldValue) {
    VAR(2) = 7.0;
    give_copy("3 x\n");
    EXPECT_EQ(read_record(-2), 9);
    EXPECT_EQ(values(2), (std::vector{3.0, 7.0}));
    EXPECT_EQ(log(), wrong_count("    9", "    1") + context(" ", {"3 x"}));
}

TEST_F(Read, MissingCountIsZero) {
    VAR(2) = 7.0;
    give_copy("3\n");
    EXPECT_EQ(read_record(-2), 2); // the places behind the last number are zero
    EXPECT_EQ(IERR, 1);            // a second line is due
    EXPECT_EQ(log(), "\n **** SR/READ : END-OF-FILE AT LOCATION =   215\n" + context(" ", {"3"}));
}

TEST_F(Read, NumberThatCannotBeConvertedIsACountFault) {
    VAR(3) = 7.0;
    give_copy("8 9 1,2 4\n");
    EXPECT_EQ(read_record(4), 4);
    EXPECT_EQ(IERR, 1);
    EXPECT_EQ(values(4), (std::vector{8.0, 9.0, 7.0, 0.0}));
    EXPECT_EQ(log(), wrong_count("    4", "    2") + context(" ", {"8 9 1,2 4"}));
}

TEST_F(Read, FailureOnAContinuationLineCountsEveryNumberBefore) {
    give_copy("8 9\n1 1,2\n");
    read_record(4);
    EXPECT_EQ(log(), wrong_count("    4", "    3") + context(" ", {"8 9", "1 1,2"}));
}

TEST_F(Read, BlankFirstLine) {
    give_copy("1\n\n");
    read_record(1);
    EXPECT_EQ(read_record(1), 1);
    EXPECT_EQ(IERR, 1);
    EXPECT_EQ(NPHYS, 1);
    EXPECT_EQ(log(),
              "\n **** SR/READ : NO NUMBERS FOUND AT LOCATION =  215\n" + context("1", {" "}));
}

TEST_F(Read, BlankContinuationLine) {
    give_copy("1\n   \n");
    read_record(2);
    EXPECT_EQ(IERR, 1);
    EXPECT_EQ(NPHYS, 2);
    EXPECT_EQ(log(), std::string(no_number_on_continuation) + context(" ", {"1", " "}));
}

TEST_F(Read, EndOfFileOnTheFirstLineShowsTheLineAboveOnly) {
    give_copy("1\n");
    read_record(1);
    EXPECT_EQ(read_record(1), 1);
    EXPECT_EQ(IERR, 1);
    EXPECT_EQ(NPHYS, 0);
    EXPECT_EQ(log(), "\n **** SR/READ : END-OF-FILE AT LOCATION =   215\n" + context("1", {}));
}

TEST_F(Read, EndOfFileOnAContinuationLineShowsTheLinesBefore) {
    give_copy("1\n2\n");
    read_record(3);
    EXPECT_EQ(IERR, 1);
    EXPECT_EQ(NPHYS, 2);
    EXPECT_EQ(values(3), (std::vector{1.0, 2.0, 0.0}));
    EXPECT_EQ(log(),
              "\n **** SR/READ : END-OF-FILE AT LOCATION =   215\n" + context(" ", {"1", "2"}));
}

TEST_F(Read, ReadErrorIsAFormatErrorOnPosix) {
    give_directory(12, "folder");
    LINE.assign("above");
    read_record(1);
    EXPECT_EQ(IERR, 1);
    EXPECT_EQ(NPHYS, 0);
    EXPECT_EQ(log(), "\n **** SR/READ : FORMAT ERROR AT LOCATION =  215\n" + context("above", {}));
}

TEST_F(Read, LineAboveIsCutAtColumn80) {
    LINE.assign(padded("a", 79) + "bc");
    give_copy("");
    read_record(1);
    EXPECT_EQ(log(), "\n **** SR/READ : END-OF-FILE AT LOCATION =   215\n" +
                         context(padded("a", 79) + "b", {}));
}

TEST_F(Read, ColumnsBeyond80AreNotSeen) {
    give_copy(padded("1", 79) + "23 4\n5\n");
    EXPECT_EQ(read_record(0), 2);
    EXPECT_EQ(values(3), (std::vector{1.0, 2.0, 0.0}));
}

// Seven lines of 80 columns end in columns 80, 161, 242, 323, 404, 485 and 566; the eighth starts in
// column 568 and finds room for 73 columns. They are its rightmost: it is seen from its column 8 on,
// so that its column 78 is column 638.
class ReadLongLines : public Read {
protected:
    // Two numbers on each of the eight lines; the eighth has them in column 8 and in its last.
    void give_lines(std::size_t last_width, const std::string& further) {
        shown = std::vector<std::string>(7, line_of_width(80));
        shown.push_back(line_of_width(last_width - 7));
        give_copy(joined({shown.begin(), shown.end() - 1}) + "ignored" + shown.back() + "\n" +
                  further);
    }

    std::vector<std::string> shown;
};

TEST_F(ReadLongLines, EndInColumn638IsAccepted) {
    give_lines(78, "");
    EXPECT_EQ(read_record(16), 16);
    EXPECT_EQ(IERR, 0);
    EXPECT_EQ(line().size(), 638U);
    EXPECT_EQ(log(), "");
    EXPECT_EQ(values(16), (std::vector{1.0, 2.0, 1.0, 2.0, 1.0, 2.0, 1.0, 2.0, 1.0, 2.0, 1.0, 2.0,
                                       1.0, 2.0, 1.0, 2.0}));
}

TEST_F(ReadLongLines, EndInColumn639IsTooLong) {
    give_lines(79, "");
    read_record(16);
    EXPECT_EQ(IERR, 1);
    EXPECT_EQ(log(), too_long("  639") + context(" ", shown));
}

TEST_F(ReadLongLines, EndInColumn640IsTooLong) {
    give_lines(80, "");
    read_record(16);
    EXPECT_EQ(log(), too_long("  640") + context(" ", shown));
}

// Of a number in columns 7 and 8 the second digit is left.
TEST_F(ReadLongLines, WhatFindsNoRoomIsLostOnTheLeft) {
    shown = std::vector<std::string>(7, line_of_width(80));
    give_copy(joined(shown) + "3 4   56\n");
    read_record(16);
    shown.emplace_back("6");
    EXPECT_EQ(log(), "\n **** SR/READ : END-OF-FILE AT LOCATION =   215\n" + context(" ", shown));
    EXPECT_EQ(values(16), (std::vector{1.0, 2.0, 1.0, 2.0, 1.0, 2.0, 1.0, 2.0, 1.0, 2.0, 1.0, 2.0,
                                       1.0, 2.0, 6.0, 0.0}));
}

// The seven lines begin in columns 1, 82, ... and 487, and are seen whole.
TEST_F(ReadLongLines, PlacesAreThoseOfTheDecksLines) {
    give_lines(78, "");
    read_record(16);
    const RecordLines& lines = cmn().report.record_lines;
    EXPECT_EQ(place_of_number(lines, LINE, 5, 14), (DeckPlace{.line = 11, .column = 80}));
    EXPECT_EQ(place_of_number(lines, LINE, 5, 15), (DeckPlace{.line = 12, .column = 8}));
    EXPECT_EQ(place_of_number(lines, LINE, 5, 16), (DeckPlace{.line = 12, .column = 78}));
}

TEST_F(ReadLongLines, OfALineThatStartsInColumn640ItsColumn80IsSeen) {
    give_lines(78, padded("56", 78) + "78\n");
    read_record(17);
    EXPECT_EQ(IERR, 1);
    EXPECT_EQ(VAR(17), 8.0);
    shown.emplace_back("8");
    EXPECT_EQ(log(), too_long("  640") + context(" ", shown));
}

TEST_F(ReadLongLines, NothingIsSeenOfAShortLineThatStartsInColumn640) {
    give_lines(78, "56\n");
    read_record(17);
    shown.emplace_back(" ");
    EXPECT_EQ(log(), std::string(no_number_on_continuation) + context(" ", shown));
}

TEST_F(Read, FortyNumbersOnFortyLinesFillTheListAndOneMoreLineIsShown) {
    std::vector<std::string> lines(40, "1");
    lines.front() = "99"; // 100 numbers in all
    lines.emplace_back("2");
    give_copy(joined(lines));
    EXPECT_EQ(read_record(-1), 100);
    EXPECT_EQ(IERR, 1);
    EXPECT_EQ(NPHYS, 41);
    EXPECT_EQ(VAR(40), 1.0);
    EXPECT_EQ(log(), std::string(no_number_on_continuation) + context(" ", lines));
}

} // namespace
} // namespace korvat::test
