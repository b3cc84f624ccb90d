// Tests of the nodes and elements of piles: stepping, limits, placing, copies and dummy piles.
#include "pile_fixture.hpp"

#include "compute/discretise.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvat::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

class Discretise : public PileTest {};

TEST_F(Discretise, SectionsStepAlongASegment) {
    give_segment(1, 2, 5, 3.0, 3);
    give_segment(2, 5, 2, 3.0, 3);
    give_segment(3, 4, 4, 2.0, 2);
    add_pile({0, 0, 0}, {0, 0, 3}, {1});
    add_pile({0, 0, 0}, {0, 0, 3}, {2});
    add_pile({0, 0, 0}, {0, 0, 8}, {3, 1, 2});
    EXPECT_TRUE(discretise_piles(cmn()));
    // 2 + 0.5 + 0.5, 2 + 1.5 + 0.5, 2 + 2.5 + 0.5
    EXPECT_EQ(sections(1), (std::vector{3, 4, 5}));
    // 5 - 0.5 + 0.5, 5 - 1.5 + 0.5, 5 - 2.5 + 0.5
    EXPECT_EQ(sections(2), (std::vector{5, 4, 3}));
    EXPECT_EQ(sections(3), (std::vector{4, 4, 3, 4, 5, 5, 4, 3}));
    EXPECT_EQ(log(), "");
}

TEST_F(Discretise, ManyElementsStepInTheMiddleOfEachNumbersReach) {
    give_segment(1, 1, 2, 4.0, 8); // midpoints 0.25, 0.75, ...; 2 from the distance 2 on
    give_segment(2, 1, 3, 1.0, 1); // 1 + 1 + 0.5
    add_pile({0, 0, 0}, {0, 0, 4}, {1});
    add_pile({0, 0, 0}, {0, 0, 1}, {2});
    EXPECT_TRUE(discretise_piles(cmn()));
    EXPECT_EQ(sections(1), (std::vector{1, 1, 1, 1, 2, 2, 2, 2}));
    EXPECT_EQ(sections(2), (std::vector{2}));
}

TEST_F(Discretise, SectionsStayBetweenTheEndsOfTheSegment) {
    for (int g = 1; g <= 60; ++g) {
        give_segment(g, g, 61 - g, 0.1 * g, 7 + g);
        add_pile({0, 0, 0}, {0, 0, 0.1 * g}, {g});
    }
    EXPECT_TRUE(discretise_piles(cmn()));
    for (int np = 1; np <= 60; ++np) {
        for (const int section : sections(np)) {
            EXPECT_GE(section, std::min(np, 61 - np));
            EXPECT_LE(section, std::max(np, 61 - np));
        }
    }
}

TEST_F(Discretise, FourHundredAndFiftyElementsAreAccepted) {
    give_segment(1, 1, 1, 450.0, 450);
    add_pile({0, 0, 0}, {0, 0, 450}, {1});
    EXPECT_TRUE(discretise_piles(cmn()));
    EXPECT_EQ(cmn().NELP(1), 450);
    EXPECT_EQ(node(451, 1), (Point{0, 0, 450}));
    EXPECT_EQ(cmn().ICREL(450, 1), 1);
    EXPECT_EQ(cmn().IERR, 0);
}

TEST_F(Discretise, OneMoreElementIsRefusedAndLaterPilesAreNotBuilt) {
    give_segment(1, 1, 1, 450.0, 450);
    give_segment(2, 1, 1, 1.0, 1);
    add_pile({0, 0, 0}, {0, 0, 1}, {2});
    add_pile({0, 0, 0}, {0, 0, 451}, {1, 2});
    add_pile({0, 0, 0}, {0, 0, 1}, {2});
    EXPECT_FALSE(discretise_piles(cmn()));
    EXPECT_EQ(cmn().IERR, 1);
    EXPECT_EQ(cmn().NELP(1), 1);
    EXPECT_EQ(cmn().NELP(3), 0);
    EXPECT_EQ(log(), "\n **** SR/BUILD : Too many nodes on pile NP\n"
                     " NP,ND,MAX =    2  452  451\n");
}

