// Tests of the two capacity checks against an independent solution in extended precision.
#include "capacity_reference.hpp"
#include "support/model_fixture.hpp"

#include "compute/capacity_check.hpp"

#include <cmath>
#include <set>

namespace korvat::test {
namespace {

class CapacityCheck : public ModelTest {
protected:
    struct Given {
        double D = 1.0;
        double t = 0.025;
        double EA = 0.0;
        double EI = 0.0;
        double E = 2.1e8;
        double fy = 355000.0;
    };

    Utilisation iso(const Given& g, double N, double M2, double M3 = 0.0) {
        return isochk(cmn(), checked(g), {1e9, 1e9, N, M2, M3, 1e9});
    }

    Utilisation nor(const Given& g, double N, double M2, double M3 = 0.0) {
        return norchk(cmn(), checked(g), {1e9, 1e9, N, M2, M3, 1e9});
    }

    static CheckedTube checked(const Given& g) {
        return {.D = g.D, .t = g.t, .EA = g.EA, .EI = g.EI, .E = g.E, .fy = g.fy};
    }

    static ReferenceTube tube(const Given& g) { return {.D = g.D, .t = g.t, .E = g.E, .fy = g.fy}; }

    // Both checks have the same errors.
    void expect_error(const Given& g, int error) {
        EXPECT_EQ(iso(g, 1.0, 0.0).error, error);
        EXPECT_EQ(nor(g, 1.0, 0.0).error, error);
    }

