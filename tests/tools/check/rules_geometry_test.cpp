// The rules on piles in space, each with a deck that it speaks of and one just beside it.
#include "rule_fixture.hpp"

#include "check/clearance.hpp"

namespace korvat::test {
namespace {

constexpr std::string_view pile_1 = "  1  0   0    0.0  0.0  -1.0  0.0  0.0  -1.0";
constexpr std::string_view pile_2 = "  2  0   0    3.0  2.0  0.0   3.0  2.0  24.0";
constexpr std::string_view pile_3 = "  3  2   2    0.0  0.0  0.0   0.0  0.0  0.0";
constexpr std::string_view pile_4 = "  4  0   0    3.0  -2.0 0.0   10.0 -2.0 24.0";

std::string with_pile_1(std::string_view line) {
    return changed(sound_deck, pile_1, line);
}
std::string with_pile_2(std::string_view line) {
    return changed(sound_deck, pile_2, line);
}
std::string with_pile_3(std::string_view line) {
    return changed(sound_deck, pile_3, line);
}
std::string with_pile_4(std::string_view line) {
    return changed(sound_deck, pile_4, line);
}

const std::string clash_remedy =
    "Move a head or a tip, or change a batter, until they pass each other.";

TEST(GeometryRules, ClashOfRakedPiles) {
    const std::string rule = "pile-clash";
    // Pile 4 passes pile 2, which is vertical at x = 3, y = 2, half-way down.
    EXPECT_EQ(found_by(rule, with_pile_4("  4  0   0   -0.5  2.9  0.0   6.5  2.9  24.0")),
              (Findings{warning(rule, {35, 3, 1},
                                "piles 2 and 4 overlap by 0.1 at z = 12: their axes are 0.9 apart "
                                "and their radii add up to 1",
                                clash_remedy)}));
    EXPECT_EQ(found_by(rule, with_pile_4("  4  0   0   -0.5  3.0  0.0   6.5  3.0  24.0")),
              Findings{});
}

TEST(GeometryRules, ClashWhereTheDiameterChanges) {
    // The lower 13 m of pile 4 have 0.6 m; above them, 12 m down the pile at z = 11.52 and x = 2.86, it
    // has 1.0 m. The axes are (0.14^2 + 0.95^2)^0.5 = 0.96026 apart there.
    const std::string deck = changed(with_pile_4("  4  0   0   -0.5  2.95 0.0   6.5  2.95 24.0"),
                                     "  3  1    1.0       0.020", "  3  1    0.6       0.020");
    EXPECT_EQ(found_by("pile-clash", deck),
              (Findings{warning("pile-clash", {35, 3, 1},
                                "piles 2 and 4 overlap by 0.0397 at z = 11.52: their axes are "
                                "0.9603 apart and their radii add up to 1",
                                clash_remedy)}));
}

TEST(GeometryRules, ClashOfParallelPiles) {
    const std::string rule = "pile-clash";
    EXPECT_EQ(found_by(rule, with_pile_3("  3  2   0    0.0  0.9  0.0   0.0  0.0  0.0")),
              (Findings{warning(rule, {34, 3, 1},
                                "piles 2 and 3 overlap by 0.1 at z = 0: their axes are 0.9 apart "
                                "and their radii add up to 1",
                                clash_remedy)}));
    EXPECT_EQ(found_by(rule, with_pile_3("  3  2   0    0.0  1.0  0.0   0.0  0.0  0.0")),
              Findings{});
    // A millionth of the radii is rounding.
    EXPECT_EQ(
        found_by(rule, with_pile_3("  3  2   0    0.0  0.99999899 0.0  0.0  0.0  0.0")).size(), 1U);
    EXPECT_EQ(found_by(rule, with_pile_3("  3  2   0    0.0  0.99999901 0.0  0.0  0.0  0.0")),
              Findings{});
}

TEST(GeometryRules, NoClashOfPilesThatPartFromOneHead) {
    const std::string pair = with_pile_4("  4  0   0    3.0  2.0  0.0   10.0 2.0  24.0");
    EXPECT_EQ(CheckedDeck(pair).all_findings(), Findings{});
    // Beside one another they overlap, and nobody means that.
    const std::string beside = with_pile_4("  4  0   0    3.0  2.5  0.0   10.0 2.5  24.0");
    const Findings found = found_by("pile-clash", beside);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().message, "piles 2 and 4 overlap by 0.5 at z = 0: their axes are 0.5 "
                                     "apart and their radii add up to 1");
}

TEST(GeometryRules, ClashOfPilesThatDoNotPart) {
    // From one head, 0.7 m apart at the tip.
    const std::string deck = changed(with_pile_4("  4  0   0    3.0  2.0  0.0   3.7  2.0  24.0"),
                                     "  3  3      3    13.0 ", "  3  3      3    12.0 ");
    const Findings found = found_by("pile-clash", deck);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().message, "piles 2 and 4 overlap by 1 at z = 0: their axes are 0 apart "
                                     "and their radii add up to 1");
}

