// Tests of list-directed reads: what is a value, what separates values, what is refused.
#include "fortran/list_directed.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {
namespace {

using fortran::ListDirected;
using Result = ListDirected::Result;
using Texts = std::vector<std::string>;

constexpr Result is_value = Result::value;
constexpr Result is_bad = Result::bad_value;
constexpr Result is_end = Result::end_of_text;

// The result for the first value of a line, and the value, which starts at 99.
template <typename Value>
struct Taken {
    Result result;
    Value value;
};

template <typename Value>
Taken<Value> first_of(std::string_view line) {
    ListDirected list;
    list.add_line(line);
    Value value = 99;
    const Result result = list.take(value);
    return {result, value};
}

void expect_integer(std::string_view text, int value) {
    const auto taken = first_of<int>(text);
    EXPECT_EQ(taken.result, is_value) << text;
    EXPECT_EQ(taken.value, value) << text;
}

void expect_real(std::string_view text, double value) {
    const auto taken = first_of<double>(text);
    EXPECT_EQ(taken.result, is_value) << text;
    EXPECT_EQ(taken.value, value) << text;
}

// A refused value leaves the variable as it was.
void expect_no_integer(std::string_view text) {
    const auto taken = first_of<int>(text);
    EXPECT_EQ(taken.result, is_bad) << text;
    EXPECT_EQ(taken.value, 99) << text;
}

void expect_no_real(std::string_view text) {
    const auto taken = first_of<double>(text);
    EXPECT_EQ(taken.result, is_bad) << text;
    EXPECT_EQ(taken.value, 99.0) << text;
}

std::string zeros(std::size_t count) {
    return std::string(count, '0');
}

// All integers of the lines until one is missing or bad.
std::vector<int> integers(const Texts& lines, Result last) {
    ListDirected list;
    for (const std::string& line : lines)
        list.add_line(line);
    std::vector<int> values;
    int value = 0;
    Result result = list.take(value);
    for (; result == is_value; result = list.take(value))
        values.push_back(value);
    EXPECT_EQ(result, last);
    return values;
}

using Integers = std::vector<int>;

TEST(ListDirectedInteger, AcceptsDigitsWithASign) {
    expect_integer("0", 0);
    expect_integer("17", 17);
    expect_integer("+17", 17);
    expect_integer("-17", -17);
    expect_integer("007", 7);
    expect_integer("-0", 0);
}

TEST(ListDirectedInteger, AcceptsTheWhole32BitRange) {
    expect_integer("2147483647", 2147483647);
    expect_integer("+2147483647", 2147483647);
    expect_integer("-2147483648", -2147483647 - 1);
    expect_integer(zeros(50) + "2147483647", 2147483647);
}

TEST(ListDirectedInteger, RefusesWhatPassesTheRange) {
    expect_no_integer("2147483648");
    expect_no_integer("+2147483648");
    expect_no_integer("-2147483649");
    expect_no_integer("4294967297"); // 1 in the lower 32 bits
    expect_no_integer("9" + zeros(110));
    expect_no_integer("-9" + zeros(5000));
}

TEST(ListDirectedInteger, RefusesEverythingElse) {
    for (const std::string text :
         {"1.0", "1.",  ".1", "1e0", "1d2", "2*3",  "1*",  "/",   "-",   "+",   "--1",
          "+-1", "-+1", "1-", "a",   "1a",  "0x10", "'1'", "1;2", "1/2", "NaN", "inf"}) {
        expect_no_integer(text);
    }
}

TEST(ListDirectedInteger, RefusesANulCharacter) {
    expect_no_integer(std::string("1\0", 2));
    expect_no_integer(std::string("\0", 1));
}

TEST(ListDirectedReal, AcceptsEveryPlainForm) {
    expect_real("0", 0.0);
    expect_real("5", 5.0);
    expect_real("+5", 5.0);
    expect_real("-5", -5.0);
    expect_real("5.", 5.0);
    expect_real(".5", 0.5);
    expect_real("-.5", -0.5);
    expect_real("+2.5", 2.5);
    expect_real("000.250", 0.25);
}

TEST(ListDirectedReal, AcceptsEveryExponentLetterAndSign) {
    for (const std::string text :
         {"5e2", "5E2", "5d2", "5D2", "5e+2", "5.0E+02", "5.D2", ".5D+3", "5000e-1"}) {
        expect_real(text, 500.0);
    }
}

TEST(ListDirectedReal, RefusesEverythingElse) {
    for (const std::string text :
         {"-",     "+",     ".",   "-.",    "e5",   ".e5", "1e",  "1e+", "1d-", "1+5", "1-5",
          "1.2.3", "1..",   "..1", "12abc", "0x10", "2*3", "1*",  "/",   "1/",  "--1", "+-1",
          "1e2e3", "1e2.5", "NaN", "inf",   "-inf", "'1'", "1f2", "1;2", "1q2"}) {
        expect_no_real(text);
    }
}

TEST(ListDirectedReal, RefusesANulCharacter) {
    expect_no_real(std::string("1\0", 2));
    expect_no_real(std::string("1.5\0e3", 6));
}

TEST(ListDirectedReal, ExponentsBeyond400AreRefused) {
    // Behind so many zeros the value itself is 1.0E308.
    expect_no_real("0." + zeros(92) + "1e401");
    expect_no_real("1" + zeros(93) + "e-401");
    expect_no_real("0e401");
    expect_no_real("0e-401");
    expect_no_real("1e-401");
    const auto at_limit = first_of<double>("0." + zeros(91) + "1e400");
    EXPECT_EQ(at_limit.result, is_value);
    EXPECT_NEAR(at_limit.value / 1.0e308, 1.0, 1e-13); // the conversion is not correctly rounded
}

TEST(ListDirectedReal, ExponentsOfThousandsOfDigitsAreRefused) {
    for (const std::string sign : {"", "+", "-"}) {
        expect_no_real("1e" + sign + std::string(4000, '9'));
        expect_no_real("0e" + sign + "1" + zeros(4000));
        expect_no_real("1.5D" + sign + "4294967296"); // 0 in the lower 32 bits
    }
    expect_real("5e" + zeros(4000) + "2", 500.0);
}

TEST(ListDirectedReal, TooLargeForADoubleIsRefused) {
    expect_no_real("1e309");
    expect_no_real("9e308");
    expect_no_real("-9e308");
    expect_no_real("1" + zeros(300) + "e20");
    expect_no_real("9" + zeros(400));
    expect_real("1" + zeros(22), 1.0e22); // exact powers of ten
}

TEST(ListDirectedReal, LongMantissas) {
    const auto long_one = first_of<double>("1" + zeros(118));
    EXPECT_EQ(long_one.result, is_value);
    EXPECT_NEAR(long_one.value / 1.0e118, 1.0, 1e-13);

    const auto nines = first_of<double>("1" + std::string(118, '9'));
    EXPECT_EQ(nines.result, is_value);
    EXPECT_NEAR(nines.value / 2.0e118, 1.0, 1e-13);

    const auto small = first_of<double>("0." + zeros(117) + "1");
    EXPECT_EQ(small.result, is_value);
    EXPECT_NEAR(small.value / 1.0e-118, 1.0, 1e-13);

    expect_real("0." + zeros(117), 0.0);
    expect_real(zeros(119), 0.0);
    expect_real(zeros(118) + "3", 3.0);
    expect_real("3." + zeros(117), 3.0);
}

// The mantissa adds to the written exponent; neither may lead out of the table of powers.
TEST(ListDirectedReal, LongMantissasWithLargeExponents) {
    const auto shifted = first_of<double>("1" + zeros(113) + "e-400");
    EXPECT_EQ(shifted.result, is_value);
    EXPECT_NEAR(shifted.value / 1.0e-287, 1.0, 1e-13);

    expect_no_real("1" + zeros(113) + "e400");
    expect_no_real("0." + zeros(112) + "1e-400");
    expect_no_real("-0." + zeros(111) + "1e-400"); // 1.0E-512, the first power beyond the table
    expect_no_real("1" + zeros(600));
    expect_no_real("0." + zeros(600) + "1");
    expect_no_real("0." + zeros(600));
    expect_no_real("1" + zeros(3000) + "e-400");
}

TEST(ListDirected, BlanksTabsAndLineEndsSeparate) {
    EXPECT_EQ(integers({"1 2   3"}, is_end), (Integers{1, 2, 3}));
    EXPECT_EQ(integers({"\t1\t2 \t 3\t"}, is_end), (Integers{1, 2, 3}));
    EXPECT_EQ(integers({"1", "2", "3"}, is_end), (Integers{1, 2, 3}));
    EXPECT_EQ(integers({"1 2\r", "3\r"}, is_end), (Integers{1, 2, 3}));
}

TEST(ListDirected, OneCommaDirectlyBehindAValueSeparates) {
    EXPECT_EQ(integers({"1,2,3"}, is_end), (Integers{1, 2, 3}));
    EXPECT_EQ(integers({"1, 2,\t3"}, is_end), (Integers{1, 2, 3}));
    EXPECT_EQ(integers({"1,", "2,", "3"}, is_end), (Integers{1, 2, 3}));
    EXPECT_EQ(integers({"1,2,"}, is_end), (Integers{1, 2}));
}

TEST(ListDirected, OtherCommasAreEmptyValues) {
    EXPECT_EQ(integers({"1 ,2"}, is_bad), (Integers{1}));
    EXPECT_EQ(integers({"1,,2"}, is_bad), (Integers{1}));
    EXPECT_EQ(integers({"1, ,2"}, is_bad), (Integers{1}));
    EXPECT_EQ(integers({"1", ",2"}, is_bad), (Integers{1}));
    EXPECT_EQ(integers({"1,", ",2"}, is_bad), (Integers{1}));
    expect_no_integer(",");
    expect_no_real(",1");
    expect_no_real(" ,1");
}

TEST(ListDirected, SlashAndRepeatCountAreNoValues) {
    EXPECT_EQ(integers({"1 / 2"}, is_bad), (Integers{1}));
    EXPECT_EQ(integers({"1 3*2"}, is_bad), (Integers{1}));
    EXPECT_EQ(integers({"1 3* 2"}, is_bad), (Integers{1}));
}

TEST(ListDirected, BlankLinesArePassedOver) {
    EXPECT_EQ(integers({"", "1", "   ", "\t", "", "2"}, is_end), (Integers{1, 2}));
}

TEST(ListDirected, NothingIsLeftAtTheEnd) {
    ListDirected list;
    int value = 99;
    EXPECT_EQ(list.take(value), is_end);
    list.add_line("");
    EXPECT_EQ(list.take(value), is_end);
    list.add_line(" 5 ");
    EXPECT_EQ(list.take(value), is_value);
    EXPECT_EQ(value, 5);
    EXPECT_EQ(list.take(value), is_end);
    EXPECT_EQ(value, 5);
}

TEST(ListDirected, IntegersAndRealsMix) {
    ListDirected list;
    list.add_line("1, 2.5 3");
    list.add_line("4.5 rest of the line");
    int first = 0;
    double second = 0.0;
    double third = 0.0;
    double fourth = 0.0;
    EXPECT_EQ(list.take(first), is_value);
    EXPECT_EQ(list.take(second), is_value);
    EXPECT_EQ(list.take(third), is_value);
    EXPECT_EQ(list.take(fourth), is_value);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2.5);
    EXPECT_EQ(third, 3.0);
    EXPECT_EQ(fourth, 4.5);
}

