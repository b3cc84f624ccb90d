// Tests of the independent calculation for decks of revision 5 and for load vectors, against figures
// worked out by hand.
#include "deck_reader.hpp"
#include "expected_file.hpp"
#include "pile_model.hpp"
#include "scaled_deck.hpp"
#include "text.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <numbers>
#include <stdexcept>
#include <variant>

namespace korvat::test {
namespace {

// Forces of the deck are 10 kN, lengths 2 m: stresses take the factor 10 / 2^2 = 2.5, unit weights
// 1.25, moments 20, bending stiffnesses 40. Section 2 is a composite of a tube with a given axial
// stiffness and an insert that fills it.
constexpr std::string_view deck_of_revision_5 = R"(A pile with an insert
KORVAT Version: 2009-09-01

heading
10
2
2 piles
3 sections
1
2
2 load vectors
7 print level
0

heading
heading
heading
1 8.4e7 3.2e7 120000 8 1.2e-5

first heading
second heading
third heading
1,1,2,1, 0.5,0.02,0,0,0,0,4.0, 0.25,1,2,3 this is not looked at
2 2 0 0	0 0 0 0 0 0 0 0.5 4 5 6
2 1 1 0 1 0.5 0.05 7.0e5 0 0 0 0 -0.1 7 8 9

2 2
1 0 1
0.4 0.04 0 0 0 0 0 0,
10 11 12
3 1 0 1 0.5 0.02 0 0 0 0 0 0 0 0 0
1 1  30 0 40 0
1 2 -30 0 -40 0

heading
heading
1 1 1 2.5 2
2 2 2 4.0 1

heading
heading
1 0 0 0 0 0  0 0 6.5
2 0 0 5 6 7  5 6 7
heading
1 2 1 2
2 0
heading
1 2 0 0

heading
heading
1 1 3 4 4  1 0 0 0 0 0
0 0 0 0 0  0 0 0 0 0 0

heading of the vectors
first vector
2
1.5
heading of the piles
2 1 2 3
 4 5 6
2 1 2 3 4 5 6
second vector
1
-1
heading of the piles
1 1 0 0 0 0 1
END
)";

std::vector<double> numbers_of(const ExpectedRecord& record) {
    std::vector<double> values;
    for (const ExpectedItem& item : record.items) {
        const auto* const integer = std::get_if<std::int32_t>(&item);
        values.push_back(integer != nullptr ? *integer : std::get<double>(item));
    }
    return values;
}

void expect_slots(const ModelSection& section, const std::array<double, 20>& expected) {
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(section.values[i], expected[i], 1.0e-12 * std::abs(expected[i]))
            << "slot " << i + 1;
    }
}

TEST(SupportDeckReader, ReadsRevision5) {
    const Deck deck = parse_deck(deck_of_revision_5);
    EXPECT_EQ(deck.revision, 5);
    EXPECT_EQ(deck.print_level, 2);
    ASSERT_EQ(deck.section_records.size(), 3U);
    EXPECT_EQ(deck.section_records[0].nonlinear, 2);
    EXPECT_EQ(deck.section_records[0].fluid_weight, 4.0);
    EXPECT_EQ(deck.section_records[1].type, 2);
    EXPECT_EQ(deck.section_records[1].miscellaneous, (std::array<double, 3>{4, 5, 6}));
    ASSERT_EQ(deck.sub_sections.at(2).size(), 2U);
    EXPECT_EQ(deck.sub_sections.at(2)[0].eccentricity, -0.1);
    EXPECT_EQ(deck.sub_sections.at(2)[1].wall, 0.04);
    EXPECT_EQ(deck.sub_sections.at(2)[1].miscellaneous, (std::array<double, 3>{10, 11, 12}));
    ASSERT_EQ(deck.yield_points.at(1).size(), 2U);
    EXPECT_EQ(deck.yield_points.at(1)[1].plastic_axial, -40.0);
    EXPECT_EQ(deck.yield_points.count(2), 0U);
    ASSERT_EQ(deck.load_vectors.size(), 2U);
    EXPECT_EQ(deck.load_vectors[1].label, "second vector" + std::string(67, ' '));
    EXPECT_EQ(deck.load_vectors[0].loads[0].components[5], 6.0);
}