TEST(GeometryRules, HeadsThatCoincide) {
    const std::string rule = "heads-coincide";
    const auto free = [](const std::string& deck) {
        return changed(deck, "  2   4    0    1", "  2   3    0    1\n  4   4    0    0");
    };
    const std::string pair = with_pile_4("  4  0   0    3.0  2.0  0.0   10.0 2.0  24.0");
    EXPECT_EQ(found_by(rule, free(pair)),
              (Findings{warning(rule, {35, 3, 1},
                                "piles 2 and 4 have the same head, (3, 2, 0), and are not fixed to "
                                "the same pile",
                                "Move one of them, or fix both to one dummy pile if they meet on "
                                "purpose.")}));
    EXPECT_EQ(found_by(rule, pair), Findings{});
    // A hundredth of the radii is the same point.
    const std::string near = with_pile_4("  4  0   0    3.0099 2.0 0.0  10.0099 2.0 24.0");
    EXPECT_EQ(found_by(rule, free(near)).size(), 1U);
    const std::string apart = with_pile_4("  4  0   0    3.0101 2.0 0.0  10.0101 2.0 24.0");
    EXPECT_EQ(found_by(rule, free(apart)), Findings{});
}

TEST(GeometryRules, PilesThatAreEqual) {
    const std::string rule = "pile-duplicate";
    // On the plane x = 0 a pile is its own mirror.
    EXPECT_EQ(
        found_by(rule, with_pile_2("  2  0   0    0.0  2.0  0.0   0.0  2.0  24.0")),
        (Findings{warning(rule, {34, 3, 1},
                          "piles 2 and 3 have the same head, (0, 2, 0), and the same tip, (0, "
                          "2, 24)",
                          "Take one of them out; a pile on the mirror plane is its own "
                          "mirror.")}));
    EXPECT_EQ(found_by(rule, with_pile_2("  2  0   0    0.006 2.0 0.0   0.006 2.0 24.0")),
              Findings{});
    EXPECT_EQ(found_by("pile-clash", with_pile_2("  2  0   0    0.0  2.0  0.0   0.0  2.0  24.0")),
              Findings{});
}

TEST(GeometryRules, TipAboveHead) {
    const std::string rule = "tip-above-head";
    EXPECT_EQ(found_in_refused(rule, with_pile_4("  4  0   0   10.0  -2.0 24.0  3.0 -2.0  0.0")),
              (Findings{warning(rule, {35, 41, 3},
                                "the tip of pile 4 at z = 0 is above its head at z = 24",
                                "Exchange head and tip, or change the sign of z: +z points "
                                "downwards.")}));
    EXPECT_EQ(
        found_in_refused(rule, with_pile_3("  3  2   0    0.0  4.0  1.0   0.0  0.0  0.5")),
        (Findings{warning(rule, {34, 41, 3},
                          "the z of the tip of pile 3, 0.5, is less than the z of its shift, 1",
                          "Repeat the z of the shift as the z of the tip, which is not used "
                          "otherwise.")}));
    EXPECT_EQ(found_by(rule, with_pile_3("  3  2   0    0.0  4.0  1.0   0.0  0.0  1.0")),
              Findings{});
    // The program takes this for rounding.
    EXPECT_EQ(found_by(rule, with_pile_1("  1  0   0    0.0  0.0  5.0E-11 0.0  0.0   0.0")),
              Findings{});
}