struct Place {
    int line;
    int column;

    friend bool operator==(const Place&, const Place&) = default;
};

// The place of each integer of the lines, in order, a refused one as well.
std::vector<Place> places_in(const Texts& lines) {
    ListDirected list;
    std::vector<Place> places;
    std::size_t given = 0;
    for (int value = 0;;) {
        if (list.take(value) != is_end) {
            const ListDirected::Position position = list.last_position();
            places.push_back({position.line, position.column});
        } else if (given < lines.size()) {
            list.add_line(lines[given++]);
        } else {
            return places;
        }
    }
}

TEST(ListDirectedPosition, IsTheLineAndTheColumnOfTheValue) {
    EXPECT_EQ(places_in({"1 22,  -3", "", "\t4"}),
              (std::vector<Place>{{0, 1}, {0, 3}, {0, 8}, {2, 2}}));
}

TEST(ListDirectedPosition, OfARefusedValueIsItsOwn) {
    EXPECT_EQ(places_in({" 1", "  x 2"}), (std::vector<Place>{{0, 2}, {1, 3}, {1, 5}}));
}

TEST(ListDirectedPosition, OfAnEmptyValueIsTheComma) {
    EXPECT_EQ(places_in({"1, ,2"}), (std::vector<Place>{{0, 1}, {0, 4}, {0, 5}}));
}

} // namespace
} // namespace korvat::test
