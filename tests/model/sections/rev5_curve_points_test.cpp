// Tests of the given points of yield curves: stored values, order, every check.
#include "rev5_fixture.hpp"

namespace korvat::test {
namespace {

class Rev5CurvePoints : public Rev5Test {
protected:
    // Section 1 with so many points as its non-linear code says, then the lines.
    std::string read_points(int count, Lines lines) {
        lines.insert(lines.begin(), section("1 1 " + std::to_string(count) + " 1 2 0.5"));
        return read_section(lines);
    }

    static std::string input(const std::string& rest) {
        return "\n **** SR/REV5INP : Non-linear cross sections input\n" + rest + "\n";
    }

    void expect_rejected(int count, const Lines& lines, const std::string& message) {
        EXPECT_EQ(read_points(count, lines), input(message));
        EXPECT_EQ(cmn().IERR, 4);
    }

    const std::string first = "1 1 8 0 9 0";
    const std::string second = "1 2 1 3 1 4";
    const std::string last = "1 3 -8 0 -9 0";
};

TEST_F(Rev5CurvePoints, AreStoredAsGiven) {
    cmn().FACF = 1000.0; // no factor applies
    cmn().FACL = 10.0;
    EXPECT_EQ(read_points(3, {first, second, last, "next"}), "");
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_EQ(cmn().NLCRS(1), 3);
    EXPECT_EQ(cmn().FAXEL(1, 1), 8.0);
    EXPECT_EQ(cmn().FMOEL(1, 1), 0.0);
    EXPECT_EQ(cmn().FAXPL(1, 1), 9.0);
    EXPECT_EQ(cmn().FMOPL(1, 1), 0.0);
    EXPECT_EQ(cmn().FAXEL(2, 1), 1.0);
    EXPECT_EQ(cmn().FMOEL(2, 1), 3.0);
    EXPECT_EQ(cmn().FAXPL(2, 1), 1.0);
    EXPECT_EQ(cmn().FMOPL(2, 1), 4.0);
    EXPECT_EQ(cmn().FAXEL(3, 1), -8.0);
    EXPECT_EQ(cmn().FAXPL(3, 1), -9.0);
    EXPECT_EQ(cmn().NLINE, lines_in_front + 4);
    EXPECT_EQ(next_line(12), "next");
}

TEST_F(Rev5CurvePoints, FollowTheLastSectionInTheOrderOfTheSections) {
    cmn().NUMCRS = 4;
    EXPECT_EQ(read_section({section("1 1 2 1 2 0.5"), section("2 1 -1 1 2 0.5"),
                            section("3 1 0 1 2 0.5"), section("4 1 1 1 2 0.5"), //
                            "1 1 5 0 5 0", "1 2 -5 0 -5 0", "4 1 7 0 7 0"}),
              "");
    EXPECT_EQ(cmn().FAXEL(2, 1), -5.0);
    EXPECT_EQ(cmn().FAXEL(1, 2), 0.0);
    EXPECT_EQ(cmn().FAXPL(1, 4), 7.0);
    EXPECT_EQ(cmn().NLINE, lines_in_front + 7);
}

TEST_F(Rev5CurvePoints, OfACompositeFollowItsSubSections) {
    EXPECT_EQ(read_section({section("1 2 1 0 0 0"), section("1 1 1 0 1 2 0.5"),
                            section("1 2 1 0 1 1 0.25"), "1 1 5 0 6 0"}),
              "");
    EXPECT_EQ(cmn().NLCRS(1), 1);
    EXPECT_EQ(cmn().FAXPL(1, 1), 6.0);
}

TEST_F(Rev5CurvePoints, TenAreAccepted) {
    Lines lines;
    for (int i = 1; i <= 10; ++i)
        lines.push_back("1 " + std::to_string(i) + " " + std::to_string(-i) + " 0 " +
                        std::to_string(-i) + " 0");
    EXPECT_EQ(read_points(10, lines), "");
    EXPECT_EQ(cmn().FAXEL(10, 1), -10.0);
}

TEST_F(Rev5CurvePoints, OnePointIsNoLastPoint) {
    // At a last point the plastic force must not pass the elastic one.
    EXPECT_EQ(read_points(1, {"1 1 8 0 9 0"}), "");
    EXPECT_EQ(cmn().IERR, 0);
    expect_rejected(1, {"1 1 9 0 8 0"},
                    " Crs no. =  1 Point no. =  1  Frc.Axl.Elast > Frc.Axl.Plast\n"
                    "    0.8000E+01    0.9000E+01");
}

TEST_F(Rev5CurvePoints, ContinueOverLines) {
    EXPECT_EQ(read_points(2, {"1", "1 8", "", "0 9 0 dropped", "1,2,-8,0,-9,0"}), "");
    EXPECT_EQ(cmn().NLINE, lines_in_front + 6);
    EXPECT_EQ(cmn().FAXPL(2, 1), -9.0);
}

TEST_F(Rev5CurvePoints, EndOfFile) {
    EXPECT_EQ(read_points(3, {first}), end_of_file(" 2102"));
    EXPECT_EQ(cmn().IERR, 2);
    EXPECT_EQ(cmn().NLINE, lines_in_front + 3);
    EXPECT_EQ(read_points(3, {first, "1 2 1 3"}), end_of_file(" 2102"));
    EXPECT_EQ(cmn().NLINE, lines_in_front + 4);
}

TEST_F(Rev5CurvePoints, ValueThatCannotBeRead) {
    EXPECT_EQ(read_points(1, {"1 1. 8 0 9 0"}), bad_data(" 2101"));
    EXPECT_EQ(cmn().IERR, 1);
    EXPECT_EQ(read_points(1, {"1 1 8 0 1e999 0"}), bad_data(" 2101"));
}

TEST_F(Rev5CurvePoints, LocationOfALargeSectionNumber) {
    cmn().NUMCRS = 200;
    Lines lines;
    for (int N = 1; N < 200; ++N)
        lines.push_back(section(std::to_string(N) + " 1 0 1 4 0.5"));
    lines.push_back(section("200 1 10 1 4 0.5"));
    EXPECT_EQ(read_section(lines), end_of_file("22001")); // (200 + 20) * 100 + 1
}

TEST_F(Rev5CurvePoints, CrossSectionNumber) {
    expect_rejected(1, {"2 7 1 1 0 0"}, " Crs no. =  2 Expected value =  1");
    expect_rejected(1, {"-2147483648 7 1 1 0 0"}, " Crs no. = -2147483648 Expected value =  1");
}

TEST_F(Rev5CurvePoints, PointNumber) {
    expect_rejected(1, {"1 2 1 1 0 0"}, " Crs no. =  1 Point no. =  2  Expected value = 1");
    expect_rejected(2, {first, "1 1 1 1 0 0"}, " Crs no. =  1 Point no. =  1  Expected value = 2");
}

TEST_F(Rev5CurvePoints, MomentsAtTheFirstPoint) {
    expect_rejected(3, {"1 1 8 0.5 9 0.25"},
                    " Crs no. =  1 Point no. =  1  The elastic moment is not zero\n"
                    "    0.5000E+00");
    expect_rejected(3, {"1 1 8 0 9 0.25"},
                    " Crs no. =  1 Point no. =  1  The plastic moment is not zero\n"
                    "    0.2500E+00");
    // At the first point only a positive moment is refused.
    EXPECT_EQ(read_points(1, {"1 1 8 -0.5 9 -0.5"}), "");
    EXPECT_EQ(read_points(1, {"1 1 8 1e-11 9 1e-11"}), "");
}

TEST_F(Rev5CurvePoints, ForcesAtTheFirstPoint) {
    EXPECT_EQ(read_points(1, {"1 1 9 0 9 0"}), "");
    EXPECT_EQ(read_points(1, {"1 1 1e-11 0 0 0"}), ""); // within the tolerance
    expect_rejected(1, {"1 1 1e-9 1 0 1"},              // tested before the moments
                    " Crs no. =  1 Point no. =  1  Frc.Axl.Elast > Frc.Axl.Plast\n"
                    "    0.0000E+00    0.1000E-08");
}

TEST_F(Rev5CurvePoints, ForcesAtTheLastPoint) {
    // The plastic force above the elastic one, under the text of the first point.
    expect_rejected(3, {first, second, "1 3 -9 0 -8 0"},
                    " Crs no. =  1 Point no. =  3  Frc.Axl.Elast > Frc.Axl.Plast\n"
                    "   -0.8000E+01   -0.9000E+01");
    EXPECT_EQ(read_points(3, {first, second, "1 3 -8 0 -8 0"}), "");
}

TEST_F(Rev5CurvePoints, MomentsAtTheLastPoint) {
    expect_rejected(3, {first, second, "1 3 -8 2.5 -9 1"},
                    " Crs no. =  1 Point no. =  3  The elastic moment is not zero\n"
                    "    0.2500E+01");
    expect_rejected(3, {first, second, "1 3 -8 0 -9 1"},
                    " Crs no. =  1 Point no. =  3  The plastic moment is not zero\n"
                    "    0.1000E+01");
    expect_rejected(3, {first, second, "1 3 -8 -1 -9 -1"},
                    " Crs no. =  1 Point no. =  3  The elastic moment is negative\n"
                    "   -0.1000E+01");
}

TEST_F(Rev5CurvePoints, LastPointRulesComeBeforeTheOrderOfTheForces) {
    expect_rejected(3, {first, second, "1 3 20 1 19 0"},
                    " Crs no. =  1 Point no. =  3  The elastic moment is not zero\n"
                    "    0.1000E+01");
    expect_rejected(2, {first, "1 2 8 0 8 0"},
                    " Crs no. =  1 Point no. =  2  Present Frc.Axl.Elast is higher than last value "
                    "given\n"
                    "    0.8000E+01    0.8000E+01");
}

TEST_F(Rev5CurvePoints, AxialForcesFall) {
    expect_rejected(3, {first, "1 2 8.5 3 1 4"},
                    " Crs no. =  1 Point no. =  2  Present Frc.Axl.Elast is higher than last value "
                    "given\n"
                    "    0.8000E+01    0.8500E+01");
    expect_rejected(3, {first, "1 2 8 3 1 4"}, // an equal one is not below the last
                    " Crs no. =  1 Point no. =  2  Present Frc.Axl.Elast is higher than last value "
                    "given\n"
                    "    0.8000E+01    0.8000E+01");
    expect_rejected(3, {first, "1 2 1 3 9.5 4"},
                    " Crs no. =  1 Point no. =  2  Present Frc.Axl.Plast is higher than last value "
                    "given\n"
                    "    0.9000E+01    0.9500E+01");
    expect_rejected(3, {first, "1 2 1 3 9 4"},
                    " Crs no. =  1 Point no. =  2  Present Frc.Axl.Plast is higher than last value "
                    "given\n"
                    "    0.9000E+01    0.9000E+01");
    // Compared with the point before, not with the first one.
    expect_rejected(4, {first, second, "1 3 2 0 0 0"},
                    " Crs no. =  1 Point no. =  3  Present Frc.Axl.Elast is higher than last value "
                    "given\n"
                    "    0.1000E+01    0.2000E+01");
}

TEST_F(Rev5CurvePoints, ForcesFallByTheToleranceAtLeast) {
    EXPECT_EQ(read_points(3, {"1 1 0 0 0 0", "1 2 -1e-9 0 -1e-9 0", "1 3 -1 0 -1 0"}), "");
    EXPECT_EQ(read_points(3, {"1 1 0 0 0 0", "1 2 -1e-11 0 -1e-9 0"}),
              input(" Crs no. =  1 Point no. =  2  Present Frc.Axl.Elast is higher than last value "
                    "given\n"
                    "    0.0000E+00   -0.1000E-10"));
}

TEST_F(Rev5CurvePoints, MomentsBetweenTheEndsAreNotNegative) {
    expect_rejected(3, {first, "1 2 1 -3 1 -4"},
                    " Crs no. =  1 Point no. =  2  The elastic moment is negative\n"
                    "   -0.3000E+01");
    expect_rejected(3, {first, "1 2 1 3 1 -4"},
                    " Crs no. =  1 Point no. =  2  The plastic moment is negative\n"
                    "   -0.4000E+01");
    EXPECT_EQ(read_points(3, {first, "1 2 1 -1e-11 1 -1e-11", last}), "");
}

TEST_F(Rev5CurvePoints, HugeForcesAreShown) {
    expect_rejected(1, {"1 1 1e300 0 -1e300 0"},
                    " Crs no. =  1 Point no. =  1  Frc.Axl.Elast > Frc.Axl.Plast\n"
                    "   -0.1000+301    0.1000+301");
}

} // namespace
} // namespace korvat::test
