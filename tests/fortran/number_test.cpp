// Numbers out of texts: which tokens are numbers, and that the runtime converts them.
#include "fortran/number.hpp"

#include <array>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>

namespace korvat::test {
namespace {

using fortran::convert_number;
using fortran::read_integers;
using fortran::Text;
using namespace std::string_view_literals;

std::optional<double> converted(std::string_view token) {
    return convert_number(token);
}

struct Accepted {
    std::string_view token;
    double value;
};

TEST(Number, HasThisForm) {
    const Accepted cases[] = {
        {"0", 0.0},       {"7", 7.0},        {"+7", 7.0},     {"-7", -7.0},         {"007", 7.0},
        {"250", 250.0},   {"7.", 7.0},       {"-7.", -7.0},   {".5", 0.5},          {"+.5", 0.5},
        {"-.5", -0.5},    {"0.5", 0.5},      {"1.25", 1.25},  {"00.50", 0.5},       {"0.0", 0.0},
        {"-0", 0.0},      {".0", 0.0},       {"0.", 0.0},     {"0.000025", 2.5e-5}, {"1e3", 1000.0},
        {"1E3", 1000.0},  {"1d3", 1000.0},   {"1D3", 1000.0}, {"1e+3", 1000.0},     {"1D+03", 1000},
        {"5e-1", 0.5},    {"5.D-1", 0.5},    {"-.5e1", -5.0}, {"1.25E0", 1.25},     {"1.e2", 100.0},
        {"1e0003", 1000}, {"1.25e+0", 1.25}, {"0e5", 0.0},    {"-2.5d-1", -0.25},
    };
    for (const Accepted& accepted : cases) {
        const std::optional<double> value = converted(accepted.token);
        ASSERT_TRUE(value.has_value()) << accepted.token;
        EXPECT_EQ(*value, accepted.value) << accepted.token;
    }
}

TEST(Number, HasNoOtherForm) {
    const std::string_view tokens[] = {
        "",      " ",        "+",       "-",    ".",        "+.",
        "-.",    "e",        "e5",      ".e5",  "+e5",      "1e",
        "1e+",   "1d-",      "1.5E",    "1.D+", "1,5",      "1,",
        ",1",    "12abc",    "abc",     "a1",   "1.2.3",    "1..2",
        "..5",   "1.2.",     "1+5",     "1-5",  "1e5.0",    "1e5e5",
        "1e5-",  "1ee5",     "1e+-5",   "--1",  "+-1",      "++1",
        "1 2",   "1. 5",     "- 1",     "0x10", "0X1P3",    "inf",
        "-inf",  "nan",      "NaN",     "Inf",  "INFINITY", "1f5",
        "1q5",   "1_8",      "1L",      "$1",   "1;",       "1/2",
        "2*3",   "'1'",      "\"1\"",   "1\t2", "1\r2",     "-\t1",
        "1\0"sv, "1\0002"sv, "\0001"sv, "\t",   "1\xA0",    "\xEF\xBC\x91",
        "\r\t",  "\t1\t2",   "1e\t5",   "\v1",  "1\f",      "1\n",
        "1\t,",  "\t1,5",    "0x10\t",  "1\b",
    };
    for (const std::string_view token : tokens) {
        EXPECT_FALSE(converted(token).has_value()) << '"' << token << '"';
    }
}

// As the runtime's own conversion has it, which passes over white space in front of a number.
TEST(Number, MayStandBetweenTabsAndCarriageReturns) {
    const Accepted cases[] = {{"\t1.5", 1.5},      {"1.5\t", 1.5},       {"\r-7", -7.0},
                              {"-7\r", -7.0},      {"\t\r\t.5", 0.5},    {".5\r\t\r", 0.5},
                              {"\t1e3\t", 1000.0}, {"\r+2.5d-1\r", 0.25}};
    for (const Accepted& accepted : cases) {
        const std::optional<double> value = converted(accepted.token);
        ASSERT_TRUE(value.has_value()) << accepted.token;
        EXPECT_EQ(*value, accepted.value) << accepted.token;
    }
    EXPECT_EQ(converted(std::string(49, '\t') + "7"), 7.0);
    EXPECT_EQ(converted("7" + std::string(49, '\r')), 7.0);
    EXPECT_FALSE(
        converted(std::string(50, '\t') + "7").has_value()); // the cut takes the digit away
}

TEST(Number, ThatBecomesInfiniteIsNone) {
    for (const std::string_view token :
         {"9e308", "-9e308", "1e309", "1e400", "1D999", "1e2147483648", "1e99999999999999999999",
          "999.5e306", "1000000000000000000000000000000000000000000000e280"}) {
        EXPECT_FALSE(converted(token).has_value()) << token;
    }
}

TEST(Number, OfAnExtremeExponentIsConverted) {
    // The runtime multiplies by powers of ten, each with its own rounding: a few units in the last
    // of 53 bits.
    constexpr double few_units = 1.0e-15;
    for (const Accepted& accepted : {Accepted{"1e308", 1.0e308}, Accepted{"-1.5e308", -1.5e308},
                                     Accepted{"0.09e309", 9.0e307}, Accepted{"1e-307", 1.0e-307}}) {
        const std::optional<double> value = converted(accepted.token);
        ASSERT_TRUE(value.has_value()) << accepted.token;
        EXPECT_NEAR(*value / accepted.value, 1.0, few_units) << accepted.token;
    }
}

TEST(Number, IsJudgedWithinFiftyCharacters) {
    EXPECT_EQ(converted(std::string(49, '0') + "7"), 7.0);
    EXPECT_EQ(converted("7." + std::string(48, '0')), 7.0);
    // The cut takes the letter away.
    EXPECT_EQ(converted(std::string(49, '0') + "7x"), 7.0);
    EXPECT_FALSE(converted(std::string(48, '0') + "7x").has_value());
    // And here the digits of the exponent.
    EXPECT_FALSE(converted(std::string(48, '0') + "7e5").has_value());
    EXPECT_EQ(converted(std::string(47, '0') + "7e55"), 7.0e5);
}

TEST(Number, HasSeventeenDigitsThatCount) {
    EXPECT_EQ(converted("1.00000000000000000000000000000000000000000000009"), 1.0);
    EXPECT_EQ(converted("0.00000000000000000000000000000000000000000000000"), 0.0);
}

// The runtime adds up its digits from the left, here 1 + 1 * 0.1 + 5 * 0.01, and then scales by a
// power of ten. The result is not the double nearest to the decimal number.
TEST(Number, IsRoundedAsTheRuntimeRounds) {
    const double due = ((1.0 + 0.1) + 5 * 0.01) * 10.0;
    ASSERT_NE(due, std::strtod("11.5", nullptr));
    EXPECT_EQ(converted("11.5"), due);
    EXPECT_EQ(converted("+11.50"), due);
    EXPECT_EQ(converted("-11.5"), -due);
    EXPECT_EQ(converted("1.7"), 1.0 + 7 * 0.1);
    ASSERT_NE(1.0 + 7 * 0.1, 1.7);
}

TEST(Number, LeavesItsFieldAlone) {
    const Text<50> field("1.5");
    EXPECT_EQ(convert_number(field.view()), 1.5);
    EXPECT_EQ(field, Text<50>("1.5"));
}

constexpr std::string_view date_format = "(16x,i4,1x,i2,1x,i2)";

std::array<int, 3> date_of(std::string_view line, bool readable) {
    std::array<int, 3> values = {-1, -2, -3};
    EXPECT_EQ(read_integers(line, date_format, values), readable) << line;
    return values;
}

TEST(Integers, AreReadFromTheirColumns) {
    EXPECT_EQ(date_of("KORVAT Version: 2006-06-11", true), (std::array<int, 3>{2006, 6, 11}));
    EXPECT_EQ(date_of("korvat version: 2009/ 9/ 1", true), (std::array<int, 3>{2009, 9, 1}));
    EXPECT_EQ(date_of("................-123x+4x05....", true), (std::array<int, 3>{-123, 4, 5}));
}

TEST(Integers, AreZeroInBlankColumns) {
    const Text<80> line("KORVAT Version: ");
    EXPECT_EQ(date_of(line.view(), true), (std::array<int, 3>{0, 0, 0}));
}

// The runtime by itself would read such a line for ever.
TEST(Integers, AreReadFromALineThatEndsWithACarriageReturn) {
    EXPECT_EQ(date_of("KORVAT Version: 2006-06-11\r", true), (std::array<int, 3>{2006, 6, 11}));
    EXPECT_EQ(date_of("KORVAT Version: 2006-06-1\r", false), (std::array<int, 3>{2006, 6, -3}));
    EXPECT_EQ(date_of("\r", true), (std::array<int, 3>{0, 0, 0}));
}

TEST(Integers, StopAtTheFirstThatCannotBeRead) {
    EXPECT_EQ(date_of("KORVAT Version: 20o6-06-11", false), (std::array<int, 3>{-1, -2, -3}));
    EXPECT_EQ(date_of("KORVAT Version: 2006-ab-11", false), (std::array<int, 3>{2006, -2, -3}));
    EXPECT_EQ(date_of("KORVAT Version: 2006-06-1x", false), (std::array<int, 3>{2006, 6, -3}));
    EXPECT_EQ(date_of("KORVAT Version: 2006-6-11", false), (std::array<int, 3>{2006, -2, -3}));
}

TEST(Integers, OfAnEmptyTextCannotBeRead) {
    EXPECT_EQ(date_of("", false), (std::array<int, 3>{-1, -2, -3}));
}

} // namespace
} // namespace korvat::test
