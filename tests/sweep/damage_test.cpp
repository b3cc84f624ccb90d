// Tests of the damaged copies of a deck.
#include "damage.hpp"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

// The copies of a deck by kind.
std::map<std::string, std::vector<std::string>> copies_of(const std::string& deck) {
    const Damages damages(deck);
    std::map<std::string, std::vector<std::string>> copies;
    for (std::size_t i = 0; i < damages.count(); ++i) {
        const DamagedDeck damaged = damages.copy(i);
        copies[std::string(damage_kinds()[damaged.kind])].push_back(damaged.text);
    }
    return copies;
}

TEST(Damages, AreAllThatAreDue) {
    const std::string deck = " 1 2.5\nEND";
    auto copies = copies_of(deck);
    EXPECT_EQ(copies.size(), 16U);
    EXPECT_EQ(Damages(deck).count(), 10U + 3 * 2 + 12 * 3);
    EXPECT_EQ(copies["cut at a byte"],
              (std::vector<std::string>{"", " ", " 1", " 1 ", " 1 2", " 1 2.", " 1 2.5", " 1 2.5\n",
                                        " 1 2.5\nE", " 1 2.5\nEN"}));
    EXPECT_EQ(copies["line dropped"], (std::vector<std::string>{"END", " 1 2.5\n"}));
    EXPECT_EQ(copies["line doubled"],
              (std::vector<std::string>{" 1 2.5\n 1 2.5\nEND", " 1 2.5\nENDEND"}));
    // The last line has no neighbour below.
    EXPECT_EQ(copies["lines swapped"], (std::vector<std::string>{"END\n 1 2.5", deck}));
    EXPECT_EQ(copies["token removed"],
              (std::vector<std::string>{"  2.5\nEND", " 1 \nEND", " 1 2.5\n"}));
    EXPECT_EQ(copies["token by -1"],
              (std::vector<std::string>{" -1 2.5\nEND", " 1 -1\nEND", " 1 2.5\n-1"}));
    EXPECT_EQ(copies["token by 200 digits"].front().size(), deck.size() + 199);
}

TEST(Damages, SeparateTokensAtTabsAndLineEnds) {
    auto copies = copies_of("\t1,2\r\n\n*3");
    EXPECT_EQ(copies["token by 0"], (std::vector<std::string>{"\t0\r\n\n*3", "\t1,2\r\n\n0"}));
    EXPECT_EQ(copies["line dropped"].at(1), "\t1,2\r\n*3");
}

TEST(Damages, HaveNoCopyBeyondTheLast) {
    EXPECT_EQ(Damages("").count(), 0U);
    EXPECT_THROW((void)Damages("").copy(0), std::out_of_range);
}

} // namespace
} // namespace korvat::test
