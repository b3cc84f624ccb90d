// Columns that each edit descriptor gives, and what is done where the runtime has limits.
#include "runtime_fixture.hpp"

#include "fortran/internal_write.hpp"

#include <cmath>
#include <cstdint>
#include <limits>

namespace korvat::test {
namespace {

using fortran::characters;
using fortran::edited;
using fortran::right_justified;
using fortran::Text;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

class Edit : public RuntimeTest {};

TEST_F(Edit, IntegersAreRightJustified) {
    EXPECT_EQ(written("(i5)", 42), "   42\n");
    EXPECT_EQ(written("(i5)", -42), "  -42\n");
    EXPECT_EQ(written("(i5)", 0), "    0\n");
    EXPECT_EQ(written("(i9)", 12), "       12\n");
    EXPECT_EQ(written("(2i1,i2)", 4, 7, 3), "47 3\n");
    EXPECT_EQ(written("(3i5)", 1, 22, 333), "    1   22  333\n");
}

TEST_F(Edit, IntegersGetTheDigitsAskedFor) {
    EXPECT_EQ(written("(i2.2)", 6), "06\n");
    EXPECT_EQ(written("(i3.3)", 7), "007\n");
    EXPECT_EQ(written("(i4.3)", 12), " 012\n");
    EXPECT_EQ(written("(i5.4)", 206), " 0206\n");
    EXPECT_EQ(written("(i10.9)", -5), "-000000005\n");
    EXPECT_EQ(written("(i10.10)", 0), "0000000000\n");
    EXPECT_EQ(written("(i10.10)", 2147483647), "2147483647\n");
}

TEST_F(Edit, IntegersAroundEightDigits) {
    EXPECT_EQ(written("(i8,'|')", 99999999), "99999999|\n");
    EXPECT_EQ(written("(i8,'|')", -99999999), "-99999999|\n");
    EXPECT_EQ(written("(i12,'|')", 100000000), "   100000000|\n");
    EXPECT_EQ(written("(i16,'|')", -7), "              -7|\n");
    EXPECT_EQ(written("(i17,'|')", -7), "               -7|\n");
    EXPECT_EQ(written("(i9.8,'|')", 42), " 00000042|\n");
    EXPECT_EQ(written("(i4.0,'|')", 0), "    |\n");
}

TEST_F(Edit, IntegersWidenTheirField) {
    EXPECT_EQ(written("(i5,'|')", 123456), "123456|\n");
    EXPECT_EQ(written("(i5,'|')", -12345), "-12345|\n");
    EXPECT_EQ(written("(i5,'|')", std::numeric_limits<int>::min()), "-2147483648|\n");
    EXPECT_EQ(written("(2i1,'|')", 10, 3), "103|\n");
    EXPECT_EQ(written("(i3.3,'|')", 1000), "1000|\n");
}

TEST_F(Edit, RealsHaveAFixedPoint) {
    EXPECT_EQ(written("(f10.3)", 12.3456), "    12.346\n");
    EXPECT_EQ(written("(f10.3)", -1.5), "    -1.500\n");
    EXPECT_EQ(written("(f7.3)", 0.05), "  0.050\n");
    EXPECT_EQ(written("(f7.3)", 0.0), "  0.000\n");
    EXPECT_EQ(written("(f12.4)", 1234.56789), "   1234.5679\n");
    // The double next to 1.0005 lies below it.
    EXPECT_EQ(written("(f10.3)", 1.0005), "     1.000\n");
}

// Eight digits are put together at once; beside them lie the values that take another way.
TEST_F(Edit, RealsAroundEightDigits) {
    EXPECT_EQ(written("(f10.3)", 99999.999), " 99999.999\n");
    EXPECT_EQ(written("(f10.3)", 99999.9995), "100000.000\n"); // the double next to it lies above
    EXPECT_EQ(written("(f10.3)", 100000.0), "100000.000\n");
    EXPECT_EQ(written("(f20.7)", 9.9999999), "           9.9999999\n");
    EXPECT_EQ(written("(f20.7)", -9.9999999), "          -9.9999999\n");
    EXPECT_EQ(written("(f20.7)", 10.0), "          10.0000000\n");
    EXPECT_EQ(written("(f12.1)", 1234567.8), "   1234567.8\n");
    EXPECT_EQ(written("(f12.1)", 12345678.9), "  12345678.9\n");
    EXPECT_EQ(written("(f12.8)", 1.5), "  1.50000000\n");
    EXPECT_EQ(written("(f5.0)", 2.5), "    2\n");
    EXPECT_EQ(written("(f3.2,'|')", -1.25), "-1.25|\n");
    EXPECT_EQ(written("(f16.7,'|')", -1.5), "      -1.5000000|\n");
    EXPECT_EQ(written("(f17.7,'|')", -1.5), "       -1.5000000|\n");
}

// An eighth and its multiples are exact: the last digit of a tie is even.
TEST_F(Edit, RealsHalfwayGoToTheEvenDigit) {
    EXPECT_EQ(written("(4f8.2)", 0.125, 0.375, 0.625, 0.875), "    0.12    0.38    0.62    0.88\n");
    EXPECT_EQ(written("(2f8.1)", -0.25, -0.75), "    -0.2    -0.8\n");
    EXPECT_EQ(written("(f12.7)", 0.00048828125), "   0.0004883\n");      // 2^-11
    EXPECT_EQ(written("(f12.7)", 0.000244140625), "   0.0002441\n");     // 2^-12
    EXPECT_EQ(written("(f12.7)", 0.00024415), "   0.0002441\n");         // the double lies below
    EXPECT_EQ(written("(f12.7)", 0.00024405), "   0.0002440\n");         // here too
    EXPECT_EQ(written("(2f8.3)", 0.0005, 0.0004), "   0.001   0.000\n"); // 0.0005 lies above
    EXPECT_EQ(written("(2f8.3)", -0.0, -0.0001), "  -0.000  -0.000\n");
}

TEST_F(Edit, RealsWidenTheirField) {
    EXPECT_EQ(written("(f7.3,'|')", 12345.678), "12345.678|\n");
    EXPECT_EQ(written("(f10.3,'|')", -123456789.5), "-123456789.500|\n");
    // Just fits.
    EXPECT_EQ(written("(f10.3,'|')", -12345.678), "-12345.678|\n");
}

TEST_F(Edit, RealsUpTo63CharactersArePrinted) {
    // The double next to 2e58 is 19999999999999998876238979948827261631594308857026393931776:
    // 59 digits, the point and three decimals are 63 characters.
    const std::string digits = "19999999999999998876238979948827261631594308857026393931776";
    ASSERT_EQ(digits.size(), 59U);
    EXPECT_EQ(written("(f10.3,'|')", 2.0e58), digits + ".000|\n");
    EXPECT_EQ(written("(f10.2,'|')", -2.0e58), "-" + digits + ".00|\n");
}

TEST_F(Edit, LongerRealsBecomeAsterisks) {
    EXPECT_EQ(written("(f10.3,'|')", 2.0e59), "**********|\n");
    EXPECT_EQ(written("(f10.3,'|')", -2.0e58), "**********|\n"); // its sign is the 64th
    EXPECT_EQ(written("(f10.4,'|')", 2.0e58), "**********|\n");
    EXPECT_EQ(written("(f7.3,'|')", 1.7e308), "*******|\n");
    EXPECT_EQ(written("(i5,2f7.3,i4)", 1, 2.0e59, 0.5, 2), "    1*******  0.500   2\n");
}

TEST_F(Edit, WhatIsNotFiniteIsNamedUnderF) {
    EXPECT_EQ(written("(f10.3,'|')", infinity), "       inf|\n");
    EXPECT_EQ(written("(f10.3,'|')", -infinity), "      -inf|\n");
    EXPECT_EQ(written("(f12.4,'|')", std::copysign(not_a_number, 1.0)), "         nan|\n");
    EXPECT_EQ(written("(f12.4,'|')", std::copysign(not_a_number, -1.0)), "        -nan|\n");
    EXPECT_EQ(written("(i5,2f7.3,i4)", 1, -infinity, 0.5, 2), "    1   -inf  0.500   2\n");
    // Too wide for its field.
    EXPECT_EQ(written("(f3.1,'|')", -infinity), "-inf|\n");
}

TEST_F(Edit, WhatIsNotFiniteBecomesAsterisksUnderE) {
    for (const double value : {infinity, -infinity, not_a_number}) {
        EXPECT_EQ(written("(e12.4,'|')", value), "************|\n");
    }
    EXPECT_EQ(written("(i5,2e12.4)", 3, infinity, 0.5), "    3************  0.5000E+00\n");
}

TEST_F(Edit, ExponentsHaveTwoDigits) {
    EXPECT_EQ(written("(e12.4)", 0.5), "  0.5000E+00\n");
    EXPECT_EQ(written("(e12.4)", 2.1e8), "  0.2100E+09\n");
    EXPECT_EQ(written("(e12.4)", -0.025), " -0.2500E-01\n");
    EXPECT_EQ(written("(e12.4)", 0.0), "  0.0000E+00\n");
    EXPECT_EQ(written("(e12.4)", 1.2e-5), "  0.1200E-04\n");
    // 0.999996E+06 rounds to 1.0000E+06, which is 0.1000E+07.
    EXPECT_EQ(written("(e12.4)", 999996.0), "  0.1000E+07\n");
    EXPECT_EQ(written("(e12.4)", 9.87654e99), "  0.9877+100\n");
}

TEST_F(Edit, ExponentsOfThreeDigitsStayInTheField) {
    for (const double value :
         {1.0e308, -1.0e308, std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
          std::numeric_limits<double>::denorm_min(), -std::numeric_limits<double>::denorm_min(),
          1.0e-310, 1.0e100, 1.0e-100, 1.0e-101}) {
        const std::string line = written("(e12.4,'|')", value);
        EXPECT_EQ(line.size(), 14U) << line;
        EXPECT_EQ(line.substr(12), "|\n") << line;
        EXPECT_EQ(line.find('-') < 3, value < 0.0) << line;
    }
}

TEST_F(Edit, TheScaleFactorMovesThePoint) {
    EXPECT_EQ(written("(1p,2e12.3)", 0.5, -2.1e8), "   5.000E-01  -2.100E+08\n");
    EXPECT_EQ(written("(i4,1p,e12.3,0p,f8.3)", 1, 1234.0, 0.25), "   1   1.234E+03   0.250\n");
    EXPECT_EQ(written("(1p,e12.3,'|')", infinity), "************|\n");
}

TEST_F(Edit, TextsAreLeftJustifiedAndCut) {
    EXPECT_EQ(written("(a11,'|')", characters("7.6.0.81")), "7.6.0.81   |\n");
    EXPECT_EQ(written("(a11,'|')", Text<10>("7.6.0.81")), "7.6.0.81   |\n");
    EXPECT_EQ(written("(a11,'|')", Text<11>("04-Feb-2020")), "04-Feb-2020|\n");
    EXPECT_EQ(written("(a3,'|')", characters("JANUARY")), "JAN|\n");
    EXPECT_EQ(written("(a3,'|')", Text<5>("ABCDE")), "ABC|\n");
    EXPECT_EQ(written("(a4,'|')", characters("")), "    |\n");
}

TEST_F(Edit, TextsAreRightJustifiedOnRequest) {
    EXPECT_EQ(written("(a11,'|')", right_justified(Text<10>("7.6.0.81").view())), " 7.6.0.81  |\n");
    EXPECT_EQ(written("(a11,'|')", right_justified("7.6.0.81")), "   7.6.0.81|\n");
    EXPECT_EQ(written("(a11,'|')", right_justified("04-Feb-2020")), "04-Feb-2020|\n");
}

TEST_F(Edit, TextsWithoutWidthAreWrittenWhole) {
    EXPECT_EQ(written("(a)", characters("abc  ")), "abc  \n");
    EXPECT_EQ(written("(1x,a)", Text<6>("abc")), " abc   \n");
    EXPECT_EQ(written("(1x,2a)", characters("abc"), characters("de")), " abcde\n");
    EXPECT_EQ(written("(a)", characters("")), "\n");
}

TEST_F(Edit, LongTextsAndManyBlanksAreWrittenWhole) {
    const std::string text(70000, 'k');
    EXPECT_EQ(written("(a,200x,a)", characters(text), characters("|")),
              text + std::string(200, ' ') + "|\n");
    EXPECT_EQ(written("('" + text + "')"), text + "\n");
    EXPECT_EQ(written("(a130,'|')", characters("k")), "k" + std::string(129, ' ') + "|\n");
}

TEST_F(Edit, BlanksBetweenItemsAreWritten) {
    EXPECT_EQ(written("(16x,i4,1x,i2)", 2006, 6), "                2006  6\n");
    EXPECT_EQ(written("('AT',2x,2i1)", 0, 9), "AT  09\n");
}

TEST_F(Edit, BlanksAtTheEndOfARecordAreNot) {
    EXPECT_EQ(written("(a,1x)", characters("A")), "A\n");
    EXPECT_EQ(written("(30(a,1x))", characters("K"), characters("o")), "K o\n");
}

TEST_F(Edit, SlashesEndLines) {
    EXPECT_EQ(written("(/,/)"), "\n\n\n");
    EXPECT_EQ(written("(a,/)", characters("A")), "A\n\n");
    EXPECT_EQ(written("(/,' A',/,' ')"), "\n A\n \n");
    EXPECT_EQ(written("(' A',/,/,' B')"), " A\n\n B\n");
}

TEST_F(Edit, QuotedTextsKeepTheirApostrophes) {
    EXPECT_EQ(written("('it''s',' ''x')"), "it's 'x\n");
    EXPECT_EQ(written("(10x,3('12'),'\"')"), "          121212\"\n");
}

TEST_F(Edit, TheFormatIsUsedAgainForMoreItems) {
    EXPECT_EQ(written("(i5)", 1, 2), "    1\n    2\n");
    EXPECT_EQ(written("(i5,3f10.3)", 1, 1.0, 2.0, 3.0, 2, 4.0, 5.0, 6.0),
              "    1     1.000     2.000     3.000\n    2     4.000     5.000     6.000\n");
}

TEST_F(Edit, AnInternalWriteFillsItsField) {
    EXPECT_EQ(edited(10, "(i10.10)", 17), "0000000017");
    EXPECT_EQ(edited(8, "(i5)", 17), "   17   ");
    EXPECT_EQ(edited(3, "(i5.5)", 12345), "123");
    EXPECT_EQ(edited(60, "(30(a,1x))", characters("K"), characters("o"), characters("r")),
              "K o r" + std::string(55, ' '));
    EXPECT_EQ(edited(12, "(f10.3)", infinity), "       inf  ");
    EXPECT_EQ(edited(4, "(a)", characters("")), "    ");
}

} // namespace
} // namespace korvat::test
