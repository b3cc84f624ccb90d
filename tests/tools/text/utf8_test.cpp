// Characters in UTF-8.
#include "text/utf8.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using text::character_length;

TEST(Utf8, LengthsOfCharacters) {
    EXPECT_EQ(character_length("a\x80"), 1U);
    EXPECT_EQ(character_length("\xC3\xA4"
                               "b"),
              2U);
    EXPECT_EQ(character_length("\xE9\x9B\xAA"), 3U);
    EXPECT_EQ(character_length("\xF0\x9F\x98\x80"), 4U);
}

// The first and the last character of each length, and what lies just beside them.
TEST(Utf8, BoundsOfEachLength) {
    EXPECT_EQ(character_length("\x7F"), 1U);
    EXPECT_EQ(character_length("\x80"), 0U);
    EXPECT_EQ(character_length("\xC1\xBF"), 0U);
    EXPECT_EQ(character_length("\xC2\x80"), 2U);
    EXPECT_EQ(character_length("\xDF\xBF"), 2U);
    EXPECT_EQ(character_length("\xE0\x9F\xBF"), 0U);
    EXPECT_EQ(character_length("\xE0\xA0\x80"), 3U);
    EXPECT_EQ(character_length("\xED\x9F\xBF"), 3U);
    EXPECT_EQ(character_length("\xED\xA0\x80"), 0U); // half of a pair
    EXPECT_EQ(character_length("\xEE\x80\x80"), 3U);
    EXPECT_EQ(character_length("\xEF\xBF\xBF"), 3U);
    EXPECT_EQ(character_length("\xF0\x8F\xBF\xBF"), 0U);
    EXPECT_EQ(character_length("\xF0\x90\x80\x80"), 4U);
    EXPECT_EQ(character_length("\xF4\x8F\xBF\xBF"), 4U);
    EXPECT_EQ(character_length("\xF4\x90\x80\x80"), 0U);
    EXPECT_EQ(character_length("\xF5\x80\x80\x80"), 0U);
}

TEST(Utf8, CutCharactersAreNone) {
    EXPECT_EQ(character_length("\xC3"), 0U);
    EXPECT_EQ(character_length("\xE9\x9B"), 0U);
    EXPECT_EQ(character_length("\xE9\x9B"
                               "a"),
              0U);
    EXPECT_EQ(character_length("\xF0\x9F\x98"), 0U);
    EXPECT_EQ(character_length("\xC3\xC3"), 0U);
}

TEST(Utf8, BytesBehindTheFirst) {
    EXPECT_TRUE(text::is_continuation('\x80'));
    EXPECT_TRUE(text::is_continuation('\xBF'));
    EXPECT_FALSE(text::is_continuation('\x7F'));
    EXPECT_FALSE(text::is_continuation('\xC0'));
}

} // namespace
} // namespace korvat::test