TEST(GeometryRules, ExchangedAxes) {
    const std::string rule = "axes-exchanged";
    EXPECT_EQ(found_by(rule, with_pile_4("  4  0   0    0.0  -2.0 3.0   24.0 -2.0 10.0")),
              (Findings{warning(rule, {35, 31, 4}, "pile 4 runs 24 in x and only 7 downwards",
                                "Check whether x and z are exchanged.")}));
    EXPECT_EQ(found_by(rule, with_pile_4("  4  0   0    3.0  -2.0 0.0   3.0 -26.0 7.0")),
              (Findings{warning(rule, {35, 35, 5}, "pile 4 runs 24 in y and only 7 downwards",
                                "Check whether y and z are exchanged.")}));
    // 22.4 to 11.1 is 1:2.02, and 22.3 to 11.3 is 1:1.97.
    EXPECT_EQ(found_by(rule, with_pile_4("  4  0   0    0.0  -2.0 0.0  22.4  -2.0 11.1")).size(),
              1U);
    const std::string flat = with_pile_4("  4  0   0    0.0  -2.0 0.0  22.3  -2.0 11.3");
    EXPECT_EQ(found_by(rule, flat), Findings{});
    EXPECT_EQ(found_by("batter-flat", flat).size(), 1U);
}

TEST(GeometryRules, FlatBatter) {
    const std::string rule = "batter-flat";
    EXPECT_EQ(found_by(rule, with_pile_4("  4  0   0    3.0  -2.0 0.0   23.0 -2.0 15.0")),
              (Findings{warning(rule, {35, 41, 4},
                                "pile 4 runs 20 horizontally and 15 downwards, flatter than 1:1",
                                "Check head and tip.")}));
    EXPECT_EQ(found_by(rule, with_pile_4("  4  0   0    0.0  -2.0 0.0  17.8  -2.0 17.555")).size(),
              1U);
    EXPECT_EQ(found_by(rule, with_pile_4("  4  0   0    0.0  -2.0 0.0  17.555 -2.0 17.8")),
              Findings{});
}

TEST(GeometryRules, CapBelowItsPiles) {
    const std::string rule = "cap-below-piles";
    EXPECT_EQ(found_by(rule, with_pile_1("  1  0   0    0.0  0.0   1.0  0.0  0.0   1.0")),
              (Findings{warning(rule, {32, 26, 3},
                                "pile 1, to which 3 piles are fixed, is at z = 1, below the lowest "
                                "of their heads at z = 0",
                                "Check the sign of z: +z points downwards, and a cap is above its "
                                "piles.")}));
    EXPECT_EQ(found_by(rule, with_pile_1("  1  0   0    0.0  0.0   0.0  0.0  0.0   0.0")),
              Findings{});
}

TEST(GeometryRules, ShiftOfAMirror) {
    const std::string rule = "mirror-shift";
    EXPECT_EQ(found_by(rule, with_pile_3("  3  2   2    0.0  5.0  0.0   0.0  0.0  0.0")),
              (Findings{warning(rule, {34, 20, 3},
                                "pile 3 is a mirror of pile 2: its coordinate 5 is not used",
                                "Give zeros; for a mirror that is shifted too, give the pile "
                                "itself.")}));
    // The head and the tip that it has.
    EXPECT_EQ(found_by(rule, with_pile_3("  3  2   2   -3.0  2.0  0.0  -3.0  2.0  24.0")),
              Findings{});
}

TEST(GeometryRules, CoordinatesForAShift) {
    const std::string rule = "copy-shift-absolute";
    const std::string deeper = with_pile_2("  2  0   0    3.0  2.0  2.0   3.0  2.0  26.0");
    EXPECT_EQ(
        found_by(rule, changed(deeper, pile_3, "  3  2   0    0.0  4.0  2.0   0.0  0.0  26.0")),
        (Findings{warning(rule, {34, 25, 3},
                          "pile 3 is shifted by z = 2, which is the z of the head of its source, "
                          "pile 2: its head is at z = 4",
                          "Give the shift from the source, not the coordinates of the head.")}));
    EXPECT_EQ(
        found_by(rule, changed(deeper, pile_3, "  3  2   0    0.0  4.0  2.5   0.0  0.0  26.0")),
        Findings{});
}

