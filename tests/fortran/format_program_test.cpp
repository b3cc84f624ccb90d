// FORMATs taken apart.
#include "fortran/format_program.hpp"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace korvat::test {
namespace {

using fortran::FormatProgram;
using fortran::FormatPrograms;
using fortran::FormatStep;
using Kind = FormatStep::Kind;

// The steps in one line: letters for the kinds, then their numbers.
std::string shown(const FormatStep& step) {
    switch (step.kind) {
    case Kind::literal:
        return step.literal == "\n" ? "/" : "'" + step.literal + "'";
    case Kind::blanks:
        return std::to_string(step.width) + "x";
    case Kind::scale:
        return std::to_string(step.width) + "p";
    case Kind::colon:
        return ":";
    case Kind::no_line_end:
        return "$";
    case Kind::text:
        return step.width < 0 ? "a" : "a" + std::to_string(step.width);
    case Kind::integer:
        return "i" + std::to_string(step.width) + "." + std::to_string(step.digits);
    case Kind::fixed:
        return "f" + std::to_string(step.width) + "." + std::to_string(step.digits);
    case Kind::exponent:
        return "e" + std::to_string(step.width) + "." + std::to_string(step.digits);
    }
    return "?";
}

// The first pass, a bar, and what follows when items are left.
std::string steps_of(std::string_view format) {
    const FormatProgram program(format);
    std::string text;
    for (std::size_t i = 0; i < program.steps().size(); ++i) {
        if (i == program.reversion()) text += "| ";
        text += shown(program.steps()[i]) + " ";
    }
    return text;
}

TEST(FormatProgram, HasAStepForEachDescriptor) {
    EXPECT_EQ(steps_of("(i5,i5.4,f10.3,e12.4,a,a11)"),
              "i5.1 i5.4 f10.3 e12.4 a a11 | / i5.1 i5.4 f10.3 e12.4 a a11 ");
}

TEST(FormatProgram, WritesRepeatCountsAndGroupsOut) {
    EXPECT_EQ(steps_of("(2i1,'-',2(f7.3,1x),/,' end')"),
              "i1.1 i1.1 '-' f7.3 1x f7.3 1x / ' end' | / f7.3 1x f7.3 1x / ' end' ");
    EXPECT_EQ(steps_of("(9('0'))"), "'0' '0' '0' '0' '0' '0' '0' '0' '0' ");
}

TEST(FormatProgram, GoesBackToTheLastGroupOfTheFirstLevel) {
    EXPECT_EQ(steps_of("(a,(i5,(f7.3)),a3)"), "a i5.1 f7.3 a3 | / i5.1 f7.3 a3 ");
}

TEST(FormatProgram, KeepsScaleFactorsColonsAndDollars) {
    EXPECT_EQ(steps_of("(1p,e12.4,0p,f7.3,:,' more',$)"),
              "1p e12.4 0p f7.3 : ' more' $ | / 1p e12.4 0p f7.3 : ' more' $ ");
}

TEST(FormatProgram, HasNoReversionThatWouldTakeNoItem) {
    EXPECT_EQ(steps_of("(a,2('x'))"), "a 'x' 'x' ");
    EXPECT_EQ(steps_of("()"), "");
}

TEST(FormatProgram, KnowsTheKindOfEachItem) {
    const FormatProgram program("(a,2(i5,f7.3),e9.2)");
    std::string kinds;
    for (std::size_t i = 0; i < 12; ++i)
        kinds += shown({.kind = program.kind_of_item(i)}).front();
    EXPECT_EQ(kinds, "aififeififei"); // from the group on again
    EXPECT_THROW((void)FormatProgram("(a,2('x'))").kind_of_item(1), std::runtime_error);
}

TEST(FormatProgram, TakesWhatPrintfTakesWhereNumbersAreMissing) {
    EXPECT_EQ(steps_of("(i,f,f10)").substr(0, 16), "i0.1 f0.6 f10.6 ");
}

TEST(FormatProgram, RefusesWhatItCannotEdit) {
    for (const char* const format :
         {"(q5)", "i5", "(g10.3)", "(d10.3)", "(l1)", "(z4)", "(e)", "(-1p,e12.4)", "(i05)",
          "(f010.3)", "(i63)", "(i5.63)", "(f256.1)", "(e256.1)", "(t5,a)", "(2)", "(5001(2i1))"}) {
        EXPECT_THROW(FormatProgram{format}, std::runtime_error) << format;
    }
    EXPECT_EQ(steps_of("(i62.62)").substr(0, 7), "i62.62 ");
    EXPECT_EQ(steps_of("(e255.1)").substr(0, 7), "e255.1 ");
}

TEST(FormatPrograms, TakeEachFormatApartOnce) {
    FormatPrograms programs;
    const FormatProgram& first = programs.of("(i5)");
    const FormatProgram& second = programs.of("(i6)");
    EXPECT_EQ(&programs.of(std::string("(i5)")), &first);
    EXPECT_EQ(&programs.of("(i6)"), &second);
    // The same place in memory with another text in it.
    std::string format = "(a1)";
    EXPECT_EQ(programs.of(format).format(), "(a1)");
    format[2] = '2';
    EXPECT_EQ(programs.of(format).format(), "(a2)");
}

} // namespace
} // namespace korvat::test
