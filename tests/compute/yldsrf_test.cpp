// Tests of generated yield curves against an independent solution of the capacity checks.
#include "capacity_reference.hpp"
#include "support/model_fixture.hpp"

#include "compute/yldsrf.hpp"
#include "model/store/slots.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <exception>
#include <limits>

namespace korvat::test {
namespace {

using Curve = std::array<double, 10>;

struct Steel {
    double D = 1.0;
    double t = 0.025;
    double fy = 355000.0;
    double E = 2.1e8;
};

struct Curves {
    Curve axial_elastic, elastic, axial_plastic, plastic;
};

class Yldsrf : public ModelTest {
protected:
    Curves curves(int code, const Steel& steel, int i = 1) {
        cmn().NLCRS(i) = code;
        cmn().CRSVAL(slot::diameter, i) = steel.D;
        cmn().CRSVAL(slot::wall, i) = steel.t;
        cmn().CRSVAL(slot::yield_stress, i) = steel.fy;
        cmn().CRSVAL(slot::elastic_modulus, i) = steel.E;
        yldsrf(cmn(), i);
        Curves result;
        std::ranges::copy(cmn().FAXEL.column(i), result.axial_elastic.begin());
        std::ranges::copy(cmn().FMOEL.column(i), result.elastic.begin());
        std::ranges::copy(cmn().FAXPL.column(i), result.axial_plastic.begin());
        std::ranges::copy(cmn().FMOPL.column(i), result.plastic.begin());
        return result;
    }