TEST_F(Discretise, VerticalPileByHand) {
    give_segment(1, 1, 1, 3.0, 2);
    give_segment(2, 1, 1, 5.0, 1);
    add_pile({7, -7, 2}, {7, -7, 10}, {1, 2});
    EXPECT_TRUE(discretise_piles(cmn()));
    EXPECT_EQ(cmn().NELP(1), 3);
    EXPECT_EQ(node(1, 1), (Point{7, -7, 2}));
    EXPECT_EQ(node(2, 1), (Point{7, -7, 3.5}));
    EXPECT_EQ(node(3, 1), (Point{7, -7, 5}));
    EXPECT_EQ(node(4, 1), (Point{7, -7, 10}));
}

TEST_F(Discretise, XAndYAreScaledByTheDistanceButZBySegments) {
    // Head to tip 13; the segments are 0.05 % longer.
    const double L1 = 13.0065;
    give_segment(1, 1, 1, L1, 2);
    add_pile({1, 2, 3}, {4, 6, 15}, {1});
    EXPECT_TRUE(discretise_piles(cmn()));
    const double half = 0.5 * L1;
    EXPECT_EQ(node(2, 1),
              (Point{half / 13.0 * 3.0 + 1.0, half / 13.0 * 4.0 + 2.0, 12.0 / L1 * half + 3.0}));
    // The last node is too far in x and y by 0.05 % of 3 and 4, and right in z.
    EXPECT_NEAR(cmn().XNOD(3, 1), 4.0015, 1e-12); // sums of rounded products
    EXPECT_NEAR(cmn().YNOD(3, 1), 6.002, 1e-12);
    EXPECT_NEAR(cmn().ZNOD(3, 1), 15.0, 1e-12);
}

TEST_F(Discretise, DistancesAreSummedUpElementByElement) {
    give_segment(1, 1, 1, 1.0, 10);
    add_pile({0, 0, 0}, {0, 0, 1}, {1});
    EXPECT_TRUE(discretise_piles(cmn()));
    const double le = 1.0 / 10;
    double s = 0.0;
    std::vector<double> distances = {s};
    for (int e = 1; e <= 10; ++e)
        distances.push_back(s = s + le);
    EXPECT_NE(s, 1.0); // ten tenths do not make one
    for (int n = 1; n <= 11; ++n) {
        EXPECT_EQ(cmn().ZNOD(n, 1), (1.0 / s) * distances[static_cast<std::size_t>(n - 1)]) << n;
    }
}

TEST_F(Discretise, LengthMayDifferByOneThousandth) {
    give_segment(1, 1, 1, 10.0, 1);
    add_pile({0, 0, 0}, {0, 0, 10.0099}, {1});
    EXPECT_TRUE(discretise_piles(cmn()));
    cmn().XTIP(3, 1) = 9.9901;
    EXPECT_TRUE(discretise_piles(cmn()));
    EXPECT_EQ(log(), "");
    cmn().XTIP(3, 1) = 10.0101;
    EXPECT_FALSE(discretise_piles(cmn()));
    EXPECT_EQ(cmn().IERR, 1);
    EXPECT_EQ(log(),
              "\n **** SR/BUILD : PILE LENGTH ERROR  NP,L1,L2=    1     10.0000     10.0101\n");
}

TEST_F(Discretise, LimitOfTheLengthIsTheSinglePrecisionOne) {
    // 1 + 0.001F is exact in double, and so is the root of its square.
    const double limit = 1.0 + static_cast<double>(0.001F);
    give_segment(1, 1, 1, 1.0, 1);
    add_pile({0, 0, 0}, {0, 0, limit}, {1});
    EXPECT_TRUE(discretise_piles(cmn()));
    cmn().XTIP(3, 1) = std::nextafter(limit, 2.0);
    EXPECT_FALSE(discretise_piles(cmn()));
}

TEST_F(Discretise, LaterPilesAreNotBuiltAfterALengthError) {
    give_segment(1, 1, 1, 10.0, 1);
    add_pile({0, 0, 0}, {0, 0, 12}, {1});
    add_pile({0, 0, 0}, {0, 0, 10}, {1});
    EXPECT_FALSE(discretise_piles(cmn()));
    EXPECT_EQ(cmn().NELP(2), 0);
}

// Pile 1 goes from (1, 2, 3) to (4, 6, 15): two elements of 6.5.
class Generated : public PileTest {
protected:
    Generated() {
        give_segment(1, 2, 3, 13.0, 2);
        add_pile({1, 2, 3}, {4, 6, 15}, {1});
    }

