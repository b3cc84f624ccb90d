// Tests of the numbers of one physical line.
#include "support/model_fixture.hpp"

#include "input/read.hpp"

namespace korvat::test {
namespace {

using namespace std::string_view_literals;

// What one call gives; the value list starts with 9.0 in every place.
struct Found {
    int count = 0;
    int IERR = 7;
    Values VAR;
};

Found numbers_of(std::string_view line, int wanted = 0, int from = 1) {
    Found found;
    for (double& value : found.VAR.all())
        value = 9.0;
    found.count = wanted;
    getnum(line, from, found.VAR, found.count, found.IERR);
    return found;
}

std::vector<double> list(const Found& found) {
    return {found.VAR.all().begin(), found.VAR.all().end()};
}

// Forty values that begin with the given ones.
std::vector<double> filled(std::vector<double> values, double rest) {
    values.resize(40, rest);
    return values;
}

TEST(Getnum, TakesEveryNumberAndClearsThePlacesBehind) {
    const Found found = numbers_of("  1 -2.5   +3  ");
    EXPECT_EQ(found.IERR, 0);
    EXPECT_EQ(found.count, 3);
    EXPECT_EQ(list(found), filled({1.0, -2.5, 3.0}, 0.0));
}

TEST(Getnum, TakesAtMostTheNumbersWanted) {
    const Found found = numbers_of("1 2 3 4", 2);
    EXPECT_EQ(found.IERR, 0);
    EXPECT_EQ(found.count, 2);
    EXPECT_EQ(list(found), filled({1.0, 2.0}, 0.0));
}

TEST(Getnum, DoesNotLookAtWhatIsBehindTheNumbersWanted) {
    EXPECT_EQ(numbers_of("1 2 x", 2).IERR, 0);
}

TEST(Getnum, StoresFromItsIndexOn) {
    const Found found = numbers_of("1 2", 0, 3);
    EXPECT_EQ(found.count, 2);
    EXPECT_EQ(list(found), filled({9.0, 9.0, 1.0, 2.0}, 0.0));
}

TEST(Getnum, FindsNothingOnABlankLine) {
    for (const std::string_view line : {""sv, "     "sv, "\0 \0"sv}) {
        const Found found = numbers_of(line);
        EXPECT_EQ(found.IERR, 0);
        EXPECT_EQ(found.count, 0);
        EXPECT_EQ(list(found), filled({}, 0.0));
    }
}

TEST(Getnum, StopsWhereTheListIsFull) {
    const Found wanting_more = numbers_of("1 2 3 4 5", 5, 39);
    EXPECT_EQ(wanting_more.count, 2);
    EXPECT_EQ(wanting_more.VAR(38), 9.0);
    EXPECT_EQ(wanting_more.VAR(39), 1.0);
    EXPECT_EQ(wanting_more.VAR(40), 2.0);
    EXPECT_EQ(numbers_of("1 2 3 4 5", 0, 39).count, 2);
    const Found full = numbers_of("1", 0, 41);
    EXPECT_EQ(full.count, 0);
    EXPECT_EQ(full.IERR, 0);
    EXPECT_EQ(list(full), filled({}, 9.0));
}

TEST(Getnum, FailureKeepsTheListFromItsPlaceOn) {
    const Found found = numbers_of("1 2 3x 4");
    EXPECT_EQ(found.IERR, -1);
    EXPECT_EQ(found.count, 2);
    EXPECT_EQ(list(found), filled({1.0, 2.0}, 9.0));
}

TEST(Getnum, AcceptsEveryFormOfANumber) {
    const Found found = numbers_of("1 1. .5 -0.25 +4 1e2 1E+2 1.5d1 25D-2 007");
    EXPECT_EQ(found.IERR, 0);
    // All are exact in binary, whichever way they are converted.
    EXPECT_EQ(list(found), filled({1.0, 1.0, 0.5, -0.25, 4.0, 100.0, 100.0, 15.0, 0.25, 7.0}, 0.0));
}

TEST(Getnum, RefusesEverythingElse) {
    for (const std::string_view token :
         {"1,5"sv, "12abc"sv, "1.2.3"sv,    "1+5"sv,   "1-5"sv,    "0x10"sv,  "-"sv,
          "+"sv,   "."sv,     "-."sv,       "1e"sv,    "1e+"sv,    "e5"sv,    "--1"sv,
          "inf"sv, "nan"sv,   "Infinity"sv, "1e999"sv, "-1e999"sv, "9e308"sv, "1\t5"sv,
          "\t"sv,  "1\r5"sv,  "1_8"sv,      "2*3"sv,   "1/"sv,     "'1'"sv,   "$1"sv}) {
        const Found found = numbers_of("8 " + std::string(token) + " 4");
        EXPECT_EQ(found.IERR, -1) << token;
        EXPECT_EQ(found.count, 1) << token;
        EXPECT_EQ(found.VAR(2), 9.0) << token;
    }
}

TEST(Getnum, TabsAndCarriageReturnsAroundANumberArePassedOver) {
    const Found found = numbers_of("\t1.0 2.0\t \r-3\r \t\t4\r\t 5");
    EXPECT_EQ(found.IERR, 0);
    EXPECT_EQ(found.count, 5);
    EXPECT_EQ(list(found), filled({1.0, 2.0, -3.0, 4.0, 5.0}, 0.0));
}

// Only blanks separate numbers: the tab belongs to the token 1 TAB 5.
TEST(Getnum, ATabDoesNotEndANumber) {
    const Found found = numbers_of("8 1\t5 4");
    EXPECT_EQ(found.IERR, -1);
    EXPECT_EQ(found.count, 1);
}

TEST(Getnum, NulIsSkippedBeforeANumber) {
    const Found found = numbers_of("1 \0\0 \0002 3"sv);
    EXPECT_EQ(found.IERR, 0);
    EXPECT_EQ(list(found), filled({1.0, 2.0, 3.0}, 0.0));
}

TEST(Getnum, NulDoesNotEndANumber) {
    // The token is 2 NUL 3, which is no number.
    const Found inside = numbers_of("1 2\0003 4"sv);
    EXPECT_EQ(inside.IERR, -1);
    EXPECT_EQ(inside.count, 1);
    const Found behind = numbers_of("1 2\0 3"sv);
    EXPECT_EQ(behind.IERR, -1);
    EXPECT_EQ(behind.count, 1);
}

TEST(Getnum, TokenIsJudgedAsCutAt50Characters) {
    const std::string seven = std::string(49, '0') + "7";
    EXPECT_EQ(numbers_of(seven).VAR(1), 7.0);
    const Found cut = numbers_of(seven + "x 5");
    EXPECT_EQ(cut.IERR, 0);
    EXPECT_EQ(list(cut), filled({7.0, 5.0}, 0.0));
    const Found kept = numbers_of(seven.substr(1) + "x 5");
    EXPECT_EQ(kept.IERR, -1);
    EXPECT_EQ(kept.count, 0);
    EXPECT_EQ(numbers_of(seven + "9").VAR(1), 7.0);
    // The exponent's digits are cut off: "1e" is no number.
    EXPECT_EQ(numbers_of(std::string(48, '0') + "1e5").IERR, -1);
}

// NUL characters are skipped before a number, and one inside belongs to it.
TEST(PositionOfNumber, IsThatOfItsFirstCharacter) {
    EXPECT_EQ(position_of_number("1  22 x3", 1), 0U);
    EXPECT_EQ(position_of_number("1  22 x3", 2), 3U);
    EXPECT_EQ(position_of_number("1  22 x3", 3), 6U);
    EXPECT_EQ(position_of_number("\0 \0001\0002 3"sv, 1), 3U);
    EXPECT_EQ(position_of_number("\0 \0001\0002 3"sv, 2), 7U);
}

// A token of tabs alone has no better place than its own.
TEST(PositionOfNumber, IsBehindTheTabsInFrontOfIt) {
    EXPECT_EQ(position_of_number("\t\r1 \t22\t x3", 1), 2U);
    EXPECT_EQ(position_of_number("\t\r1 \t22\t x3", 2), 5U);
    EXPECT_EQ(position_of_number("\t\r1 \t22\t x3", 3), 9U);
    EXPECT_EQ(position_of_number("1 \t\t 3", 2), 2U);
}

TEST(PositionOfNumber, IsNoneBehindTheLastNumber) {
    EXPECT_EQ(position_of_number("1  22 ", 3), std::string_view::npos);
    EXPECT_EQ(position_of_number("  ", 1), std::string_view::npos);
    EXPECT_EQ(position_of_number("", 2), std::string_view::npos);
}

} // namespace
} // namespace korvat::test