    void expect_stop(int code, const Steel& steel, const std::string& message) {
        const std::size_t start = log().size();
        EXPECT_THROW(curves(code, steel), std::exception);
        EXPECT_EQ(log().substr(start), "\n" + message + "\n\n **** Run stopped by SR/YLDSRF\n");
        EXPECT_EQ(cmn().NLCRS(1), code);
        EXPECT_EQ(cmn().IERR, 0);
    }
};

// Area and section modulus with the full value of pi, as the curves use it.
double area(const Steel& s) {
    return std::numbers::pi * s.t * (s.D - s.t);
}
double section_modulus(const Steel& s) {
    const double d = s.D - 2.0 * s.t;
    return std::numbers::pi / 32.0 * (std::pow(s.D, 4) - std::pow(d, 4)) / s.D;
}

ReferenceTube tube(const Steel& s) {
    return {.D = s.D, .t = s.t, .E = s.E, .fy = s.fy};
}

// What |U - 1| stays below: 0.001 in single precision.
constexpr double tolerance = 0.001F;

// Moment at which the check of code -1 reaches 1, by bisection to 1e-12 of the utilisation.
Real bisected_moment(const ReferenceTube& reference, Real N) {
    Real low = 0;
    Real high = 10 * reference.W * reference.fy;
    for (int i = 0; i < 200; ++i) {
        const Real middle = (low + high) / 2;
        (reference_norchk(reference, N, middle) < 1 ? low : high) = middle;
    }
    EXPECT_NEAR(static_cast<double>(reference_norchk(reference, N, low)), 1.0, 1e-12);
    return low;
}

const std::vector<Steel> walls = {
    {.t = 1.0 / 20.0}, {.t = 1.0 / 40.0}, {.t = 1.0 / 55.0}, {.t = 1.0 / 80.0}, {.t = 1.0 / 118.0}};

TEST_F(Yldsrf, AxialLevelsFallEvenlyFromTheCapacityToTensionYield) {
    for (const int code : {-1, -2}) {
        for (const Steel& steel : walls) {
            const Curves c = curves(code, steel);
            const double capacity = c.axial_plastic[0];
            const Real U = code == -1 ? reference_norchk(tube(steel), capacity, 0)
                                      : reference_isochk(tube(steel), capacity, 0);
            EXPECT_LT(std::fabs(static_cast<double>(U - 1)), tolerance + 1e-12);
            const double yield = -area(steel) * steel.fy;
            EXPECT_NEAR(c.axial_plastic[9], yield, -1e-12 * yield);
            const double step = (capacity - yield) / 9.0;
            int zeros = 0;
            for (std::size_t k = 0; k < 10; ++k) {
                if (c.axial_plastic[k] == 0.0) {
                    ++zeros;
                    // The smallest magnitude: within half a step of zero.
                    EXPECT_LE(std::fabs(capacity - static_cast<double>(k) * step), step / 2);
                } else {
                    EXPECT_NEAR(c.axial_plastic[k], capacity - static_cast<double>(k) * step,
                                -1e-12 * yield);
                }
            }
            EXPECT_EQ(zeros, 1);
            EXPECT_EQ(c.axial_elastic, c.axial_plastic);
            EXPECT_EQ(cmn().NLCRS(1), 10);
        }
    }
    EXPECT_EQ(log(), "");
}

TEST_F(Yldsrf, NoLevelBecomesZeroBeyondOneMillion) {
    // A force unit of 1 N: the levels lie some 70E6 apart.
    const Curves c = curves(-1, {.D = 3.0, .t = 0.1, .fy = 355.0e6, .E = 2.1e11});
    const double step = (c.axial_plastic[0] - c.axial_plastic[9]) / 9.0;
    for (int k = 0; k < 10; ++k) {
        const double level = c.axial_plastic[0] - k * step;
        EXPECT_GT(std::fabs(level), 1.0e6); // none was small
        EXPECT_NEAR(c.axial_plastic[static_cast<std::size_t>(k)], level, 1e-12 * 9.0 * step);
    }
    EXPECT_EQ(cmn().NLCRS(1), 10);
}

// The force unit is chosen so that the smallest level lies on either side of one million.
TEST_F(Yldsrf, TheZeroLevelIsSoughtBelowOneMillion) {
    const Steel steel;
    const Curves base = curves(-1, steel);
    const double step = (base.axial_plastic[0] - base.axial_plastic[9]) / 9.0;
    const auto zero = std::ranges::find(base.axial_plastic, 0.0) - base.axial_plastic.begin();
    const double smallest =
        std::fabs(base.axial_plastic[0] - static_cast<double>(zero) * step); // before it became 0.0
    for (const auto& [level, zeros] : {std::pair{0.999e6, 1}, std::pair{1.001e6, 0}}) {
        const double unit = level / smallest;
        Steel scaled = steel;
        scaled.fy *= unit;
        scaled.E *= unit;
        EXPECT_EQ(std::ranges::count(curves(-1, scaled).axial_plastic, 0.0), zeros) << level;
    }
}

TEST_F(Yldsrf, MomentsAreZeroAtBothEnds) {
    for (const int code : {-1, -2}) {
        const Curves c = curves(code, {});
        for (const std::size_t end : {std::size_t{0}, std::size_t{9}}) {
            EXPECT_EQ(c.elastic[end], 0.0);
            EXPECT_EQ(c.plastic[end], 0.0);
        }
    }
}

TEST_F(Yldsrf, PlasticMomentsOfIsochkAgreeWithTheClosedForm) {
    for (const Steel& steel : walls) {
        const Curves c = curves(-2, steel);
        const ReferenceTube reference = tube(steel);
        Branches branches;
        const Real unit = reference.bending_strength(branches) * reference.W / single(1.05F);
        for (std::size_t k = 1; k < 9; ++k) {
            const Real N = c.axial_plastic[k];
            const Real M = unit * (1 - reference_isochk(reference, N, 0));
            // U is linear in M, so the tolerance of U is one of the moment.
            EXPECT_NEAR(c.plastic[k], static_cast<double>(M),
                        tolerance * static_cast<double>(unit) * (1 + 1e-9));
        }
    }
}

TEST_F(Yldsrf, PlasticMomentsOfNorchkAgreeWithBisection) {
    for (const Steel& steel : walls) {
        const Curves c = curves(-1, steel);
        const ReferenceTube reference = tube(steel);
        for (std::size_t k = 1; k < 9; ++k) {
            const Real N = c.axial_plastic[k];
            const Real U = reference_norchk(reference, N, c.plastic[k]);
            EXPECT_LT(std::fabs(static_cast<double>(U - 1)), tolerance + 1e-12);
            // U rises by at least 1.15 / (Fb W) per unit of moment.
            Branches branches;
            const Real slope = single(1.15F) / (reference.bending_strength(branches) * reference.W);
            EXPECT_NEAR(c.plastic[k], static_cast<double>(bisected_moment(reference, N)),
                        static_cast<double>(Real(tolerance) / slope) * (1 + 1e-9));
        }
    }
}

TEST_F(Yldsrf, ElasticMomentEndsAtFirstYieldOrAtThePlasticOne) {
    int by_yield = 0;
    int by_capacity = 0;
    for (const int code : {-1, -2}) {
        for (const Steel& steel : walls) {
            const Curves c = curves(code, steel);
            for (std::size_t k = 1; k < 9; ++k) {
                const double siga = std::fabs(c.axial_elastic[k]) / area(steel);
                const double first_yield = (steel.fy - siga) * section_modulus(steel);
                EXPECT_NEAR(c.elastic[k], std::min(c.plastic[k], first_yield),
                            1e-12 * steel.fy * section_modulus(steel));
                ++(first_yield < c.plastic[k] ? by_yield : by_capacity);
            }
        }
    }
    EXPECT_GT(by_yield, 0);
    EXPECT_GT(by_capacity, 0);
}

TEST_F(Yldsrf, EveryCodeButMinusOneIsTheSameCheck) {
    const Curves nor = curves(-1, {});
    const Curves iso = curves(-2, {});
    EXPECT_NE(nor.plastic, iso.plastic);
    for (const int code : {-3, -7, -2147483647 - 1}) {
        const Curves other = curves(code, {});
        EXPECT_EQ(other.axial_plastic, iso.axial_plastic);
        EXPECT_EQ(other.plastic, iso.plastic);
        EXPECT_EQ(other.elastic, iso.elastic);
    }
}

TEST_F(Yldsrf, WritesItsSectionOnly) {
    curves(-1, {}, 200);
    EXPECT_EQ(cmn().NLCRS(200), 10);
    for (int k = 1; k <= 10; ++k) {
        EXPECT_EQ(cmn().FAXPL(k, 199), 0.0);
        EXPECT_EQ(cmn().FMOPL(k, 199), 0.0);
    }
}

// The iterations take the same steps in any units, so only rounding differs.
TEST_F(Yldsrf, UnitsScaleTheCurve) {
    for (const int code : {-1, -2}) {
        for (const Steel& steel : walls) {
            const Curves base = curves(code, steel);
            // In N the levels would lie beyond one million, and none would become zero.
            Steel meganewtons = steel;
            meganewtons.fy /= 1000.0;
            meganewtons.E /= 1000.0;
            const Curves in_meganewtons = curves(code, meganewtons);
            // kN and mm: stresses by 1E-6, lengths by 1000.
            const Steel millimetres = {.D = steel.D * 1000.0,
                                       .t = steel.t * 1000.0,
                                       .fy = steel.fy * 1.0e-6,
                                       .E = steel.E * 1.0e-6};
            const Curves in_millimetres = curves(code, millimetres);
            for (std::size_t k = 0; k < 10; ++k) {
                const double N = 1e-11 * area(steel) * steel.fy;
                const double M = 1e-11 * section_modulus(steel) * steel.fy;
                EXPECT_NEAR(in_meganewtons.axial_plastic[k] * 1000.0, base.axial_plastic[k], N);
                EXPECT_NEAR(in_meganewtons.plastic[k] * 1000.0, base.plastic[k], M);
                EXPECT_NEAR(in_meganewtons.elastic[k] * 1000.0, base.elastic[k], M);
                EXPECT_NEAR(in_millimetres.axial_plastic[k], base.axial_plastic[k], N);
                EXPECT_NEAR(in_millimetres.plastic[k] / 1000.0, base.plastic[k], M);
                EXPECT_NEAR(in_millimetres.elastic[k] / 1000.0, base.elastic[k], M);
            }
        }
    }
}

TEST_F(Yldsrf, DiameterOfMoreThan120WallsEndsAtTheIterationLimit) {
    testing::internal::CaptureStderr();
    expect_stop(-1, {.D = 121.0, .t = 1.0}, " **** SR/YLDSRF : 100 iterations reached");
    cmn().runtime.close(0);
    // The limit is 200, whatever its message says.
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "\n **** SR/NORCHK : DIAM,WALL,WALMOD,RAT=  121.0000    1.0000    1.0000  121.0000\n"
              " The diameter (DIAM) to wall thickness (WALMOD) ratio is higher than 120\n"
              " (the message above came 200 times)\n");
}

TEST_F(Yldsrf, DiameterOf120WallsIsAccepted) {
    testing::internal::CaptureStderr();
    curves(-2, {.D = 120.0, .t = 1.0});
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(log(), "");
}

TEST_F(Yldsrf, UtilisationThatIsNoNumberEndsAtTheIterationLimit) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    expect_stop(-1, {.fy = nan}, " **** SR/YLDSRF : 100 iterations reached");
    expect_stop(-2, {.fy = nan}, " **** SR/YLDSRF : 100 iterations reached");
    // r = 5 leaves a negative strength in compression: the root of U is no number.
    expect_stop(-2, {.t = 0.02, .fy = 0.06, .E = 1.0}, " **** SR/YLDSRF : 100 iterations reached");
}