    void expect_pile(int np, const Point& head, const Point& middle, const Point& tip) {
        EXPECT_EQ(cmn().NELP(np), 2);
        EXPECT_EQ(sections(np), sections(1));
        EXPECT_EQ(node(1, np), head);
        EXPECT_EQ(node(2, np), middle);
        EXPECT_EQ(node(3, np), tip);
    }
};

TEST_F(Generated, CopyIsShiftedByItsHead) {
    const int np = add_generated(1, 0, {10, 20, 30});
    EXPECT_TRUE(discretise_piles(cmn()));
    expect_pile(1, {1, 2, 3}, {2.5, 4, 9}, {4, 6, 15});
    expect_pile(np, {11, 22, 33}, {12.5, 24, 39}, {14, 26, 45});
}

TEST_F(Generated, MirrorsAreNotShifted) {
    const int in_y = add_generated(1, 1, {10, 20, 30});
    const int in_x = add_generated(1, 2, {10, 20, 30});
    EXPECT_TRUE(discretise_piles(cmn()));
    expect_pile(in_y, {1, -2, 3}, {2.5, -4, 9}, {4, -6, 15});
    expect_pile(in_x, {-1, 2, 3}, {-2.5, 4, 9}, {-4, 6, 15});
}

TEST_F(Generated, MirrorOfAMirrorAndCopyOfACopy) {
    const int mirror = add_generated(1, 1, {0, 0, 0});
    const int both = add_generated(mirror, 2, {0, 0, 0});
    const int copy = add_generated(both, 0, {1, 1, 1});
    EXPECT_TRUE(discretise_piles(cmn()));
    expect_pile(both, {-1, -2, 3}, {-2.5, -4, 9}, {-4, -6, 15});
    expect_pile(copy, {0, -1, 4}, {-1.5, -3, 10}, {-3, -5, 16});
}

TEST_F(Generated, OtherCodesCopyWithoutShift) {
    const int np = add_generated(1, 3, {10, 20, 30});
    EXPECT_TRUE(discretise_piles(cmn()));
    expect_pile(np, {1, 2, 3}, {2.5, 4, 9}, {4, 6, 15});
}

TEST_F(Generated, DummyPilesAreCopiedToo) {
    const int dummy = add_pile({5, 6, 7}, {0, 0, 0}, {});
    const int copy = add_generated(dummy, 0, {1, 1, 1});
    EXPECT_TRUE(discretise_piles(cmn()));
    EXPECT_EQ(cmn().NELP(copy), 0);
    EXPECT_EQ(node(1, copy), (Point{6, 7, 8}));
}

TEST_F(Discretise, PileWithoutSegmentsIsOneNodeAtItsHead) {
    for (const int count : {0, -2, -2147483647}) {
        const int np = add_pile({1, 2, 3}, {4, 5, 6}, {});
        cmn().NSEGP(np) = count;
        cmn().NELP(np) = 9;
    }
    EXPECT_TRUE(discretise_piles(cmn()));
    for (int np = 1; np <= 3; ++np) {
        EXPECT_EQ(cmn().NELP(np), 0);
        EXPECT_EQ(node(1, np), (Point{1, 2, 3}));
    }
}

TEST_F(Discretise, LengthsThatAreNotFiniteDoNoHarm) {
    give_segment(1, 2, 5, infinity, 3);
    give_segment(2, 2, 5, 0.0, 3);
    give_segment(3, 2, 5, 1e-320, 3); // the slope is infinite
    const int with_infinity = add_pile({0, 0, 0}, {0, 0, 1}, {1});
    // Not a number compares as not greater, so the pile passes; its sections stay in reach.
    EXPECT_TRUE(discretise_piles(cmn()));
    for (const int section : sections(with_infinity)) {
        EXPECT_GE(section, 2);
        EXPECT_LE(section, 5);
    }
    for (const int g : {2, 3}) {
        const int np = add_pile({0, 0, 0}, {0, 0, 0}, {g});
        EXPECT_TRUE(discretise_piles(cmn()));
        for (const int section : sections(np)) {
            EXPECT_GE(section, 2);
            EXPECT_LE(section, 5);
        }
    }
    const int far = add_pile({-1e308, 0, 0}, {1e308, 0, 1}, {2});
    EXPECT_FALSE(discretise_piles(cmn()));
    EXPECT_EQ(log(), "\n **** SR/BUILD : PILE LENGTH ERROR  NP,L1,L2=    " + std::to_string(far) +
                         "      0.0000         inf\n");
}

} // namespace
} // namespace korvat::test
