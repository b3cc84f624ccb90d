// Fixed-length texts: blank fill, cutting, columns.
#include "fortran/text.hpp"

#include <gtest/gtest.h>
#include <string>

namespace korvat::test {
namespace {

using fortran::last_non_blank;
using fortran::Text;
using fortran::trimmed;

TEST(Text, StartsBlank) {
    EXPECT_EQ(Text<5>().view(), "     ");
    EXPECT_TRUE(Text<5>().is_blank());
    EXPECT_EQ(Text<80>().view(), std::string(80, ' '));
}

TEST(Text, PadsAndCuts) {
    EXPECT_EQ(Text<5>("ab").view(), "ab   ");
    EXPECT_EQ(Text<5>("abcde").view(), "abcde");
    EXPECT_EQ(Text<5>("abcdefg").view(), "abcde");
    EXPECT_EQ(Text<5>("").view(), "     ");
}

TEST(Text, AssignmentLeavesNothingOfTheOldText) {
    Text<5> text("abcde");
    text.assign("x");
    EXPECT_EQ(text.view(), "x    ");
    text.fill_blank();
    EXPECT_TRUE(text.is_blank());
}

TEST(Text, AssignsFromAColumn) {
    Text<8> text("abcdefgh");
    text.assign_from(3, "XY", 2);
    EXPECT_EQ(text.view(), "abXYefgh");
    text.assign_from(3, "Z", 3);
    EXPECT_EQ(text.view(), "abZ  fgh");
    text.assign_from(1, "12345", 2);
    EXPECT_EQ(text.view(), "12Z  fgh");
}

TEST(Text, DropsWhatPassesItsLastColumn) {
    Text<8> text("abcdefgh");
    text.assign_from(7, "XYZ", 3);
    EXPECT_EQ(text.view(), "abcdefXY");
    text.assign_from(8, "1", 40);
    EXPECT_EQ(text.view(), "abcdefX1");
    text.assign_from(9, "no", 2);
    text.assign_from(0, "no", 2);
    text.assign_from(1000, "no", 2);
    EXPECT_EQ(text.view(), "abcdefX1");
}

TEST(Text, GivesColumns) {
    const Text<8> text("abcdefgh");
    EXPECT_EQ(text.columns(1, 1), "a");
    EXPECT_EQ(text.columns(3, 5), "cde");
    EXPECT_EQ(text.columns(7, 20), "gh");
    EXPECT_EQ(text.columns(8, 8), "h");
    EXPECT_EQ(text.columns(9, 12), "");
    EXPECT_EQ(text.columns(0, 3), "");
    EXPECT_EQ(text.columns(5, 4), "");
    EXPECT_EQ(text.first(3), "abc");
    EXPECT_EQ(text.first(0), "");
    EXPECT_EQ(text.first(20), "abcdefgh");
}

TEST(Text, ComparesEveryColumn) {
    EXPECT_EQ(Text<5>("ab"), Text<5>("ab   "));
    EXPECT_NE(Text<5>("ab"), Text<5>(" ab"));
    EXPECT_NE(Text<5>("ab"), Text<5>("AB"));
}

TEST(Text, IsBlankWithoutAnythingButBlanks) {
    EXPECT_TRUE(Text<4>("  ").is_blank());
    EXPECT_FALSE(Text<4>("   x").is_blank());
    EXPECT_FALSE(Text<4>("\t").is_blank());
    EXPECT_FALSE(Text<4>(std::string_view("\0", 1)).is_blank());
}

TEST(Text, KnowsItsLength) {
    EXPECT_EQ(Text<11>::length, 11U);
    EXPECT_EQ(Text<11>().view().size(), 11U);
}

TEST(Text, LosesItsTrailingBlanks) {
    EXPECT_EQ(last_non_blank("ab c  "), 4U);
    EXPECT_EQ(last_non_blank("abc"), 3U);
    EXPECT_EQ(last_non_blank("   "), 0U);
    EXPECT_EQ(last_non_blank(""), 0U);
    EXPECT_EQ(trimmed("  ab  "), "  ab");
    EXPECT_EQ(trimmed("    "), "");
    EXPECT_EQ(trimmed(""), "");
    EXPECT_EQ(trimmed("ab\t "), "ab\t");
}

} // namespace
} // namespace korvat::test
