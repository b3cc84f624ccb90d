// Tests of the pile geometry section: scaling, checks, omitted piles.
#include "section_fixture.hpp"

#include <cmath>

namespace korvat::test {
namespace {

class GeometrySection : public SectionTest {
protected:
    GeometrySection() { cmn().NUMPIL = 1; }

    Cause read_piles(const std::vector<std::string>& records) {
        return read_section(read_pile_geometry, under_headings(2, records));
    }

    std::string log_of(const std::vector<std::string>& records) {
        const std::size_t start = log().size();
        EXPECT_EQ(read_piles(records), Cause::bad_value) << records.back();
        return log().substr(start);
    }

    // Head x, y, z and tip x, y, z.
    std::vector<double> points(int NP) {
        return {cmn().XHEAD(1, NP), cmn().XHEAD(2, NP), cmn().XHEAD(3, NP),
                cmn().XTIP(1, NP),  cmn().XTIP(2, NP),  cmn().XTIP(3, NP)};
    }
};

std::string tip_above_head(const std::string& values) {
    return "\n **** SR/READPI : Pile tip is located above pile head\n"
           " Co-ordinate system to be used has +Z pointing downwards\n"
           " Pile,z-head,ztip=" +
           values + "\n";
}

std::string bad_pile(const std::string& values) {
    return "\n **** SR/READPI : PILE,NGEN,NSYM=" + values + "\n";
}

TEST_F(GeometrySection, StoresEveryPileScaled) {
    cmn().NUMPIL = 3;
    set_factors(7.0, 0.3048);
    EXPECT_EQ(read_piles({"1 0 0 1 2 3 4 5 6", "2 1 2 0 0 0 0 0 0", "3 2 0 11 0 0 0 0 0"}),
              Cause::none);
    EXPECT_EQ(points(1),
              (std::vector{0.3048, 2 * 0.3048, 3 * 0.3048, 4 * 0.3048, 5 * 0.3048, 6 * 0.3048}));
    EXPECT_EQ(cmn().NGEN(2), 1);
    EXPECT_EQ(cmn().NSYM(2), 2);
    EXPECT_EQ(cmn().NGEN(3), 2);
    EXPECT_EQ(cmn().NSYM(3), 0);
    EXPECT_EQ(points(3)[0], 11 * 0.3048);
    EXPECT_EQ(cmn().NLINE, 6);
    EXPECT_EQ(in.LOC, 603);
    EXPECT_EQ(log(), "");
}

TEST_F(GeometrySection, OmittedPilesStandAtThirds) {
    cmn().NUMPIL = 4;
    cmn().NGEN(2) = 9; // overwritten
    cmn().NSYM(3) = 9;
    EXPECT_EQ(read_piles({"1 0 0 0 3 0 -3 0 30", "4 0 0 6 0 3 0 9 33"}), Cause::none);
    EXPECT_EQ(points(2), (std::vector{2.0, 2.0, 1.0, -2.0, 3.0, 31.0}));
    EXPECT_EQ(points(3), (std::vector{4.0, 1.0, 2.0, -1.0, 6.0, 32.0}));
    for (const int p : {2, 3}) {
        EXPECT_EQ(cmn().NGEN(p), 0);
        EXPECT_EQ(cmn().NSYM(p), 0);
    }
    EXPECT_EQ(in.LOC, 602);
}

TEST_F(GeometrySection, OmittedPilesAreSummedUpStepByStep) {
    cmn().NUMPIL = 11;
    EXPECT_EQ(read_piles({"1 0 0 0 0 0 0 0 1", "11 0 0 1 0 0 0 0 1"}), Cause::none);
    const double step = 1.0 / 10;
    double x = 0.0;
    for (int p = 2; p <= 10; ++p) {
        x = x + step;
        EXPECT_EQ(cmn().XHEAD(1, p), x) << p;
    }
    EXPECT_NE(x, 9 * step); // the last of the sums tells the two ways apart
    EXPECT_EQ(cmn().XHEAD(1, 11), 1.0);
}

TEST_F(GeometrySection, NumbersMustIncreaseFromOne) {
    cmn().NUMPIL = 9;
    const std::string first_not_1 = "\n **** SR/READPI : FIRST PILE IN GEOMET TABLE NOT NO. 1\n";
    EXPECT_EQ(log_of({"2 0 0 0 0 0 0 0 1"}), first_not_1);
    EXPECT_EQ(log_of({"0 0 0 0 0 0 0 0 1"}), first_not_1);
    EXPECT_EQ(log_of({"1e300 0 0 0 0 0 0 0 1"}), first_not_1);
    const std::string first = "1 0 0 0 0 0 0 0 1";
    const std::string text = "\n **** SR/READPI : PILE GEOMETRY SEQUENCE ERROR";
    EXPECT_EQ(log_of({first, first}), text + "    1    1\n");
    EXPECT_EQ(log_of({first, "-1e300 0 0 0 0 0 0 0 1"}), text + "-2147483648    1\n");
}

TEST_F(GeometrySection, TipMustNotLieAboveTheHead) {
    EXPECT_EQ(log_of({"1 0 0 0 0 2 0 0 1.5"}), tip_above_head("    1     2.000     1.500"));
    EXPECT_EQ(read_piles({"1 0 0 0 0 2 0 0 2"}), Cause::none);
    cmn().TOL = 0.5;
    EXPECT_EQ(read_piles({"1 0 0 0 0 2 0 0 1.5"}), Cause::none); // just not below -TOL
    EXPECT_EQ(log_of({"1 0 0 0 0 2 0 0 1.25"}), tip_above_head("    1     2.000     1.250"));
}

TEST_F(GeometrySection, TipOfAGeneratedPileIsCheckedToo) {
    cmn().NUMPIL = 2;
    EXPECT_EQ(log_of({"1 0 0 0 0 0 0 0 1", "2 1 0 0 0 3 0 0 0"}),
              tip_above_head("    2     3.000     0.000"));
}

TEST_F(GeometrySection, TipIsCheckedBeforeTheNumber) {
    EXPECT_EQ(log_of({"1 5 9 0 0 2 0 0 1"}), tip_above_head("    1     2.000     1.000"));
    cmn().NUMPIL = 200;
    const std::string first = "1 0 0 0 0 0 0 0 1";
    EXPECT_EQ(log_of({first, "201 0 0 0 0 2 0 0 1"}), tip_above_head("  201     2.000     1.000"));
    EXPECT_EQ(log_of({first, "1e300 0 0 0 0 2 0 0 1"}),
              tip_above_head("2147483647     2.000     1.000"));
}

TEST_F(GeometrySection, SourceAndGenerationCodeHaveLimits) {
    cmn().NUMPIL = 2;
    const std::string first = "1 0 0 0 0 0 0 0 1";
    const std::string points_of_2 = " 0 0 0 0 0 1";
    EXPECT_EQ(log_of({"1 1 0 0 0 0 0 0 1"}), bad_pile("    1    1    0"));
    EXPECT_EQ(log_of({first, "2 -1 0" + points_of_2}), bad_pile("    2   -1    0"));
    EXPECT_EQ(log_of({first, "2 2 0" + points_of_2}), bad_pile("    2    2    0"));
    EXPECT_EQ(log_of({first, "2 1 -1" + points_of_2}), bad_pile("    2    1   -1"));
    EXPECT_EQ(log_of({first, "2 1 3" + points_of_2}), bad_pile("    2    1    3"));
    EXPECT_EQ(log_of({first, "3 0 0" + points_of_2}), bad_pile("    3    0    0"));
}

TEST_F(GeometrySection, HugeIntegers) {
    cmn().NUMPIL = 200;
    const std::string first = "1 0 0 0 0 0 0 0 1";
    EXPECT_EQ(log_of({first, "1e300 0 0 0 0 0 0 0 1"}), bad_pile("2147483647    0    0"));
    EXPECT_EQ(log_of({first, "201 0 0 0 0 0 0 0 1"}), bad_pile("  201    0    0"));
    EXPECT_EQ(log_of({first, "2 1e300 0 0 0 0 0 0 1"}), bad_pile("    22147483647    0"));
    EXPECT_EQ(log_of({first, "2 -1e300 0 0 0 0 0 0 1"}), bad_pile("    2-2147483648    0"));
    EXPECT_EQ(log_of({first, "2 1 1e300 0 0 0 0 0 1"}), bad_pile("    2    12147483647"));
    EXPECT_EQ(log_of({first, "2 1 -1e300 0 0 0 0 0 1"}), bad_pile("    2    1-2147483648"));
}

TEST_F(GeometrySection, PilesAreOmittedBetweenGivenPilesOnly) {
    cmn().NUMPIL = 9;
    const std::string given = "1 0 0 0 0 0 0 0 1";
    const std::string text = "\n **** SR/READPI : OMITTED PILES  NGEN/NSYM NOT ZERO";
    EXPECT_EQ(log_of({given, "2 1 0 0 0 0 0 0 1", "4 0 0 0 0 0 0 0 1"}),
              text + "    2    4    1\n");
    EXPECT_EQ(log_of({given, "2 0 1 0 0 0 0 0 1", "4 0 0 0 0 0 0 0 1"}),
              text + "    2    4    2\n");
    EXPECT_EQ(log_of({given, "3 1 0 0 0 0 0 0 1"}), text + "    1    3    3\n");
    EXPECT_EQ(log_of({given, "3 0 2 0 0 0 0 0 1"}), text + "    1    3    4\n");
    EXPECT_EQ(log_of({given, "2 1 1 0 0 0 0 0 1", "4 1 1 0 0 0 0 0 1"}),
              text + "    2    4    4\n"); // the last one
}

TEST_F(GeometrySection, CoordinatesThatOverflowAreShownAsInfinite) {
    set_factors(1.0, 1e10);
    EXPECT_EQ(log_of({"1 0 0 0 0 1e300 0 0 0"}), tip_above_head("    1       inf     0.000"));
    EXPECT_EQ(read_piles({"1 0 0 1e300 -1e300 0 0 0 1e300"}), Cause::none);
    EXPECT_FALSE(std::isfinite(cmn().XHEAD(1, 1)));
}

TEST_F(GeometrySection, NumbersThatAreTooLongForTheirBufferAreShownAsAsterisks) {
    // 1e60 with three decimals has 65 characters.
    EXPECT_EQ(log_of({"1 0 0 0 0 1e60 0 0 0"}), tip_above_head("    1**********     0.000"));
}

} // namespace
} // namespace korvat::test