TEST(SupportDeckReader, RejectsWhatIsWrongInRevision5) {
    const auto changed = [](std::string_view part, std::string_view by) {
        return with_change(deck_of_revision_5, part, by);
    };
    const std::vector<std::string> broken = {changed("third heading\n", ""),
                                             changed("1,1,2,1,", "1,1.0,2,1,"),
                                             changed("1,1,2,1,", "1 ,1,2,1,"),
                                             changed("1,1,2,1,", "1,,2,1,"),
                                             changed("1,1,2,1,", "1,1,11,1,"),
                                             changed("0.5,0.02", "0.5/0.02"),
                                             changed("1,2,3 this", "2*1,2 this"),
                                             changed("0,0,0,0,4.0", "3*0,0,4.0"),
                                             changed("2 1 1 0 1", "2 2 1 0 1"),
                                             changed("2 1 1 0 1", "2 1 2 0 1"),
                                             changed("2 1 1 0 1", "2 1 1 1 1"),
                                             changed("2 1 1 0 1", "1 1 1 0 1"),
                                             changed("3 1 0 1 0.5", "3 0 0 1 0.5"),
                                             changed("3 1 0 1 0.5", "4 1 0 1 0.5"),
                                             changed("1 2 -30 0", "1 1 -30 0"),
                                             changed("1 2 -30 0", "1 2 1e401 0"),
                                             changed("\nheading of the v", "heading of the v"),
                                             changed("2\n1.5", "0\n1.5"),
                                             changed("2\n1.5", "3\n1.5"),
                                             changed("2 1 2 3 4", "3 1 2 3 4")};
    for (std::size_t i = 0; i < broken.size(); ++i) {
        EXPECT_THROW(parse_deck(broken[i]), std::runtime_error) << "deck " << i + 1;
    }
}

TEST(SupportPileModel, ComputesPlainSectionsOfRevision5) {
    const PileModel model = build_model(parse_deck(deck_of_revision_5));
    ASSERT_EQ(model.sections.size(), 5U);
    // D = 1.0, t = 0.04: A = 0.96 * 0.04 pi, I = (1 - 0.92^4) pi / 64 = 0.28360704 pi / 64.
    // E = 8.4e7 * 2.5 = 2.1e8, G = 8.0e7, yield 300000: the radius is 0.48, half the stress 150000.
    const double pi = std::numbers::pi;
    const double area = 0.0384 * pi;
    const double inertia = 0.00443136 * pi;
    expect_slots(model.sections[0], {1.0,
                                     0.04,
                                     area,
                                     2.0 * inertia,
                                     2.1e8 * area,
                                     8.0e7 * area,
                                     2.1e8 * inertia,
                                     1.6e8 * inertia,
                                     10.0,
                                     5.0,
                                     1.2e-5,
                                     300000.0,
                                     2.1e8,
                                     8.0e7,
                                     0.25,
                                     300000.0 * area,
                                     150000.0 * 0.48 * area,
                                     1.0,
                                     2.0,
                                     3.0});
    EXPECT_EQ(model.sections[0].points.size(), 2U);
}

TEST(SupportPileModel, AddsUpComposites) {
    const PileModel model = build_model(parse_deck(deck_of_revision_5));
    // Outer tube: D = 1.0, t = 0.1, A = 0.09 pi, I = (1 - 0.4096) pi / 64; insert: D = 0.8, t = 0.08,
    // A = 0.0576 pi, I = (0.4096 - 0.64^4) pi / 64 = 0.24182784 pi / 64. EA of the outer one is given.
    const double pi = std::numbers::pi;
    const double area = 0.1476 * pi;
    const double inertia = 0.83222784 / 64.0 * pi;
    expect_slots(model.sections[1], {1.0,
                                     0.0,
                                     area,
                                     0.0,
                                     7.0e6 + 2.1e8 * 0.0576 * pi,
                                     8.0e7 * area,
                                     2.1e8 * inertia,
                                     1.6e8 * inertia,
                                     0.0,
                                     0.0,
                                     0.0,
                                     0.0,
                                     0.0,
                                     0.0,
                                     0.5,
                                     300000.0 * area,
                                     150000.0 * pi * (0.09 * 0.45 + 0.0576 * 0.36),
                                     4.0,
                                     5.0,
                                     6.0});
    EXPECT_EQ(model.sections[1].material, 0);
    EXPECT_EQ(model.sections[1].sub_sections, (std::vector<int>{4, 5}));
    EXPECT_EQ(model.sections[3].values[14], -0.1);
    EXPECT_EQ(model.sections[4].values[19], 12.0);
    EXPECT_EQ(model.sections[4].type, 1);
    for (const char* const insert : {"0.39 0.04", "0.41 0.04"}) {
        const std::string loose = with_change(deck_of_revision_5, "0.4 0.04", insert);
        EXPECT_THROW(build_model(parse_deck(loose)), std::runtime_error);
    }
}