    void expect_final_error(const Given& g, int error) {
        expect_error(g, error);
        EXPECT_EQ(iso(g, 1.0, 0.0).U, 0.0);
        EXPECT_EQ(nor(g, 1.0, 0.0).U, 0.0);
    }
};

// Rounding is amplified some forty times in D**4 - d**4 at D/t = 120: 1e-12 is ample.
void expect_close(double value, Real expected, const std::string& where) {
    EXPECT_NEAR(value, static_cast<double>(expected),
                1e-12 * std::max(1.0, std::fabs(static_cast<double>(expected))))
        << where;
}

TEST_F(CapacityCheck, AgreesWithTheReferenceInEveryRange) {
    std::set<int> bending;
    std::set<int> iso_strength;
    std::set<int> nor_strength;
    std::set<int> compression_factor;
    std::set<int> tension_factor;
    for (const double ratio : {20.0, 40.0, 60.5, 80.0, 119.0}) {
        for (const double fy : {355.0, 1890.0, 3000.0}) {
            const Given g{.D = ratio * 0.3, .t = 0.3, .E = 210000.0, .fy = fy};
            const ReferenceTube reference = tube(g);
            for (const double n : {-0.95, -0.5, -0.1, 0.0, 0.1, 0.4, 0.9}) {
                for (const double m : {0.0, 0.15, 0.5, 1.1}) {
                    const double N = n * static_cast<double>(reference.A) * fy;
                    const double M = m * static_cast<double>(reference.W) * fy;
                    const std::string where = "D/t " + std::to_string(ratio) + " fy " +
                                              std::to_string(fy) + " n " + std::to_string(n) +
                                              " m " + std::to_string(m);
                    Branches branches;
                    // Moments 0.6 M and 0.8 M have the resultant M.
                    const Utilisation iso_check = iso(g, N, 0.6 * M, -0.8 * M);
                    expect_close(iso_check.U, reference_isochk(reference, N, M, branches), where);
                    EXPECT_EQ(iso_check.error, 0);
                    iso_strength.insert(branches.strength);
                    const Utilisation nor_check = nor(g, N, -0.6 * M, 0.8 * M);
                    expect_close(nor_check.U, reference_norchk(reference, N, M, branches), where);
                    EXPECT_EQ(nor_check.error, 0);
                    nor_strength.insert(branches.strength);
                    bending.insert(branches.bending);
                    (n < 0.0 ? tension_factor : compression_factor).insert(branches.factor);
                }
            }
        }
    }
    const std::set<int> all = {1, 2, 3};
    EXPECT_EQ(bending, all);
    EXPECT_EQ(iso_strength, (std::set<int>{1, 2}));
    EXPECT_EQ(nor_strength, all);
    EXPECT_EQ(compression_factor, all);
    EXPECT_EQ(tension_factor, all);
}

// A thick tube of slenderness fy D / (E t) = 0.0338 is fully plastic: its strength is fy in both
// checks, and r = 0.0564 gives the smallest material factor up to a stress of 2.1 fy.
TEST_F(CapacityCheck, ThickTubeByHand) {
    const Given g{.D = 1.0, .t = 0.05};
    const double A = static_cast<double>(tube(g).A);
    const double N = 0.5 * A * g.fy;
    EXPECT_NEAR(iso(g, N, 0.0).U, 0.59, 1e-7); // 1.18 * 0.5; 1.18 in single precision
    EXPECT_NEAR(iso(g, -N, 0.0).U, 0.59, 1e-7);
    EXPECT_NEAR(nor(g, N, 0.0).U, 0.575, 1e-7);  // 1.15 * 0.5
    EXPECT_NEAR(nor(g, -N, 0.0).U, 0.575, 1e-7); // 0.575**1.75 is the smaller of the two
    // The plastic moment is fy (D**3 - d**3) / 6.
    const double plastic = g.fy * (1.0 - 0.9 * 0.9 * 0.9) / 6.0;
    EXPECT_NEAR(iso(g, 0.0, 0.0, plastic).U, 1.05, 1e-7);
    EXPECT_NEAR(nor(g, 0.0, 0.0, plastic).U, 1.15, 1e-6);
}

TEST_F(CapacityCheck, ConstantsAreSinglePrecision) {
    // r = 0.1700000009 lies between 0.17 and its single-precision value 0.1700000018: still the
    // yield stress, not 1.00042 times it.
    Given g{.D = 50.0, .t = 1.0, .E = 1.0};
    g.fy = 0.1700000009 * static_cast<double>(0.6F) / 50.0;
    const double N = static_cast<double>(tube(g).A) * g.fy;
    EXPECT_NEAR(iso(g, N, 0.0).U, static_cast<double>(1.18F), 1e-12);
    EXPECT_NE(iso(g, N, 0.0).U, 1.18);
    // Just above it the reduced strength holds.
    g.fy = 0.1700000027 * static_cast<double>(0.6F) / 50.0;
    const double larger = static_cast<double>(tube(g).A) * g.fy;
    EXPECT_NEAR(iso(g, larger, 0.0).U, 1.18 / (1.047 - 0.274 * 0.17), 1e-6);
}

TEST_F(CapacityCheck, Errors) {
    testing::internal::CaptureStderr();
    expect_error({.D = 0.0}, 1);
    expect_error({.t = 0.0}, 2);
    expect_error({.E = 0.0}, 3);
    expect_error({.fy = 0.0}, 4);
    expect_error({.D = -1.0}, 1);
    expect_error({.fy = -355.0}, 4);
    // A later one replaces an earlier.
    expect_error({.D = 0.0, .t = 0.0}, 2);
    expect_error({.D = 0.0, .t = 0.0, .E = 0.0}, 3);
    expect_error({.D = 0.0, .t = 0.0, .E = 0.0, .fy = 0.0}, 4);
    expect_error({.D = 0.0, .fy = 0.0}, 4);
    testing::internal::GetCapturedStderr();
}

TEST_F(CapacityCheck, SmallestAcceptedValueIsSinglePrecision) {
    // The single-precision 1E-6 is 0.9999999975E-6.
    expect_error({.D = 1.0, .t = 0.025, .E = 9.99999999e-7, .fy = 1.0}, 0);
    expect_error({.D = 1.0, .t = 0.025, .E = 9.99999996e-7, .fy = 1.0}, 3);
    expect_error({.E = 1.0, .fy = 9.99999999e-7}, 0);
    expect_error({.E = 1.0, .fy = 9.99999996e-7}, 4);
}

TEST_F(CapacityCheck, ComputationGoesOnBehindAnError) {
    const Given g{.D = 1.0, .t = 0.025, .E = 2.1e8, .fy = -355000.0};
    EXPECT_NE(iso(g, 1.0, 0.0).U, 0.0);
    EXPECT_EQ(iso(g, 1.0, 0.0).error, 4);
}

TEST_F(CapacityCheck, DiameterOf120WallsIsAccepted) {
    const Given g{.D = 120.0, .t = 1.0};
    testing::internal::CaptureStderr();
    const double N = 0.1 * static_cast<double>(tube(g).A) * g.fy;
    expect_close(iso(g, N, 0.0).U, reference_isochk(tube(g), N, 0.0), "120");
    expect_close(nor(g, N, 0.0).U, reference_norchk(tube(g), N, 0.0), "120");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(CapacityCheck, DiameterOfMoreThan120Walls) {
    const Given g{.D = 121.0, .t = 1.0};
    testing::internal::CaptureStderr();
    const Utilisation iso_check = iso(g, 5.0, 5.0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "\n **** SR/ISOCHK : DIAM,WALL,WALMOD,RAT=  121.0000    1.0000    1.0000  121.0000\n"
              " The diameter (DIAM) to wall thickness (WALMOD) ratio is higher than 120\n");
    testing::internal::CaptureStderr();
    const Utilisation nor_check = nor(g, 5.0, 5.0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "\n **** SR/NORCHK : DIAM,WALL,WALMOD,RAT=  121.0000    1.0000    1.0000  121.0000\n"
              " The diameter (DIAM) to wall thickness (WALMOD) ratio is higher than 120\n");
    for (const Utilisation& outcome : {iso_check, nor_check}) {
        EXPECT_EQ(outcome.U, static_cast<double>(9.999F));
        EXPECT_NEAR(outcome.U, 9.99899959564209, 1e-14);
        EXPECT_EQ(outcome.error, 0);
    }
    EXPECT_EQ(log(), "");
}

TEST_F(CapacityCheck, WallOfNothingKeepsItsErrorBeyondTheRatio) {
    testing::internal::CaptureStderr();
    const Utilisation outcome = iso({.D = 1.0, .t = 0.0}, 1.0, 0.0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "\n **** SR/ISOCHK : DIAM,WALL,WALMOD,RAT=    1.0000    0.0000    0.0000       inf\n"
              " The diameter (DIAM) to wall thickness (WALMOD) ratio is higher than 120\n");
    EXPECT_EQ(outcome.U, static_cast<double>(9.999F));
    EXPECT_EQ(outcome.error, 2);
}

TEST_F(CapacityCheck, GivenAxialStiffnessMakesTheArea) {
    const Given g{.D = 1.0, .t = 0.05, .EA = 2.1e8 * 0.25};
    const double N = 0.5 * 0.25 * g.fy; // half the yield stress
    EXPECT_NEAR(iso(g, N, 0.0).U, 0.59, 1e-7);
    EXPECT_NEAR(nor(g, N, 0.0).U, 0.575, 1e-7);
    // 1E-6 is not above the smallest: the area comes from D and t.
    const Given tiny{.D = 1.0, .t = 0.05, .EA = 0.9999e-6};
    EXPECT_EQ(iso(tiny, N, 0.0).U, iso({.D = 1.0, .t = 0.05}, N, 0.0).U);
}

TEST_F(CapacityCheck, GivenBendingStiffnessModifiesTheWall) {
    // The stiffness of a tube with a wall of 0.04 in place of 0.02; the area stays that of 0.02.
    const Given given{.D = 1.0, .t = 0.02};
    const Given thick{.D = 1.0, .t = 0.04};
    ReferenceTube reference = tube(thick);
    reference.A = tube(given).A;
    Given g = given;
    g.EI = static_cast<double>(reference.W / 2) * g.E; // I = W D / 2
    for (const double N : {-3000.0, 3000.0}) {
        // fy W is 9900, and 25000 brings the material factor off its smallest value.
        for (const double M : {0.0, 2000.0, 25000.0}) {
            // The fourth root of D**4 - 64 I / pi costs some digits.
            EXPECT_NEAR(iso(g, N, M).U, static_cast<double>(reference_isochk(reference, N, M)),
                        1e-11);
            EXPECT_NEAR(nor(g, N, M).U, static_cast<double>(reference_norchk(reference, N, M)),
                        1e-11);
        }
    }
}

TEST_F(CapacityCheck, ModifiedWallCountsForTheRatio) {
    // The wall of 0.1 becomes one of 1 / 125.
    Given g{.D = 1.0, .t = 0.1};
    g.EI = static_cast<double>(tube({.D = 1.0, .t = 0.008}).W / 2) * g.E;
    testing::internal::CaptureStderr();
    const Utilisation outcome = nor(g, 1.0, 0.0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "\n **** SR/NORCHK : DIAM,WALL,WALMOD,RAT=    1.0000    0.1000    0.0080  125.0000\n"
              " The diameter (DIAM) to wall thickness (WALMOD) ratio is higher than 120\n");
    EXPECT_EQ(outcome.U, static_cast<double>(9.999F));
    EXPECT_EQ(outcome.error, 0);
}

TEST_F(CapacityCheck, BendingStiffnessAboveThatOfASolidSection) {
    const double solid = 2.1e8 * 3.14159274 / 64.0; // D = 1
    expect_final_error({.EI = 1.001 * solid}, 6);
    expect_final_error({.EI = 1.001 * solid, .fy = 0.0}, 6);
    expect_error({.EI = 0.999 * solid}, 0);
}

TEST_F(CapacityCheck, BendingStiffnessOfAlmostNoWall) {
    // I = 1E-5 / 2.1E8 is a wall of about 1E-13.
    expect_final_error({.EI = 1.0e-5}, 7);
    expect_error({.EI = 0.9e-6}, 0); // as good as none given
}

TEST_F(CapacityCheck, BendingStiffnessBehindAnErrorEndsTheCheck) {
    const double EI = 2.1e8 * 0.01;
    expect_final_error({.EI = EI, .fy = 0.0}, 4);
    expect_final_error({.D = 1.0, .t = 0.0, .EI = EI}, 2);
}

} // namespace
} // namespace korvat::test