TEST(GeometryRules, CopyOfACopy) {
    const std::string rule = "copy-of-copy";
    const std::string copy = with_pile_3("  3  2   0    0.0  4.0  0.0   0.0  0.0  0.0");
    const auto with_copy = [&](std::string_view line) {
        return changed(changed(copy, pile_4, line), "  4  2     1 3\n", "");
    };
    EXPECT_EQ(found_by(rule, with_copy("  4  3   0    0.0  5.0  0.0   0.0  0.0  0.0")),
              (Findings{note(rule, {35, 6, 1},
                             "pile 4 is a copy of pile 3, itself a copy of pile 2: the shifts add "
                             "up to (0, 9, 0)",
                             "Check the shift, or copy pile 2 itself.")}));
    EXPECT_EQ(found_by(rule, with_copy("  4  2   0    0.0  9.0  0.0   0.0  0.0  0.0")), Findings{});
    EXPECT_EQ(found_by(rule, with_copy("  4  3   2    0.0  0.0  0.0   0.0  0.0  0.0")), Findings{});
}

TEST(GeometryRules, LengthNearItsLimit) {
    const std::string rule = "length-near-limit";
    EXPECT_EQ(
        found_by(rule, with_pile_2("  2  0   0    3.0  2.0  0.0   3.0  2.0  24.01224")),
        (Findings{warning(rule, {33, 41, 8},
                          "pile 2 is 24.0122 long from head to tip and its segments 24: 0.051 "
                          "% apart, where more than 0.1 % is an error",
                          "Move the tip, or give the last segment the rest of the length.")}));
    EXPECT_EQ(found_by(rule, with_pile_2("  2  0   0    3.0  2.0  0.0   3.0  2.0  24.0119")),
              Findings{});
    // Beyond the limit the program says so itself.
    EXPECT_EQ(
        found_in_refused(rule, with_pile_2("  2  0   0    3.0  2.0  0.0   3.0  2.0  24.0250")),
        Findings{});
}

TEST(GeometryRules, DummyWithATip) {
    const std::string rule = "dummy-with-tip";
    const std::string deck = with_pile_1("  1  0   0    0.0  0.0  -1.0  0.0  0.0   5.0");
    EXPECT_EQ(found_by(rule, deck),
              (Findings{warning(rule, {37, 6, 1},
                                "pile 1 has no segments and becomes a dummy pile, but its tip is 6 "
                                "from its head",
                                "List its segment types; for a dummy pile, repeat the head as the "
                                "tip.")}));
    EXPECT_EQ(found_by(rule, with_pile_1("  1  0   0    0.0  0.0  5.0E-11 0.0  0.0   0.0")),
              Findings{});
}

group::Pile pile_between(const group::Node& head, const group::Node& tip, double diameter) {
    group::Pile pile;
    pile.nodes = {head, tip};
    pile.elements = {{.diameter = diameter}};
    return pile;
}

TEST(Clearance, OfTwoPiles) {
    const auto pile = [](std::array<double, 3> head, std::array<double, 3> tip, double diameter) {
        return pile_between({head[0], head[1], head[2], {}, {}, {}},
                            {tip[0], tip[1], tip[2], {}, {}, {}}, diameter);
    };
    const group::Pile vertical = pile({0, 0, 0}, {0, 0, 10}, 2.0);
    const auto expect = [&](const group::Pile& other, double gap, double radii,
                            std::array<double, 3> point) {
        for (const auto& found :
             {check::least_clearance(vertical, other), check::least_clearance(other, vertical)}) {
            ASSERT_TRUE(found.has_value());
            EXPECT_NEAR(found->gap, gap, 1e-12);
            EXPECT_NEAR(found->radii, radii, 1e-12);
            for (std::size_t i = 0; i < 3; ++i)
                EXPECT_NEAR(found->point[i], point[i], 1e-12) << i;
        }
    };
    expect(pile({-5, 1, 4}, {5, 1, 4}, 1.0), -0.5, 1.5, {0, 0.5, 4});   // across
    expect(pile({1, 0, 0}, {1, 0, 10}, 1.0), -0.5, 1.5, {0.5, 0, 0});   // beside it
    expect(pile({0, 0, 11}, {0, 0, 20}, 1.0), -0.5, 1.5, {0, 0, 10.5}); // below it
    expect(pile({1, 0, 2}, {9, 0, 8}, 1.0), -0.5, 1.5, {0.5, 0, 2});    // away from it
    EXPECT_FALSE(check::least_clearance(vertical, pile({1.6, 0, 0}, {1.6, 0, 10}, 1.0)));
    EXPECT_FALSE(check::least_clearance(vertical, pile({0, 0, 11.6}, {0, 0, 20}, 1.0)));
}

} // namespace
} // namespace korvat::test
