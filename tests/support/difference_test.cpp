// Tests of the differences that a failing case shows.
#include "difference.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

const std::string head = "--- expected\n+++ found\n";

// Lines "PREFIX1" to "PREFIXcount".
std::string lines(const std::string& prefix, int count) {
    std::string text;
    for (int i = 1; i <= count; ++i)
        text += prefix + std::to_string(i) + "\n";
    return text;
}

TEST(SupportDifference, IsEmptyForEqualTexts) {
    EXPECT_EQ(text_difference("", ""), "");
    EXPECT_EQ(text_difference("a\nb\n", "a\nb\n"), "");
    EXPECT_EQ(byte_difference("a", "a"), "");
}

TEST(SupportDifference, ShowsTheLinesAround) {
    EXPECT_EQ(text_difference("1\n2\n3\n4\nx\n6\n7\n8\n9\n", "1\n2\n3\n4\n5\n6\n7\n8\n9\n"),
              head + "@@ -2,7 +2,7 @@\n 2\n 3\n 4\n-5\n+x\n 6\n 7\n 8");
    EXPECT_EQ(text_difference("b\n", "a\n"), head + "@@ -1,1 +1,1 @@\n-a\n+b");
}

TEST(SupportDifference, FindsLinesThatWereAddedOrLeftOut) {
    EXPECT_EQ(text_difference("a\nc\n", "a\nb\nc\n"), head + "@@ -1,3 +1,2 @@\n a\n-b\n c");
    EXPECT_EQ(text_difference("a\nb\nc\n", "a\nc\n"), head + "@@ -1,2 +1,3 @@\n a\n+b\n c");
    EXPECT_EQ(text_difference("a\n", ""), head + "@@ -0,0 +1,1 @@\n+a");
    EXPECT_EQ(text_difference("", "a\nb\n"), head + "@@ -1,2 +0,0 @@\n-a\n-b");
    // One line left out and another added keep the equal ones between them together.
    EXPECT_EQ(text_difference("b\nc\nd\ne\n", "a\nb\nc\nd\n"),
              head + "@@ -1,4 +1,4 @@\n-a\n b\n c\n d\n+e");
    // A line is equal to the right one of two: a b c a b b a and c b a b a c have four in common.
    EXPECT_EQ(text_difference("c\nb\na\nb\na\nc\n", "a\nb\nc\na\nb\nb\na\n"),
              head + "@@ -1,7 +1,6 @@\n-a\n-b\n c\n-a\n b\n+a\n b\n a\n+c");
}

TEST(SupportDifference, SeparatesDifferencesThatAreFarApart) {
    const std::string middle = lines("m", 7);
    EXPECT_EQ(text_difference("x\n" + middle + "y\n", "a\n" + middle + "b\n"),
              head + "@@ -1,4 +1,4 @@\n-a\n+x\n m1\n m2\n m3\n"
                     "@@ -6,4 +6,4 @@\n m5\n m6\n m7\n-b\n+y");
    // With six lines between them they are one.
    EXPECT_EQ(text_difference("x\n" + lines("m", 6) + "y\n", "a\n" + lines("m", 6) + "b\n"),
              head + "@@ -1,8 +1,8 @@\n-a\n+x\n m1\n m2\n m3\n m4\n m5\n m6\n-b\n+y");
}

TEST(SupportDifference, MakesEveryByteVisible) {
    EXPECT_EQ(text_difference("b \n", "b\n"), head + "@@ -1,1 +1,1 @@\n-b\n+b\xC2\xB7");
    EXPECT_EQ(text_difference("a b  \n\tc\r\n", "\xE9\x7F\n"),
              head + "@@ -1,1 +1,2 @@\n-\\xE9\\x7F\n+a b\xC2\xB7\xC2\xB7\n+\\x09c\\x0D");
    EXPECT_EQ(text_difference("a", "a\n"),
              head + "@@ -1,1 +1,2 @@\n a\n+(no line feed at the end)");
}

TEST(SupportDifference, IsCutAfterSixtyLines) {
    const std::string fits = text_difference("", lines("e", 59));
    EXPECT_TRUE(fits.ends_with("\n-e58\n-e59")) << fits;
    const std::string cut = text_difference("", lines("e", 60));
    EXPECT_TRUE(cut.ends_with("\n-e58\n-e59\n... more differs")) << cut;
}

TEST(SupportDifference, ComparesAThousandLinesOfEach) {
    // A line left out at the start, another one at the end: where the texts are cut nothing is seen.
    const std::string expected = "first\n" + lines("m", 5000) + "last\n";
    EXPECT_EQ(text_difference(lines("m", 5000) + "end\n", expected),
              head + "@@ -1,4 +1,3 @@\n-first\n m1\n m2\n m3\n... more differs");
    // Without an equal line all that is seen is shown.
    const std::string other = text_difference(lines("f", 5000), lines("e", 5000));
    EXPECT_TRUE(other.starts_with(head + "@@ -1,1000 +1,1000 @@\n-e1\n-e2\n")) << other;
    EXPECT_TRUE(other.ends_with("\n-e58\n-e59\n... more differs")) << other;
}

TEST(SupportDifference, ShowsTheBytesAround) {
    EXPECT_EQ(byte_difference("abc", "abd"),
              "first difference at offset 2; 3 bytes expected, 3 found\n"
              "- from 0: 61 62 [64]\n+ from 0: 61 62 [63]");
    EXPECT_EQ(byte_difference("0123456789:\xFF;<=>?@ABCDEF", "0123456789:"),
              "first difference at offset 11; 11 bytes expected, 24 found\n"
              "- from 3: 33 34 35 36 37 38 39 3A [end]\n"
              "+ from 3: 33 34 35 36 37 38 39 3A [FF] 3B 3C 3D 3E 3F 40 41 42");
}

} // namespace
} // namespace korvat::test
