// Tests of the whole build: its order, and the checks of tip codes and fixings.
#include "pile_fixture.hpp"

#include "compute/build.hpp"

namespace korvat::test {
namespace {

constexpr std::string_view fixed_1_to_2 =
    "\n **** SR/BUILD : PILE 001 FIXED TO 002 , THIS IS NOT A DUMMY PILE\n";

std::string tip_code_error(const std::string& values) {
    return "\n **** SR/BUILD : TIP CODE ERROR  NP,ND,ICTIP=" + values + "\n";
}

// Piles 1 and 2 have three elements, pile 3 is a dummy.
class Build : public PileTest {
protected:
    Build() {
        cmn().IREV = 4;
        cmn().NUMMAT = 1;
        cmn().NUMCRS = 1;
        cmn().MATCRS(1) = 1;
        cmn().EMOD(1) = 8.0;
        cmn().DIAM(1) = 2.0;
        cmn().WALL(1) = 0.5;
        give_segment(1, 1, 1, 6.0, 3);
        add_pile({0, 0, 0}, {0, 0, 6}, {1});
        add_pile({9, 0, 0}, {9, 0, 6}, {1});
        add_pile({4, 0, -1}, {0, 0, 0}, {});
    }

    std::string built() {
        build(cmn());
        return log();
    }
};

TEST_F(Build, FormsSectionsAndPiles) {
    EXPECT_EQ(built(), "");
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_EQ(cmn().CRSVAL(1, 1), 2.0);
    EXPECT_NEAR(cmn().CRSVAL(3, 1), 2.35619449, 1e-8); // 1.5 * 0.5 * pi, to 8 places
    EXPECT_EQ(cmn().CRSVAL(16, 1), 0.0);               // not formed for revision 4
    EXPECT_EQ(cmn().NELP(1), 3);
    EXPECT_EQ(cmn().NELP(3), 0);
    EXPECT_EQ(cmn().NUMCRS, 1);
}

TEST_F(Build, NegativeTipCodeMustBeBelowTheNumberOfNodes) {
    cmn().ITIP(1) = -3;
    EXPECT_EQ(built(), "");
    cmn().ITIP(1) = -4;
    EXPECT_EQ(built(), tip_code_error("    1    4   -4"));
    EXPECT_EQ(cmn().IERR, 1);
}

TEST_F(Build, TipCodeOfADummyPile) {
    cmn().ITIP(3) = -1;
    EXPECT_EQ(built(), tip_code_error("    3    1   -1"));
}

TEST_F(Build, LowestTipCodeIsRefusedLikeAnyOther) {
    cmn().ITIP(1) = -2147483647 - 1;
    EXPECT_EQ(built(), tip_code_error("    1    4-2147483648"));
    EXPECT_EQ(cmn().IERR, 1);
}

TEST_F(Build, PositiveTipCodesAreNotChecked) {
    cmn().ITIP(1) = 3;
    cmn().ITIP(3) = 3;
    EXPECT_EQ(built(), "");
    EXPECT_EQ(cmn().IERR, 0);
}

TEST_F(Build, PileMayBeFixedToADummyPileOnly) {
    cmn().ITIP(1) = -1;
    cmn().IFIX(1) = 3;
    EXPECT_EQ(built(), "");
    cmn().IFIX(1) = 2;
    EXPECT_EQ(built(), fixed_1_to_2);
    EXPECT_EQ(cmn().IERR, 1);
}

TEST_F(Build, FixingIsNotCheckedWithAPositiveTipCode) {
    cmn().IFIX(1) = 2;
    EXPECT_EQ(built(), "");
    EXPECT_EQ(cmn().IERR, 0);
}

TEST_F(Build, ErrorsOfEveryPileAreReported) {
    cmn().ITIP(1) = -9;
    cmn().IFIX(1) = 2;
    cmn().ITIP(2) = -1;
    cmn().IFIX(2) = 1;
    cmn().ITIP(3) = -1;
    EXPECT_EQ(built(), tip_code_error("    1    4   -9") + std::string(fixed_1_to_2) +
                           "\n **** SR/BUILD : PILE 002 FIXED TO 001 , THIS IS NOT A DUMMY PILE\n" +
                           tip_code_error("    3    1   -1"));
    EXPECT_EQ(cmn().IERR, 1);
}

TEST_F(Build, GeneratedPileIsCheckedWithItsOwnNodes) {
    const int np = add_generated(1, 0, {1, 1, 1});
    cmn().ITIP(np) = -4;
    EXPECT_EQ(built(), tip_code_error("    4    4   -4"));
}

TEST_F(Build, TipsAreNotCheckedAfterALengthError) {
    cmn().ITIP(1) = -9;
    cmn().XTIP(3, 2) = 8.0;
    EXPECT_EQ(built(),
              "\n **** SR/BUILD : PILE LENGTH ERROR  NP,L1,L2=    2      6.0000      8.0000\n");
    EXPECT_EQ(cmn().IERR, 1);
}

TEST_F(Build, CompositesOfRevision5AreAppended) {
    cmn().IREV = 5;
    cmn().NUMCRS = 2;
    cmn().ITYCRS(1) = 2; // of sections 3 and 4
    cmn().ITYCRS(2) = 1;
    for (const int i : {2, 3, 4}) {
        cmn().MATCRS(i) = 1;
        cmn().DIAM(i) = 2.0;
        cmn().WALL(i) = 0.5;
    }
    EXPECT_EQ(built(), "");
    EXPECT_EQ(cmn().NUMCRS, 4);
    EXPECT_EQ(cmn().CRSVAL(3, 1), 2 * cmn().CRSVAL(3, 2));
    EXPECT_EQ(cmn().MATCRS(1), 0);
}

} // namespace
} // namespace korvat::test
