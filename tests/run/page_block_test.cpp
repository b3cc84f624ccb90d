// The block on which the identification page is composed, and the banner that stands on it.
#include "run/page_block.hpp"

#include "run/banner.hpp"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

using Lines = std::vector<std::string>;

// Lines with their blanks up to column 131.
Lines whole(Lines lines) {
    for (std::string& line : lines)
        line.resize(131, ' ');
    return lines;
}

TEST(PageBlock, StartsBlank) {
    EXPECT_EQ(PageBlock(3).lines(), whole({"", "", ""}));
    EXPECT_EQ(PageBlock(0).lines(), Lines());
}

TEST(PageBlock, PlacesByLineAndColumn) {
    PageBlock page(3);
    page.place(1, 1, "ab");
    page.place(3, 5, "cd");
    page.place(3, 1, "x");
    EXPECT_EQ(page.lines(), whole({"ab", "", "x   cd"}));
}

TEST(PageBlock, LaterTextsReplaceEarlierOnes) {
    PageBlock page(1);
    page.place(1, 1, "abcdef");
    page.place(1, 3, "X ");
    EXPECT_EQ(page.lines(), whole({"abX ef"}));
}

TEST(PageBlock, DropsWhatPassesTheLastColumn) {
    PageBlock page(1);
    page.place(1, 130, "abcd");
    EXPECT_EQ(page.lines(), whole({std::string(129, ' ') + "ab"}));
    page.place(1, 132, "no");
    page.place(1, 5000, "no");
    EXPECT_EQ(page.lines(), whole({std::string(129, ' ') + "ab"}));
}

TEST(PageBlock, DropsWhatLiesBeforeTheFirstColumn) {
    PageBlock page(2);
    page.place(1, 0, "abcd");
    page.place(2, -2, "abcd");
    EXPECT_EQ(page.lines(), whole({"bcd", "d"}));
    page.place(2, -100, "no");
    page.place(2, -1, "no");
    EXPECT_EQ(page.lines(), whole({"bcd", "d"}));
}

TEST(PageBlock, DropsLinesOutside) {
    PageBlock page(2);
    page.place(0, 1, "no");
    page.place(3, 1, "no");
    page.place(-7, 1, "no");
    EXPECT_EQ(page.lines(), whole({"", ""}));
}

TEST(PageBlock, DrawsAFrame) {
    PageBlock page(4);
    page.place(3, 3, "ab");
    page.draw_frame(2, 4, 2, 6);
    EXPECT_EQ(page.lines(), whole({"", " *****", " *ab *", " *****"}));
}

TEST(PageBlock, HoldsTheFrameWithinItsColumns) {
    PageBlock page(3);
    page.draw_frame(1, 3, -5, 200);
    const std::string edge(131, '*');
    EXPECT_EQ(page.lines(), whole({edge, "*" + std::string(129, ' ') + "*", edge}));
}

TEST(PageBlock, DrawsAFrameOfOneColumn) {
    PageBlock page(3);
    page.draw_frame(1, 3, 40, 40);
    const std::string star = std::string(39, ' ') + "*";
    EXPECT_EQ(page.lines(), whole({star, star, star}));
}

TEST(Banner, HasHalvesOfFiftyCharacters) {
    for (const BannerLine& line : banner()) {
        for (const std::string_view half : line) {
            EXPECT_EQ(half.size(), 50U);
            EXPECT_EQ(half.find_first_not_of(" *"), std::string_view::npos) << half;
            EXPECT_NE(half.find('*'), std::string_view::npos);
        }
    }
}

// Six letters, each in columns of its own: a column without an asterisk lies between two letters.
TEST(Banner, HasSixLetters) {
    int letters = 0;
    bool within = false;
    for (std::size_t column = 0; column < 100; ++column) {
        bool filled = false;
        for (const BannerLine& line : banner())
            filled = filled || line.at(column / 50)[column % 50] == '*';
        if (filled && !within) ++letters;
        within = filled;
    }
    EXPECT_EQ(letters, 6);
}

} // namespace
} // namespace korvat::test
