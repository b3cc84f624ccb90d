// Tests of the cross sections' property records, by hand arithmetic with PI set to 3.
#include "support/model_fixture.hpp"

#include "compute/section_properties.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvat::test {
namespace {

using Slots = std::vector<double>;

// Material 1: E 8, G 4, yield stress 16. Material 2: E 2, G 1, yield stress 4.
class SectionProperties : public ModelTest {
protected:
    SectionProperties() {
        cmn().PI = 3.0;
        cmn().IREV = 4;
        cmn().NUMMAT = 2;
        give_material(1, 8.0, 4.0, 16.0, 77.0, 0.25);
        give_material(2, 2.0, 1.0, 4.0, 25.0, 0.5);
    }

    void give_material(int m, double E, double G, double yield, double weight, double strain) {
        cmn().EMOD(m) = E;
        cmn().GMOD(m) = G;
        cmn().SIGYLD(m) = yield;
        cmn().UWWALL(m) = weight;
        cmn().EPSTMP(m) = strain;
    }

    void give_tube(int i, int material, double D, double t) {
        cmn().MATCRS(i) = material;
        cmn().DIAM(i) = D;
        cmn().WALL(i) = t;
        cmn().ITYCRS(i) = 1;
    }

    // Slots first..last of a section.
    Slots slots(int i, int first, int last) {
        const auto all = cmn().CRSVAL.column(i);
        return {all.begin() + first - 1, all.begin() + last};
    }
};

// D 2, t 0.5: A = 1.5*3*0.5 = 2.25, I = (16 - 1)*3/64 = 0.703125, W = 2I/2 = 0.703125.
const Slots& wide_tube() {
    static const Slots values = {2.0,   0.5,  2.25, 0.703125, 18.0, 9.0, 5.625,
                                 5.625, 77.0, 0.0,  0.25,     16.0, 8.0, 4.0};
    return values;
}

// D 1, t 0.5, solid: A = 0.5*3*0.5 = 0.75, I = 3/64 = 0.046875, W = 0.09375.
const Slots& solid_bar() {
    static const Slots values = {1.0,     0.5,  0.75, 0.09375, 1.5, 0.75, 0.09375,
                                 0.09375, 25.0, 0.0,  0.5,     4.0, 2.0,  1.0};
    return values;
}

TEST_F(SectionProperties, TubeByHand) {
    cmn().NUMCRS = 2;
    give_tube(1, 1, 2.0, 0.5);
    give_tube(2, 2, 1.0, 0.5);
    cmn().UWFLD(2) = 10.0;
    form_section_properties(cmn());
    EXPECT_EQ(slots(1, 1, 14), wide_tube());
    Slots bar = solid_bar();
    bar[9] = 10.0;
    EXPECT_EQ(slots(2, 1, 14), bar);
}

TEST_F(SectionProperties, Slot15BecomesZeroAndTheFollowingAreNotTouched) {
    cmn().NUMCRS = 1;
    give_tube(1, 1, 2.0, 0.5);
    give_tube(2, 1, 2.0, 0.5);
    std::ranges::fill(cmn().CRSVAL.all(), 7.0);
    form_section_properties(cmn());
    EXPECT_EQ(slots(1, 15, 20), (Slots{0.0, 7.0, 7.0, 7.0, 7.0, 7.0}));
    EXPECT_EQ(slots(2, 1, 20), Slots(20, 7.0)); // beyond NUMCRS
}

TEST_F(SectionProperties, FormulasKeepTheirOrder) {
    cmn().PI = 4.0 * std::atan(1.0);
    const double pi = cmn().PI;
    cmn().NUMCRS = 1;
    for (int i = 0; i < 50; ++i) {
        const double D = 0.9144 + 0.0254 * i;
        const double t = 0.0127 + 0.0011 * i;
        const double E = 2.05e8 + i;
        const double G = 7.9e7 + i;
        give_material(1, E, G, 3.45e5, 77.0, 1.2e-5);
        give_tube(1, 1, D, t);
        form_section_properties(cmn());
        const double d = D - 2.0 * t;
        const double A = ((D - t) * pi) * t;
        const double I = ((D * D) * (D * D) - (d * d) * (d * d)) * pi * 0.015625;
        EXPECT_EQ(slots(1, 3, 8), (Slots{A, 2.0 * I / D, A * E, A * G, I * E, (2.0 * I) * G}));
    }
}

TEST_F(SectionProperties, GivenStiffnessAboveTheToleranceOverrides) {
    cmn().NUMCRS = 3;
    const std::vector<double> given = {0.5e-10, 1.0e-10, 1.5e-10}; // below, at, above
    for (int i = 1; i <= 3; ++i) {
        give_tube(i, 1, 2.0, 0.5);
        const double value = given[static_cast<std::size_t>(i - 1)];
        cmn().STFAX(i) = value;
        cmn().STFBN(i) = 2 * value;
        cmn().STFSH(i) = 3 * value;
        cmn().STFTO(i) = 4 * value;
    }
    cmn().STFBN(1) = cmn().STFSH(1) = cmn().STFTO(1) = -5.0;
    cmn().STFBN(2) = cmn().STFSH(2) = cmn().STFTO(2) = 1.0e-10;
    form_section_properties(cmn());
    EXPECT_EQ(slots(1, 1, 14), wide_tube());
    EXPECT_EQ(slots(2, 1, 14), wide_tube());
    // EA, GA, EI, GJ; the rest does not change.
    EXPECT_EQ(slots(3, 5, 8), (Slots{1.5e-10, 3 * 1.5e-10, 2 * 1.5e-10, 4 * 1.5e-10}));
    EXPECT_EQ(slots(3, 1, 4), Slots(wide_tube().begin(), wide_tube().begin() + 4));
}

TEST_F(SectionProperties, NumberThatIsNoMaterialGivesZeros) {
    constexpr int highest = std::numeric_limits<int>::max();
    cmn().NUMCRS = 1;
    for (const int material : {0, -1, 3, 21, highest, -highest - 1}) {
        give_tube(1, material, 2.0, 0.5);
        form_section_properties(cmn());
        EXPECT_EQ(slots(1, 1, 14), (Slots{2.0, 0.5, 2.25, 0.703125, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0,
                                          0.0, 0.0, 0.0, 0.0}))
            << material;
    }
}

TEST_F(SectionProperties, CompositesAreSkippedForRevision4) {
    cmn().NUMCRS = 1;
    give_tube(1, 1, 2.0, 0.5);
    cmn().ITYCRS(1) = 2;
    form_section_properties(cmn());
    form_composite_sections(cmn());
    EXPECT_EQ(cmn().NUMCRS, 1);
    EXPECT_EQ(cmn().MATCRS(1), 1);
    EXPECT_EQ(slots(1, 1, 14), wide_tube());
    EXPECT_EQ(slots(1, 16, 17), (Slots{0.0, 0.0}));
}

TEST_F(SectionProperties, PlainTubeGetsItsYieldForces) {
    cmn().IREV = 5;
    cmn().NUMCRS = 1;
    give_tube(1, 1, 2.0, 0.5);
    form_section_properties(cmn());
    form_composite_sections(cmn());
    EXPECT_EQ(cmn().NUMCRS, 1);
    // 2.25*16 and 2.25*8*0.75.
    EXPECT_EQ(slots(1, 15, 17), (Slots{0.0, 36.0, 13.5}));
    EXPECT_EQ(slots(1, 1, 14), wide_tube());
}

TEST_F(SectionProperties, TorsionalYieldMomentKeepsItsOrder) {
    cmn().IREV = 5;
    cmn().PI = 4.0 * std::atan(1.0);
    cmn().NUMCRS = 1;
    for (int i = 0; i < 50; ++i) {
        const double D = 0.9144 + 0.0254 * i;
        const double t = 0.0127 + 0.0011 * i;
        const double yield = 3.45e5 + 7 * i;
        give_material(1, 2.05e8, 7.9e7, yield, 77.0, 1.2e-5);
        give_tube(1, 1, D, t);
        form_section_properties(cmn());
        form_composite_sections(cmn());
        const double A = ((D - t) * cmn().PI) * t;
        EXPECT_EQ(slots(1, 16, 17), (Slots{A * yield, (A * (0.5 * yield)) * ((D - t) * 0.5)}));
    }
}

// Section 1 is composite, of sections 4 and 5; sections 2 and 3 are plain.
class CompositeSections : public SectionProperties {
protected:
    CompositeSections() {
        cmn().IREV = 5;
        cmn().NUMCRS = 3;
        cmn().MATCRS(1) = 2;
        cmn().ITYCRS(1) = 2;
        give_tube(2, 1, 2.0, 0.5);
        give_tube(3, 1, 2.0, 0.5);
        give_tube(4, 1, 2.0, 0.5);
        give_tube(5, 2, 1.0, 0.5);
    }

