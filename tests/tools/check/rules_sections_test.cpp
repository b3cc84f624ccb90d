// The rules on sections, each with a deck that it speaks of and one just beside it.
#include "rule_fixture.hpp"

namespace korvat::test {
namespace {

std::string with_wall(std::string_view wall) {
    return changed(sound_deck, "  1  1    1.0       0.030 ",
                   "  1  1    1.0       " + std::string(wall) + " ");
}

TEST(SectionRules, WallOverRadius) {
    const std::string rule = "wall-over-radius";
    const std::string remedy =
        "Give the wall in the unit of the diameter; half the diameter makes a "
        "solid bar.";
    EXPECT_EQ(found_in_refused(rule, with_wall("25.0")),
              (Findings{warning(rule, {20, 21, 4},
                                "the wall 25 of section 1 is more than half the diameter 1; it "
                                "looks like mm under a diameter in m",
                                remedy)}));
    EXPECT_EQ(
        found_in_refused(rule, with_wall("0.51")),
        (Findings{warning(rule, {20, 21, 4},
                          "the wall 0.51 of section 1 is more than half the diameter 1", remedy)}));
    EXPECT_EQ(found_by(rule, with_wall("0.5")), Findings{});
}

TEST(SectionRules, SmallSlenderness) {
    const std::string rule = "dt-small";
    // 1 / 0.126 = 7.9365
    EXPECT_EQ(found_by(rule, with_wall("0.126")),
              (Findings{warning(
                  rule, {20, 21, 5},
                  "the wall 0.126 of section 1 makes D/t 7.937; tubes of metal have 8 or more",
                  "Check wall and diameter 1.")}));
    EXPECT_EQ(found_by(rule, with_wall("0.125")), Findings{});
    EXPECT_EQ(found_by(rule, with_wall("0.5")), Findings{}) << "a solid bar";
    const std::string concrete =
        changed(with_wall("0.126"), "  1    2.1E8       8.077E7      3.55E5     77.0 ",
                "  1    3.3E7       1.375E7      45000.     25.0 ");
    EXPECT_EQ(found_by(rule, concrete), Findings{});
}

TEST(SectionRules, LargeSlenderness) {
    const std::string rule = "dt-large";
    EXPECT_EQ(
        found_by(rule, with_wall("0.00825")),
        (Findings{warning(rule, {20, 21, 7},
                          "the wall 0.00825 of section 1 makes D/t 121.2, above 120: the wall "
                          "buckles before it yields",
                          "Check wall and diameter; a tube like this needs a shell buckling "
                          "check of its own.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, "  1  1    1.0       0.030 ",
                                     "  1  1    1.2       0.010 ")),
              Findings{});
}

TEST(SectionRules, SlendernessThatStopsTheRun) {
    const std::string rule = "dt-stops-run";
    const std::string line = "  2  1  -1    1   1.000  ";
    EXPECT_EQ(found_in_refused(rule, changed(sound_deck_5(), line + "0.030", line + "0.00825")),
              (Findings{warning(
                  rule, {26, 26, 7},
                  "the wall 0.00825 of section 2 makes D/t 121.2, above 120: no yield curve "
                  "can be computed, and the run stops",
                  "Make the wall thicker, or give the curve by points with a code of 1 to "
                  "10.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck_5(), line + "0.030", line + "0.00834")),
              Findings{});
    EXPECT_EQ(found_by("dt-large", changed(sound_deck_5(), line + "0.030", line + "0.00834")),
              Findings{});
}

TEST(SectionRules, GivenStiffness) {
    const std::string rule = "stiffness-far";
    const std::string line = "  1  1    1.0       0.030   ";
    const std::string remedy = "Check its units and the order EA, EI, GA, GJ; 0 has it computed.";
    // EA = 2.1E8 pi 0.97 0.03 = 1.91983E7, EI = 2.1E8 pi (1 - 0.94^4) / 64 = 2.26012E6
    EXPECT_EQ(found_by(rule, changed(sound_deck, line + "0.  0.", line + "9.7E7 0.")),
              (Findings{warning(rule, {20, 29, 5},
                                "the given EA 9.7E7 of section 1 is 5.05 times that of the tube, "
                                "1.91983E7",
                                remedy)}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, line + "0.  0.", line + "0. 2260.")),
              (Findings{warning(rule, {20, 32, 5},
                                "the given EI 2260 of section 1 is 0.001 times that of the tube, "
                                "2.26012E6",
                                remedy)}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, line + "0.  0.", line + "9.5E7 4.6E5")),
              Findings{});
}

TEST(SectionRules, NoAxialYield) {
    const std::string rule = "no-axial-yield";
    const std::string linear = changed(sound_deck_5(), "  2  1  -1    1 ", "  2  1   0    1 ");
    const auto with_yield = [&](std::string_view stress) {
        return changed(linear, "8.077E7      3.55E5 ", "8.077E7      " + std::string(stress) + " ");
    };
    const std::string remedy = "Give material 1 its yield stress, if the axial capacity is wanted.";
    EXPECT_EQ(
        found_by(rule, with_yield("0.0")),
        (Findings{note(rule, {24, 19, 1},
                       "the sum of A sigma_y of section 1 is 0: its material has no yield stress",
                       remedy),
                  note(rule, {26, 15, 1},
                       "the sum of A sigma_y of section 2 is 0: its material has no yield stress",
                       remedy)}));
    EXPECT_EQ(found_by(rule, with_yield("1.0")), Findings{});
}

TEST(SectionRules, CurveFarFromYield) {
    const std::string rule = "curve-far";
    const std::string line = "  3  1    15600.      0.    ";
    // A sigma_y = pi 0.78 0.02 3.55E5 = 17398.1; 3 times that is 52194.
    EXPECT_EQ(found_by(rule, changed(sound_deck_5(), line + "17400.", line + "52300.")),
              (Findings{warning(rule, {28, 29, 6},
                                "the largest axial force 52300 of the yield curve of section 3 is "
                                "3.01 times its sum of A sigma_y, 17398.1",
                                "Give the points in stored units: they are not multiplied by the "
                                "unit factors.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck_5(), line + "17400.", line + "52100.")),
              Findings{});
}

TEST(SectionRules, CurveInTheUnitsOfTheDeck) {
    // In N the yield force is 1.73981E7, and the points are not multiplied.
    const std::string in_newton = changed(sound_deck_5(), "  1.0     force", "  1000.   force");
    const Findings found = found_by("curve-far", in_newton);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().message,
              "the largest axial force 17400 of the yield curve of section 3 "
              "is 0.001 times its sum of A sigma_y, 1.73981E7");
}

TEST(SectionRules, ElasticCurveOutside) {
    const std::string rule = "elastic-outside-plastic";
    const std::string line = "  3  2        0.   ";
    // 1 % of the largest plastic moment, 4320, is rounding: 4363.2 is the border.
    EXPECT_EQ(
        found_by(rule, changed(sound_deck_5(), line + "3310.", line + "4364.")),
        (Findings{warning(rule, {29, 20, 5},
                          "the elastic moment 4364 of section 3 at the axial force 0 is above "
                          "the plastic one, 4320",
                          "Exchange the curves, or correct the point: a section yields before "
                          "it reaches its capacity.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck_5(), line + "3310.", line + "4363.")), Findings{});
    // At the axial force 8700, half-way down the plastic curve, the plastic moment is 2160.
    EXPECT_EQ(found_by(rule, changed(sound_deck_5(), "  3  2        0.   3310.",
                                     "  3  2     8700.   3310."))
                  .at(0)
                  .message,
              "the elastic moment 3310 of section 3 at the axial force 8700 is above the plastic "
              "one, 2160");
}

TEST(SectionRules, PoissonsRatio) {
    const std::string rule = "poisson-unusual";
    // 2.1E8 / (2 9E7) - 1 = 0.1667
    EXPECT_EQ(found_by(rule, changed(sound_deck, "8.077E7", "9.0E7  ")),
              (Findings{warning(
                  rule, {16, 20, 5},
                  "E and G of material 1 make Poisson's ratio 0.167; steel has 0.24 to 0.36",
                  "Check the shear modulus 9E7: it is E/(2 (1 + nu)).")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, "8.077E7", "8.46E7 ")), Findings{});
}

TEST(SectionRules, UnusedSection) {
    const std::string rule = "section-unused";
    EXPECT_EQ(
        found_by(rule, changed(sound_deck, "  2  1      3  ", "  2  1      1  ")),
        (Findings{note(rule, {21, 3, 1}, "no segment type uses section 2",
                       "Leave it out if it is a remnant; check the segment types if it is not.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, "  2  1      3  ", "  2  3      1  ")),
              Findings{});
}

TEST(SectionRules, UnusedMaterial) {
    const std::string rule = "material-unused";
    const std::string two =
        changed(changed(sound_deck, "  1       material", "  2       material"), "1.2E-5\n",
                "1.2E-5\n  2    2.1E8       8.077E7      4.20E5     77.0          1.2E-5\n");
    EXPECT_EQ(
        found_by(rule, two),
        (Findings{note(rule, {17, 3, 1}, "no section uses material 2",
                       "Leave it out if it is a remnant; check the sections if it is not.")}));
    EXPECT_EQ(found_by(rule, changed(two, "  3  1    1.0 ", "  3  2    1.0 ")), Findings{});
}

TEST(SectionRules, UnusedSegmentType) {
    const std::string rule = "segment-unused";
    EXPECT_EQ(
        found_by(rule, changed(sound_deck, "  2  2     1 2", "  2  2     1 1")),
        (Findings{note(rule, {27, 3, 1}, "no pile uses segment type 2",
                       "Leave it out if it is a remnant; check the segment table if it is not.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, "  2  2     1 2", "  2  2     2 1")), Findings{});
}

} // namespace
} // namespace korvat::test
