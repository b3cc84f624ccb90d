// How values are written into a deck.
#include "study/value_format.hpp"

#include "study/study_error.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using study::formatted;
using study::plain;
using study::StudyError;
using study::value_format;

template <typename Value>
std::string written(const Value& value, const std::string& format) {
    try {
        return formatted(value, value_format(format));
    } catch (const StudyError& error) {
        return error.what();
    }
}

TEST(StudyFormat, WithoutOneAValueHasTheDigitsThatCount) {
    EXPECT_EQ(plain(0.05), "0.05");
    EXPECT_EQ(plain(1.829 - 2 * 0.045), "1.739"); // 1.7389999999999999 to the last digit
    EXPECT_EQ(plain(30.0), "30");
    EXPECT_EQ(plain(2.1e8), "2.1E8"); // shorter than 210000000
    EXPECT_EQ(plain(1500.0), "1500");
    EXPECT_EQ(plain(1.2e-5), "1.2E-5");
    EXPECT_EQ(plain(1.0e22), "1E22");
}

TEST(StudyFormat, FixedScientificAndWhole) {
    EXPECT_EQ(written(0.0508, "10.4f"), "    0.0508");
    EXPECT_EQ(written(2.0, ".3f"), "2.000");
    EXPECT_EQ(written(2.0, "8.3"), "   2.000");
    EXPECT_EQ(written(1234567.0, "f"), "1234567");
    EXPECT_EQ(written(2.1e8, "9.2e"), "   2.10E8");
    EXPECT_EQ(written(0.00012, "e"), "1.2E-4");
    EXPECT_EQ(written(1.0, ".1e"), "1.0E0");
    EXPECT_EQ(written(30.0, "5d"), "   30");
    EXPECT_EQ(written(-0.0, ".1f"), "0.0");
    EXPECT_EQ(written(1.5, "6"), "   1.5");
}

TEST(StudyFormat, RefusesWhatDoesNotFit) {
    EXPECT_EQ(written(123.456, "6.3f"), "'123.456' is wider than the 6 columns of its format");
    EXPECT_EQ(written(1.5, "d"), "1.5 is no whole number, as its format d wants");
    EXPECT_EQ(written(std::string_view("clay"), "6"), "  clay");
    EXPECT_EQ(written(std::string_view("clay"), "3"),
              "'clay' is wider than the 3 columns of its format");
    EXPECT_EQ(written(std::string_view("clay"), "6.2f"),
              "'clay' is no number, as its format wants");
}

TEST(StudyFormat, RefusesWhatIsNone) {
    for (const std::string text : {"", "f4", "4.", "4.2g", "121", "-4", "3.2d", "4.18f", "4 "})
        EXPECT_THROW((void)value_format(text), StudyError) << text;
}

} // namespace
} // namespace korvat::test
