// The rules on units, each with a deck that it speaks of and one just beside it.
#include "rule_fixture.hpp"

#include "check/deck_view.hpp"
#include "check/text.hpp"

namespace korvat::test {
namespace {

constexpr std::string_view material_line =
    "  1    2.1E8       8.077E7      3.55E5     77.0          1.2E-5";

std::string with_material(std::string_view line) {
    return changed(sound_deck, material_line, line);
}

std::string with_section(std::string_view diameter_and_wall) {
    return changed(sound_deck, "  1  1    1.0       0.030 ",
                   "  1  1    " + std::string(diameter_and_wall) + " ");
}

// The sound deck with its numbers in other units: one of them is so many kN, or m.
std::string sound_deck_in(double force, double length, double force_factor = 1.0,
                          double length_factor = 1.0) {
    const auto shown = [](double value) { return check::text_of(value, 9); };
    const auto lengths = [&](const std::vector<double>& values) {
        std::string text;
        for (const double value : values)
            text += " " + shown(value / length);
        return text;
    };
    const double stress = force / (length * length);
    const double weight = stress / length;
    std::string deck =
        with_material(" 1 " + shown(2.1e8 / stress) + " " + shown(8.077e7 / stress) + " " +
                      shown(3.55e5 / stress) + " " + shown(77.0 / weight) + " 1.2E-5");
    deck = changed(deck, "  1.0     force", shown(force_factor) + " force");
    deck = changed(deck, "  1.0     length", shown(length_factor) + " length");
    const std::string fluid = " 0. 0. 0. 0. " + shown(10.0 / weight);
    const auto section = [&](const std::string& from, const std::string& number, double wall) {
        deck = changed(deck, from, number + " 1 " + lengths({1.0, wall}) + fluid);
    };
    section("  1  1    1.0       0.030   0.  0.  0.  0.  10.0", "1", 0.030);
    section("  2  1    1.0       0.025   0.  0.  0.  0.  10.0", "2", 0.025);
    section("  3  1    1.0       0.020   0.  0.  0.  0.  10.0", "3", 0.020);
    deck = changed(deck, "  1  1      1    12.0 ", " 1 1 1" + lengths({12.0}));
    deck = changed(deck, "  2  1      3    12.0 ", " 2 1 3" + lengths({12.0}));
    deck = changed(deck, "  3  3      3    13.0 ", " 3 3 3" + lengths({13.0}));
    deck = changed(deck, "  1  0   0    0.0  0.0  -1.0  0.0  0.0  -1.0",
                   " 1 0 0" + lengths({0.0, 0.0, -1.0, 0.0, 0.0, -1.0}));
    deck = changed(deck, "  2  0   0    3.0  2.0  0.0   3.0  2.0  24.0",
                   " 2 0 0" + lengths({3.0, 2.0, 0.0, 3.0, 2.0, 24.0}));
    deck = changed(deck, "  4  0   0    3.0  -2.0 0.0   10.0 -2.0 24.0",
                   " 4 0 0" + lengths({3.0, -2.0, 0.0, 10.0, -2.0, 24.0}));
    return changed(deck, "     0.03 0.0 0.0 ", lengths({0.03, 0.0, 0.0}));
}

constexpr double newton = 1.0e-3; // in kN
constexpr double kip = 4.4482216;
constexpr double foot = 0.3048; // in m
constexpr double inch = 0.0254;
constexpr double millimetre = 1.0e-3;

TEST(UnitRules, NothingToSayOfTheSameDeckInAnyUnits) {
    EXPECT_EQ(CheckedDeck(sound_deck_in(1.0, 1.0)).all_findings(), Findings{});
    EXPECT_EQ(CheckedDeck(sound_deck_in(newton, 1.0)).all_findings(), Findings{});
    EXPECT_EQ(CheckedDeck(sound_deck_in(newton, millimetre)).all_findings(), Findings{});
    EXPECT_EQ(CheckedDeck(sound_deck_in(1000.0, 1.0)).all_findings(), Findings{});
    EXPECT_EQ(CheckedDeck(sound_deck_in(kip, foot)).all_findings(), Findings{});
    EXPECT_EQ(CheckedDeck(sound_deck_in(kip, inch)).all_findings(), Findings{});
    EXPECT_EQ(CheckedDeck(sound_deck_in(1.0, millimetre)).all_findings(), Findings{});
    EXPECT_EQ(CheckedDeck(sound_deck_in(1.0, 0.01)).all_findings(), Findings{});
    EXPECT_EQ(CheckedDeck(sound_deck_in(9.80665, 1.0)).all_findings(), Findings{});
    EXPECT_EQ(CheckedDeck(sound_deck_in(newton, millimetre, 0.001, 0.001)).all_findings(),
              Findings{});
    EXPECT_EQ(CheckedDeck(sound_deck_in(kip, inch, 4.448, 0.0254)).all_findings(), Findings{});
}

TEST(UnitRules, NothingToSayOfTheMaterialsOfPiles) {
    for (const std::string line : {"  1  3.3E7 1.375E7 45000. 25.0 1.0E-5",  // concrete
                                   "  1  7.0E7 2.632E7 2.4E5 27.0 2.3E-5",   // aluminium
                                   "  1  1.1E7 7.0E5 24000. 5.0 5.0E-6",     // timber
                                   "  1  2.1E8 8.077E7 0. 0. 0.",            // of steel, the least
                                   "  1  2.1E8 8.077E7 3.55E5 66.8 1.2E-5"}) // steel in water
        EXPECT_EQ(CheckedDeck(with_material(line)).all_findings(), Findings{}) << line;
}

TEST(UnitRules, FactorNotPositive) {
    const std::string rule = "factor-not-positive";
    const std::string deck = changed(sound_deck, "  1.0     force", "  0.0     force");
    EXPECT_EQ(
        found_by(rule, deck),
        (Findings{warning(rule, {4, 3, 3}, "the force factor 0 is not above zero and counts as 1.0",
                          "Write 1.0, or the factor that is meant.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, "  1.0     length", "  -5      length")),
              (Findings{warning(rule, {5, 3, 2},
                                "the length factor -5 is not above zero and counts as 1.0",
                                "Write 1.0, or the factor that is meant.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, "  1.0     force", "  1.1E-10 force")),
              Findings{});
}

TEST(UnitRules, ForceFactor) {
    const std::string rule = "force-factor";
    const std::string wrong_way = sound_deck_in(newton, 1.0, 1000.0);
    EXPECT_EQ(found_by(rule, wrong_way),
              (Findings{warning(rule, word_of(wrong_way, "1000 force", 1),
                                "the force factor 1000 turns the numbers of the deck, which are in "
                                "N, into units of 0.001 N",
                                "Give 0.001, which turns N into kN.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, "  1.0     force", "  2.0     force")),
              (Findings{warning(rule, {4, 3, 3},
                                "the force factor 2 turns the numbers of the deck, which are in "
                                "kN, into units of 0.5 kN",
                                "Give 1.0, or the factor from kN to the unit that is wanted.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, "  1.0     force", "1.0102 force")).size(), 1U);
    for (const std::string factor : {"1000.", "0.001", "0.2248", "1.0098", "0.9902"})
        EXPECT_EQ(found_by(rule, changed(sound_deck, "  1.0     force", factor + " force")),
                  Findings{})
            << factor;
}

TEST(UnitRules, LengthFactor) {
    const std::string rule = "length-factor";
    const std::string deck = changed(sound_deck, "  1.0     length", "  0.001   length");
    EXPECT_EQ(found_by(rule, deck),
              (Findings{warning(rule, {5, 3, 5},
                                "the length factor 0.001 turns the numbers of the deck, which are "
                                "in m, into units of 1000 m",
                                "Give 1000, which turns m into mm.")}));
    for (const std::string factor : {"1000.", "100.", "3.2808", "39.37"})
        EXPECT_EQ(found_by(rule, changed(sound_deck, "  1.0     length", factor + " length")),
                  Findings{})
            << factor;
}

TEST(UnitRules, UnitSystem) {
    const std::string rule = "unit-system";
    const std::string unknown = "  1    7.0   2.7  0.0  0.0  1.2E-5";
    EXPECT_EQ(found_by(rule, with_material(unknown)),
              (Findings{warning(
                  rule, {16, 8, 3},
                  "the E-modulus 7 of material 1 is that of no steel, concrete, aluminium or "
                  "timber in kN and m, N and m, N and mm, MN and m, kip and ft, kip and inch, kN "
                  "and mm, kN and cm or tf and m",
                  "Give modulus, yield stress and unit weight in the force and length units of the "
                  "deck; the other rules on units have not looked at this deck.")}));
    // Weight and yield stress tell the units: the modulus alone is odd.
    const std::string known = "  1    7.0   2.7  3.55E5  77.0  1.2E-5";
    EXPECT_EQ(found_by(rule, with_material(known)), Findings{});
}

TEST(UnitRules, ModulusUnusual) {
    const std::string rule = "modulus-unusual";
    EXPECT_EQ(found_by(rule, with_material("  1  2.1E11 8.077E10 3.55E5 77.0 1.2E-5")),
              (Findings{warning(rule, {16, 6, 6},
                                "the E-modulus 2.1E11 of material 1 is that of no pile material in "
                                "kN and m, the units of the other values; in N and m it is that of "
                                "steel",
                                "Give the modulus in the units of the deck.")}));
    EXPECT_EQ(found_by(rule, with_material("  1  2.26E8 8.7E7 3.55E5 77.0 1.2E-5")),
              (Findings{warning(rule, {16, 6, 6},
                                "the E-modulus 2.26E8 of material 1 is that of no pile material in "
                                "kN and m, the units of the other values",
                                "Give the modulus in the units of the deck.")}));
    EXPECT_EQ(found_by(rule, with_material("  1  2.25E8 8.7E7 3.55E5 77.0 1.2E-5")), Findings{});
}

TEST(UnitRules, YieldUnusual) {
    const std::string rule = "yield-unusual";
    const std::string remedy = "Give it in the units of the modulus: steel has 1.5E5 to 1.1E6.";
    EXPECT_EQ(found_by(rule, with_material("  1  2.1E8 8.077E7 355. 77.0 1.2E-5")),
              (Findings{warning(rule, {16, 20, 4},
                                "the yield stress 355 of material 1 is not that of steel in kN and "
                                "m; in N and mm it is",
                                remedy)}));
    EXPECT_EQ(
        found_by(rule, with_material("  1  2.1E8 8.077E7 1.49E5 77.0 1.2E-5")),
        (Findings{warning(rule, {16, 20, 6},
                          "the yield stress 149000 of material 1 is not that of steel in kN and m",
                          remedy)}));
    EXPECT_EQ(found_by(rule, with_material("  1  2.1E8 8.077E7 1.5E5 77.0 1.2E-5")), Findings{});
}

TEST(UnitRules, WeightUnusual) {
    const std::string rule = "weight-unusual";
    const std::string remedy = "Give it in the units of the modulus: steel, dry or under water, "
                               "has 60 to 82.";
    EXPECT_EQ(found_by(rule, with_material("  1  2.1E8 8.077E7 3.55E5 0.077 1.2E-5")),
              (Findings{warning(rule, {16, 27, 5},
                                "the unit weight 0.077 of material 1 is not that of steel in kN "
                                "and m; in MN and m it is",
                                remedy)}));
    EXPECT_EQ(found_by(rule, with_material("  1  2.1E8 8.077E7 3.55E5 83.0 1.2E-5")),
              (Findings{warning(rule, {16, 27, 4},
                                "the unit weight 83 of material 1 is not that of steel in kN and m",
                                remedy)}));
    EXPECT_EQ(found_by(rule, with_material("  1  2.1E8 8.077E7 3.55E5 82.0 1.2E-5")), Findings{});
}

TEST(UnitRules, DensityAsWeight) {
    const std::string rule = "density-as-weight";
    const std::string density = with_material("  1  2.1E8 8.077E7 3.55E5 7.85 1.2E-5");
    // 7.85 t/m3 times 9.80665 m/s2 = 76.98 kN/m3
    EXPECT_EQ(found_by(rule, density),
              (Findings{warning(rule, {16, 27, 4},
                                "the unit weight 7.85 of material 1 looks like a density in t/m3",
                                "Give the density times gravity: 77 in kN and m.")}));
    EXPECT_EQ(found_by("weight-unusual", density), Findings{});
    const std::string none = with_material("  1  2.1E8 8.077E7 3.55E5 8.2 1.2E-5");
    EXPECT_EQ(found_by(rule, none), Findings{});
    EXPECT_EQ(found_by("weight-unusual", none).size(), 1U);
}

TEST(UnitRules, DiameterUnusual) {
    const std::string rule = "diameter-unusual";
    const std::string remedy = "Give it in the length unit of the deck, m.";
    EXPECT_EQ(
        found_by(rule, with_section("914.0 25.0")),
        (Findings{warning(rule, {20, 11, 5},
                          "the diameter 914 of section 1 is 914 m in kN and m; it looks like mm",
                          remedy)}));
    EXPECT_EQ(
        found_by(rule, with_section("0.059 0.005")),
        (Findings{warning(rule, {20, 11, 5},
                          "the diameter 0.059 of section 1 is 0.059 m in kN and m", remedy)}));
    EXPECT_EQ(found_by(rule, with_section("15.1 0.2")),
              (Findings{warning(rule, {20, 11, 4},
                                "the diameter 15.1 of section 1 is 15.1 m in kN and m", remedy)}));
    EXPECT_EQ(found_by(rule, with_section("15.0 0.2")), Findings{});
    EXPECT_EQ(found_by(rule, with_section("0.06 0.005")), Findings{});
}

TEST(UnitRules, WallUnusual) {
    const std::string rule = "wall-unusual";
    EXPECT_EQ(found_by(rule, with_section("0.15 0.0015")),
              (Findings{warning(rule, {20, 16, 6},
                                "the wall 0.0015 of section 1 is 1.5 mm in kN and m; a metal tube "
                                "has 2 to 200 mm",
                                "Give it in the length unit of the deck, m.")}));
    EXPECT_EQ(found_by(rule, with_section("0.15 0.002")), Findings{});
    // D/t of 6: that is for another rule
    EXPECT_EQ(found_by(rule, with_section("1.5 0.25")), Findings{});
}

// Pile 2 with a second segment of another length.
std::string with_length(const std::string& second_segment, const std::string& tip) {
    return changed(
        changed(sound_deck, "  2  1      3    12.0 ", "  2  1      3    " + second_segment + " "),
        "  2  0   0    3.0  2.0  0.0   3.0  2.0  24.0",
        "  2  0   0    3.0  2.0  0.0   3.0  2.0  " + tip);
}

TEST(UnitRules, LengthUnusual) {
    const std::string rule = "length-unusual";
    const std::string remedy = "Give head and tip in the length unit of the deck, m.";
    EXPECT_EQ(found_by(rule, with_length("23988.", "24000.")),
              (Findings{warning(rule, {33, 41, 6},
                                "pile 2 is 24000 long from head to tip, 2.4E4 m in kN and m; it "
                                "looks like mm",
                                remedy)}));
    EXPECT_EQ(
        found_by(rule, with_length("289.", "301.")),
        (Findings{warning(rule, {33, 41, 4},
                          "pile 2 is 301 long from head to tip, 301 m in kN and m", remedy)}));
    EXPECT_EQ(found_by(rule, with_length("288.", "300.")), Findings{});
    const auto stub = [](const std::string& length) {
        return changed(with_length(length, length), "  2  2     1 2", "  2  1     2");
    };
    EXPECT_EQ(
        found_by(rule, stub("0.49")),
        (Findings{warning(rule, {33, 41, 4},
                          "pile 2 is 0.49 long from head to tip, 0.49 m in kN and m", remedy)}));
    EXPECT_EQ(found_by(rule, stub("0.50")), Findings{});
}

TEST(UnitRules, FluidWeightUnusual) {
    const std::string rule = "fluid-weight-unusual";
    const std::string line = "  1  1    1.0       0.030   0.  0.  0.  0.  ";
    EXPECT_EQ(found_by(rule, changed(sound_deck, line + "10.0", line + "1.03")),
              (Findings{warning(
                  rule, {20, 45, 4},
                  "the unit weight 1.03 of the fluid in section 1 is 1.03 kN/m3 in kN and m",
                  "Give a unit weight in the units of the deck: water has 9.81.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, line + "10.0", line + "4.9")).size(), 1U);
    EXPECT_EQ(found_by(rule, changed(sound_deck, line + "10.0", line + "30.5")).size(), 1U);
    for (const std::string weight : {"0.0", "5.0", "30.0"})
        EXPECT_EQ(found_by(rule, changed(sound_deck, line + "10.0", line + weight)), Findings{})
            << weight;
}

TEST(UnitRules, TemperatureStrainUnusual) {
    const std::string rule = "temperature-strain-unusual";
    EXPECT_EQ(found_by(rule, with_material("  1  2.1E8 8.077E7 3.55E5 77.0 1.2E-6")),
              (Findings{warning(rule, {16, 32, 6},
                                "the temperature strain 1.2E-6 of material 1 is not that of a pile "
                                "material for one degree",
                                "Give the strain for one degree: steel has 1.2E-5 for one degree "
                                "Celsius, 6.5E-6 for one Fahrenheit.")}));
    EXPECT_EQ(found_by(rule, with_material("  1  2.1E8 8.077E7 3.55E5 77.0 1.49E-6")).size(), 1U);
    EXPECT_EQ(found_by(rule, with_material("  1  2.1E8 8.077E7 3.55E5 77.0 1.5E-6")), Findings{});
    EXPECT_EQ(found_by(rule, with_material("  1  2.1E8 8.077E7 3.55E5 77.0 3.0E-5")), Findings{});
    EXPECT_EQ(found_by(rule, with_material("  1  2.1E8 8.077E7 3.55E5 77.0 3.08E-5")).size(), 1U);
    EXPECT_EQ(found_by(rule, with_material("  1  2.1E8 8.077E7 3.55E5 77.0 0.99E-4")).size(), 1U);
    // The program itself warns above 1.0E-4.
    EXPECT_EQ(found_by(rule, with_material("  1  2.1E8 8.077E7 3.55E5 77.0 1.01E-4")), Findings{});
}

} // namespace
} // namespace korvat::test