TEST_F(Yldsrf, ErrorsOfTheChecks) {
    testing::internal::CaptureStderr();
    expect_stop(-1, {.D = 0.0}, " **** SR/YLDSRF : Error from SR/NORCHK IERR=    1");
    expect_stop(-2, {.D = 0.0}, " **** SR/YLDSRF : Error from SR/ISOCHK IERR=    1");
    expect_stop(-1, {.E = 0.0}, " **** SR/YLDSRF : Error from SR/NORCHK IERR=    3");
    expect_stop(-9, {.fy = 0.0}, " **** SR/YLDSRF : Error from SR/ISOCHK IERR=    4");
    testing::internal::GetCapturedStderr();
}

TEST_F(Yldsrf, SectionWithoutAWallStops) {
    testing::internal::CaptureStderr();
    expect_stop(-1, {.t = 0.0}, " **** SR/YLDSRF : Error from SR/NORCHK IERR=    2");
    // As build leaves a composite: a diameter, and nothing else.
    expect_stop(-2, {.t = 0.0, .fy = 0.0, .E = 0.0},
                " **** SR/YLDSRF : Error from SR/ISOCHK IERR=    4");
    testing::internal::GetCapturedStderr();
}

// No section gives this message: the checks end below yield. Here the common value of pi is 1, so
// that the area of the curves is smaller than that of the check, and so is the stress it allows.
TEST_F(Yldsrf, NegativeBendingStress) {
    cmn().PI = 1.0;
    const Steel steel = {.D = 1.0, .t = 0.25, .fy = 16.0, .E = 1.0e4}; // r < 0.17: strength fy
    const double A = 0.1875;                                           // (1 - 0.25) / 4
    const double Ny = -A * steel.fy;                                   // -3
    // The capacity begins at 0.9 * 3; each step takes the root of U, whose logarithm is halved
    // until U is above 0.999, from ln U = ln(1.18 * 0.9 / pi) = -1.0847 on 11 times.
    const double U = static_cast<double>(1.18F) * static_cast<double>(0.9F) /
                     static_cast<double>(std::numbers::pi_v<float>);
    const double N = static_cast<double>(0.9F) * 3.0 * std::pow(U, -(1.0 - std::pow(2.0, -11)));
    const double level = N - (N - Ny) / 9.0; // the second
    char values[80];
    std::snprintf(values, sizeof values, "    2%10.3f%10.3f    16.000", level, level / A);
    expect_stop(-2, steel,
                std::string(" **** SR/YLDSRF : Negative bending stress\n N,FAXL(N),SIGA,SIGY=") +
                    values);
}

} // namespace
} // namespace korvat::test
