// The name that a misspelt one probably meant.
#include "check/nearest_name.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using check::nearest_name;
using check::spelling_distance;

TEST(SpellingDistance, CountsLettersAndSwaps) {
    EXPECT_EQ(spelling_distance("", ""), 0U);
    EXPECT_EQ(spelling_distance("check", "check"), 0U);
    EXPECT_EQ(spelling_distance("", "dump"), 4U);
    EXPECT_EQ(spelling_distance("dump", ""), 4U);
    EXPECT_EQ(spelling_distance("chek", "check"), 1U);
    EXPECT_EQ(spelling_distance("checkk", "check"), 1U);
    EXPECT_EQ(spelling_distance("cheok", "check"), 1U);
    EXPECT_EQ(spelling_distance("hcekc", "check"), 2U); // two swaps
    EXPECT_EQ(spelling_distance("export", "check"), 6U);
}

TEST(NearestName, IsTheFirstOfTheNearest) {
    const std::vector<std::string> names{"check", "diff", "dump", "export", "--format"};
    EXPECT_EQ(nearest_name("chekc", names), "check");
    EXPECT_EQ(nearest_name("dmup", names), "dump");
    EXPECT_EQ(nearest_name("--fromat", names), "--format");
    EXPECT_EQ(nearest_name("exp", names), "export"); // its beginning
    EXPECT_EQ(nearest_name("dimp", names), "dump");
    EXPECT_EQ(nearest_name("aa", std::vector<std::string>{"ab", "ac"}), "ab");
}

TEST(NearestName, IsNoneWhereNothingIsNear) {
    const std::vector<std::string> names{"check", "diff", "dump"};
    EXPECT_EQ(nearest_name("x", names), std::nullopt);
    EXPECT_EQ(nearest_name("report", names), std::nullopt);
    EXPECT_EQ(nearest_name("cehkc", names), std::nullopt); // two swaps in five letters
    EXPECT_EQ(nearest_name("check", {}), std::nullopt);
}

} // namespace
} // namespace korvat::test