TEST(SupportExpectedFile, HoldsTheRecordsOfRevision5) {
    const PileModel model = build_model(parse_deck(deck_of_revision_5));
    const ExpectedFile file = expected_pile_file(model);
    // Date, label, counts, 5 sections, kinds and curves; 24 records for pile 1, 22 for the dummy pile.
    ASSERT_EQ(file.size(), 10U + 24U + 22U);
    EXPECT_EQ(numbers_of(file[0]), (std::vector<double>{2009, 9, 1}));
    EXPECT_EQ(numbers_of(file[2]), (std::vector<double>{2, 5}));
    const std::vector<double> kinds = numbers_of(file[8]);
    ASSERT_EQ(kinds.size(), 2800U);
    std::vector<double> expected(2800, 0.0);
    const std::vector<double> types = {1, 2, 1, 1, 1};
    std::copy(types.begin(), types.end(), expected.begin());
    expected[200] = 2;
    expected[400 + 12] = 4;
    expected[400 + 13] = 5;
    EXPECT_EQ(kinds, expected);
    std::vector<double> curves(8000, 0.0);
    curves[0] = 30;
    curves[1] = -30;
    curves[4000] = 40;
    curves[4001] = -40;
    EXPECT_EQ(numbers_of(file[9]), curves);
    // Nodes 3 and 4 have the value 1: 1.2e-5 times the mean for a plain tube, the mean for a composite.
    EXPECT_EQ(numbers_of(file[33]), (std::vector<double>{1, 0, 1, 0.6e-5, 2, 1}));
    EXPECT_EQ(numbers_of(file[32]), (std::vector<double>{1, 2.5, 1, 2.5, 1, 8}));
    // The tip is a composite: no diameter, no wall, no steel.
    EXPECT_EQ(split_lines(plot_text(expected_plot(model)))[4],
              "   1   4  0.000  0.000   2  Pile,nodes,diam,wall,'material (1=steel 2=concrete)");
}

TEST(SupportExpectedFile, CountsTenPointsOfAGeneratedCurve) {
    PileModel model = build_model(parse_deck(scaled_deck(1.0, 1.0)));
    model.sections[1].points.assign(10, {1.0, 2.0, 3.0, 4.0});
    const ExpectedFile file = expected_pile_file(model);
    // Date, label, counts and five sections come first.
    const std::vector<double> kinds = numbers_of(file[8]);
    EXPECT_EQ(kinds[200], 10.0);
    EXPECT_EQ(kinds[205], 0.0);
    const std::vector<double> curves = numbers_of(file[9]);
    EXPECT_EQ(curves[9], 0.0);
    EXPECT_EQ(curves[10], 1.0);
    EXPECT_EQ(curves[2000 + 19], 2.0);
    EXPECT_EQ(curves[4000 + 20], 0.0);
    EXPECT_EQ(curves[6000 + 15], 4.0);
}

TEST(SupportExpectedFile, HoldsTheLoads) {
    const ExpectedFile file = expected_load_file(parse_deck(deck_of_revision_5));
    ASSERT_EQ(file.size(), 7U);
    EXPECT_EQ(std::get<std::string>(file[0].items[0]), "first vector" + std::string(68, ' '));
    EXPECT_EQ(numbers_of(file[1]), (std::vector<double>{2}));
    // Forces by 1.5 * 10, moments by 2 more; a pile may be loaded twice.
    EXPECT_EQ(numbers_of(file[2]), (std::vector<double>{2, 15, 30, 45, 120, 150, 180}));
    EXPECT_EQ(numbers_of(file[3]), numbers_of(file[2]));
    EXPECT_EQ(numbers_of(file[6]), (std::vector<double>{1, -10, 0, 0, 0, 0, -20}));
}

TEST(SupportScaledDeck, SetsTheFactors) {
    const Deck deck = parse_deck(scaled_deck(1000.0, 0.5));
    EXPECT_EQ(deck.force_factor, 1000.0);
    EXPECT_EQ(deck.length_factor, 0.5);
    EXPECT_EQ(deck.section_records[1].nonlinear, -2);
}

} // namespace
} // namespace korvat::test