    void form() {
        form_section_properties(cmn());
        form_composite_sections(cmn());
    }
};

TEST_F(CompositeSections, IsTheSumOfItsSubSections) {
    form();
    // A, EA, GA, EI, GJ: 2.25 + 0.75, 18 + 1.5, 9 + 0.75, 5.625 + 0.09375 twice;
    // yield: 36 + 3 and 13.5 + 0.75*2*0.25.
    EXPECT_EQ(slots(1, 1, 17), (Slots{2.0, 0.0, 3.0, 0.0, 19.5, 9.75, 5.71875, 5.71875, 0.0, 0.0,
                                      0.0, 0.0, 0.0, 0.0, 0.0, 39.0, 13.875}));
    EXPECT_EQ(cmn().MATCRS(1), 0);
}

TEST_F(CompositeSections, SubSectionsBecomeSectionsOfTheirOwn) {
    cmn().CRSVAL(15, 4) = 7.0; // left as it is
    cmn().CRSVAL(18, 4) = 7.0;
    form();
    EXPECT_EQ(cmn().NUMCRS, 5);
    EXPECT_EQ(slots(4, 1, 14), wide_tube());
    EXPECT_EQ(slots(4, 15, 18), (Slots{7.0, 36.0, 13.5, 7.0}));
    EXPECT_EQ(slots(5, 1, 14), solid_bar());
    EXPECT_EQ(slots(5, 16, 17), (Slots{3.0, 0.375}));
    EXPECT_EQ(cmn().MATCRS(4), 1);
    EXPECT_EQ(cmn().MATCRS(5), 2);
    EXPECT_EQ(slots(2, 16, 17), (Slots{36.0, 13.5})); // the plain one
}

TEST_F(CompositeSections, FollowOneAnotherBehindThePrimarySections) {
    cmn().ITYCRS(3) = 2;
    give_tube(6, 2, 1.0, 0.5);
    give_tube(7, 1, 2.0, 0.5);
    form();
    EXPECT_EQ(cmn().NUMCRS, 7);
    EXPECT_EQ(slots(3, 1, 17), slots(1, 1, 17)); // the same two, the wider one behind
    EXPECT_EQ(slots(7, 1, 14), wide_tube());
    EXPECT_EQ(cmn().MATCRS(3), 0);
}

TEST_F(CompositeSections, GivenStiffnessOfASubSectionIsSummed) {
    cmn().STFAX(5) = 100.0;
    form();
    EXPECT_EQ(cmn().CRSVAL(5, 1), 118.0);
}

TEST_F(CompositeSections, EqualDiametersGiveThatDiameter) {
    cmn().DIAM(5) = 2.0;
    form();
    EXPECT_EQ(cmn().CRSVAL(1, 1), 2.0);
    EXPECT_EQ(cmn().NUMCRS, 5);
}

TEST_F(CompositeSections, WithoutSubSectionsEverythingIsZero) {
    cmn().ITYCRS(1) = 0;
    form();
    EXPECT_EQ(slots(1, 1, 17), Slots(17, 0.0));
    EXPECT_EQ(cmn().MATCRS(1), 0);
    EXPECT_EQ(cmn().NUMCRS, 3);
}

TEST_F(CompositeSections, SubSectionWithoutAMaterialAddsItsAreaOnly) {
    cmn().MATCRS(5) = 0;
    form();
    EXPECT_EQ(slots(1, 3, 8), (Slots{3.0, 0.0, 18.0, 9.0, 5.625, 5.625}));
    EXPECT_EQ(slots(1, 16, 17), (Slots{36.0, 13.5}));
}

} // namespace
} // namespace korvat::test
