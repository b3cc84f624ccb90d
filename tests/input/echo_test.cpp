// Tests of the echo of the input between two column rulers.
#include "support/model_fixture.hpp"

#include "input/echo.hpp"

namespace korvat::test {
namespace {

constexpr std::string_view heading =
    "1\n          ECHO PRINT OF INPUT DATA TO PROGRAM \"KORVAT\"\n";

// Tens above units, the column numbers 1 to 80, from print column 11 on.
constexpr std::string_view ruler =
    "\n"
    "          00000000011111111112222222222333333333344444444445555555555666666666677777777778\n"
    "          12345678901234567890123456789012345678901234567890123456789012345678901234567890\n"
    "\n";

std::string whole_echo(const std::string& lines) {
    return std::string(heading) + std::string(ruler) + lines + std::string(ruler);
}

class Echo : public ModelTest {
protected:
    std::string echoed() {
        echo(cmn(), 11, 13, "KORVAT");
        return listing();
    }
};

TEST_F(Echo, NumbersEveryLineOfTheRawInput) {
    give_input("label\n\nC comment\n  1 2\nEND\nbehind\n");
    EXPECT_EQ(echoed(), whole_echo("    1---- " + padded("label", 80) + "\n" +     //
                                   "    2---- " + padded("", 80) + "\n" +          //
                                   "    3---- " + padded("C comment", 80) + "\n" + //
                                   "    4---- " + padded("  1 2", 80) + "\n" +     //
                                   "    5---- " + padded("END", 80) + "\n" +       //
                                   "    6---- " + padded("behind", 80) + "\n"));
}

TEST_F(Echo, ShowsEightyColumns) {
    give_input(padded("a", 79) + "bc\n");
    EXPECT_EQ(echoed(), whole_echo("    1---- " + padded("a", 79) + "b\n"));
}

TEST_F(Echo, EmptyFileGivesTheHeadingAndTwoRulers) {
    give_input("");
    EXPECT_EQ(echoed(), whole_echo(""));
}

TEST_F(Echo, StartsAtTheFirstLineAndLeavesTheUnitRewound) {
    give_input("first\nsecond\n");
    next_line(11);
    EXPECT_EQ(echoed(), whole_echo("    1---- " + padded("first", 80) + "\n" + "    2---- " +
                                   padded("second", 80) + "\n"));
    EXPECT_EQ(next_line(11), "first");
}

TEST_F(Echo, NamesTheProgramAndWritesToItsUnit) {
    give_input("");
    echo(cmn(), 11, 6, "OTHER");
    EXPECT_EQ(log(), "1\n          ECHO PRINT OF INPUT DATA TO PROGRAM \"OTHER\"\n" +
                         std::string(ruler) + std::string(ruler));
    EXPECT_EQ(listing(), "");
}

TEST_F(Echo, ReadErrorIsReportedOnUnit0AndEndsTheEchoOnPosix) {
    give_directory(11, "folder");
    testing::internal::CaptureStderr();
    const std::string text = echoed();
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "\n **** ERROR IN SR/ECHO  NFR,NFW,NOW=   11   13    1\n");
    EXPECT_EQ(text, whole_echo(""));
    EXPECT_EQ(log(), "");
}

} // namespace
} // namespace korvat::test
