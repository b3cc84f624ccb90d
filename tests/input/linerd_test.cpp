// Tests of the last lines shown after a fault.
#include "support/model_fixture.hpp"

#include "input/linerd.hpp"

namespace korvat::test {
namespace {

// Lines "line 1", "line 2" and so on.
std::string numbered_lines(int count) {
    std::string text;
    for (int i = 1; i <= count; ++i)
        text += "line " + std::to_string(i) + "\n";
    return text;
}

std::string heading(const std::string& count) {
    return "\n The " + count + " last lines read from the temporary input file are shown below.\n";
}

std::string shown(int number, const std::string& text) {
    const std::string digits = std::to_string(number);
    return std::string(5 - digits.size(), ' ') + digits + " : " + padded(text, 70) + "\n";
}

std::string shown_numbered_lines(int first, int last) {
    std::string text;
    for (int i = first; i <= last; ++i)
        text += shown(i, "line " + std::to_string(i));
    return text;
}

constexpr std::string_view bad_value = " Non-accepted value(s) exist in the input :\n \n";

class Linerd : public ModelTest {
protected:
    std::string shown_for(int NLINE, Cause KIND) {
        linerd(cmn(), 12, 6, NLINE, KIND);
        return log();
    }
};

TEST_F(Linerd, ExplainsEachKindOfFault) {
    const std::vector<std::string> explanations = {
        " Error occurred while reading the bottom line :\n \n",
        " An end-of-file was encountered at the bottom line :\n \n",
        " The error was detected by SR/LINERD :\n \n",
        " Non-accepted value(s) exist in the input :\n \n"};
    give_copy(numbered_lines(1));
    std::string expected;
    for (const Cause kind :
         {Cause::format_error, Cause::end_of_file, Cause::record_fault, Cause::bad_value}) {
        expected += heading(" 1") + explanations.at(static_cast<std::size_t>(kind.code() - 1)) +
                    shown_numbered_lines(1, 1);
        EXPECT_EQ(shown_for(1, kind), expected);
    }
}

TEST_F(Linerd, WithoutACauseThereIsNoExplanation) {
    give_copy(numbered_lines(2));
    EXPECT_EQ(shown_for(2, Cause::none), heading(" 2") + shown_numbered_lines(1, 2));
}

TEST_F(Linerd, NoLineReadYet) {
    give_copy(numbered_lines(3));
    EXPECT_EQ(shown_for(0, Cause::bad_value), heading(" 0") + std::string(bad_value));
}

TEST_F(Linerd, FiveLines) {
    give_copy(numbered_lines(9));
    EXPECT_EQ(shown_for(5, Cause::bad_value),
              heading(" 5") + std::string(bad_value) + shown_numbered_lines(1, 5));
}

TEST_F(Linerd, TwelveLinesAreAllShown) {
    give_copy(numbered_lines(40));
    EXPECT_EQ(shown_for(12, Cause::bad_value),
              heading("12") + std::string(bad_value) + shown_numbered_lines(1, 12));
}

TEST_F(Linerd, OfThirteenLinesTheFirstIsSkipped) {
    give_copy(numbered_lines(40));
    EXPECT_EQ(shown_for(13, Cause::bad_value),
              heading("12") + std::string(bad_value) + shown_numbered_lines(2, 13));
}

TEST_F(Linerd, OfThirtyLinesEighteenAreSkipped) {
    give_copy(numbered_lines(40));
    EXPECT_EQ(shown_for(30, Cause::bad_value),
              heading("12") + std::string(bad_value) + shown_numbered_lines(19, 30));
}

TEST_F(Linerd, RewindsFirst) {
    give_copy(numbered_lines(3));
    next_line(12);
    next_line(12);
    EXPECT_EQ(shown_for(2, Cause::none), heading(" 2") + shown_numbered_lines(1, 2));
}

TEST_F(Linerd, ShowsSeventyColumns) {
    give_copy(padded("a", 69) + "bc\n" + padded("", 70) + "d\n");
    EXPECT_EQ(shown_for(2, Cause::none),
              heading(" 2") + shown(1, padded("a", 69) + "b") + shown(2, ""));
}

TEST_F(Linerd, EndOfInputShowsTheNumberAlone) {
    give_copy(numbered_lines(2));
    // The line text stops before its own field.
    EXPECT_EQ(shown_for(4, Cause::end_of_file),
              heading(" 4") + " An end-of-file was encountered at the bottom line :\n \n" +
                  shown_numbered_lines(1, 2) + "    3 : \n");
}

TEST_F(Linerd, EndOfInputBehindSkippedLines) {
    give_copy(numbered_lines(19));
    EXPECT_EQ(shown_for(20, Cause::none),
              heading("12") + shown_numbered_lines(9, 19) + "   20 : \n");
}

TEST_F(Linerd, EndOfInputAmongTheSkippedLinesLeavesAsAnException) {
    give_copy(numbered_lines(2));
    EXPECT_ANY_THROW(shown_for(15, Cause::end_of_file));
    EXPECT_EQ(log(), "");
}

} // namespace
} // namespace korvat::test
