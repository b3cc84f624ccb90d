// Tests of the independent calculation against figures worked out by hand, and of its comparison.
#include "deck_reader.hpp"
#include "expected_file.hpp"
#include "pile_model.hpp"
#include "text.hpp"

#include <array>
#include <bit>
#include <cstddef>
#include <gtest/gtest.h>
#include <initializer_list>
#include <limits>
#include <numbers>
#include <stdexcept>
#include <utility>

namespace korvat::test {
namespace {

// Nine piles. One length unit of the deck is 0.5 m, one force unit 1000 kN, so that stresses take the
// factor 1000 / 0.5^2 = 4000, unit weights 8000, bending stiffnesses 1000 * 0.5^2 = 250.
// Pile 1 runs from (0, 0, 0) to (3, 4, 12) m, which is 13 m long; its segments are 6.5 m in two
// elements and 6.5 m in one, so that its nodes lie at 0, 1/4, 1/2 and 1 of its length.
// Piles 2 and 3 are omitted between 1 and 4; 5 and 6 are mirrors of 1; 7 is a copy of 1 shifted by
// (10, 20, 1) m; 8 is a dummy pile and 9 its copy shifted by (1, 1, 1) m.
constexpr std::string_view deck_text = R"(Caisson group, label line
* a comment

CONTROL is a comment too, the next line is the heading
heading
1000.     force
0.5       length
9         piles
4 sections
 1
2
0
0
0

heading
heading
1 52500 20000 75 1.0D-2 1.2e-5

heading
heading
1 1 2.0 0.04 0 0 0 0 1.25E-3
4 1 4.0 0.08 0 8.0 0 0 0

heading
heading
1 1 1 13.0 2 this is not looked at
2 4 4 13.0
  1

heading
heading
1 0 0  0 0 0   6 8 24
4 0 0  6 12 3  12 20 27
5 1 1  9 9 9   9 9 9
6 1 2  9 9 9   9 9 9
7 1 0  20 40 2 20 40 2
8 0 0  2 4 6   2 4 6
9 8 0  2 2 2   2 2 2
heading
1 2 1 2
2 2
1 2
3 2 1 2
4 2 1 2
8 0
heading
1 7 -3 0
8 9 0 0

heading
heading
1 2 2 3 1  1 2 3 4 5 6
1 1 3 4 2  1 2 3 4 5 6
1 1 4 4 2  7 7 7 7 7 7
1 1 1 1 3  1 2 3 4 5 6
1 1 3 4 4  20 0 0 0 0 0
0 0 0 0 0  0 0 0 0 0 0
END of the deck
anything
)";

const double pi = std::numbers::pi;

TEST(SupportDeckReader, ReadsTheRecords) {
    const Deck deck = parse_deck(deck_text);
    EXPECT_EQ(deck.label, "Caisson group, label line" + std::string(55, ' '));
    EXPECT_EQ(deck.piles, 9);
    ASSERT_EQ(deck.materials.size(), 1U);
    EXPECT_EQ(deck.materials[0].wall_weight, 0.01);
    ASSERT_EQ(deck.section_records.size(), 2U);
    EXPECT_EQ(deck.section_records[1].bending, 8.0);
    ASSERT_EQ(deck.segments.size(), 2U);
    EXPECT_EQ(deck.segments[1].elements, 1);
    EXPECT_EQ(deck.pile_records.size(), 7U);
    EXPECT_EQ(deck.pile_segments.at(2), (std::vector<int>{1, 2}));
    EXPECT_TRUE(deck.pile_segments.at(8).empty());
    EXPECT_EQ(deck.pile_segments.count(5), 0U);
    EXPECT_EQ(deck.node_values.size(), 5U);
}

TEST(SupportDeckReader, FindsTheRevision) {
    const std::string key = "KORVAT Version: ";
    const auto with_line = [&](const std::string& line) {
        return with_change(deck_text, "* a comment\n", line + "\n");
    };
    EXPECT_EQ(deck_revision(deck_text), 4);
    EXPECT_EQ(parse_deck(with_line(key + "2006-06-11")).piles, 9);
    EXPECT_EQ(deck_revision(with_line("KORVAT version: 2009/ 9/ 1")), 5);
    EXPECT_THROW(deck_revision(with_line(key + "2009-09-02")), std::runtime_error);
    EXPECT_THROW(parse_deck(with_line("KORVAT VERSION: 2006-06-11")), std::runtime_error);
}

TEST(SupportDeckReader, AcceptsOtherLineEnds) {
    std::string text;
    for (const std::string& line : split_lines(deck_text))
        text += line + "\r\n";
    EXPECT_EQ(parse_deck(text).node_values.size(), 5U);
    text = deck_text.substr(0, deck_text.find("END") + 3);
    EXPECT_EQ(parse_deck(text).node_values.size(), 5U);
}

TEST(SupportDeckReader, PassesOverTabsAroundANumber) {
    EXPECT_EQ(parse_deck(with_change(deck_text, "0.5  ", "\t0.5\t\r ")).length_factor, 0.5);
}

TEST(SupportDeckReader, RejectsWhatIsWrong) {
    const std::vector<std::string> broken = {with_change(deck_text, "END", "end"),
                                             with_change(deck_text, "1000.", "1,5"),
                                             with_change(deck_text, "0.5  ", "0.5\t6 "),
                                             with_change(deck_text, "heading\n1000.", "1000."),
                                             with_change(deck_text, "1.0D-2", "1+5"),
                                             with_change(deck_text, "13.0\n  1", "13.0\n  1 2"),
                                             with_change(deck_text, "8 0\n", "8 0 1\n"),
                                             with_change(deck_text, "\n4 1 4.0", "\n5 1 4.0"),
                                             with_change(deck_text, "52500", "1e999"),
                                             with_change(deck_text, "52500", "."),
                                             with_change(deck_text, "1 7 -3", "2 7 -3 0\n1 1 -3")};
    for (const std::string& text : broken)
        EXPECT_THROW(parse_deck(text), std::runtime_error);
}

TEST(SupportPileModel, ComputesCrossSections) {
    const PileModel model = build_model(parse_deck(deck_text));
    ASSERT_EQ(model.sections.size(), 4U);
    // D = 1.0, t = 0.02: A = 0.98 * 0.02 pi, I = (1 - 0.96^4) pi / 64 = 0.00235396 pi, W = 2 I / D;
    // E = 52500 * 4000 = 2.1e8, G = 8.0e7.
    const std::array<double, 20> first = {
        1.0,           0.02,          0.0196 * pi,   0.00470792 * pi,
        4116000. * pi, 1568000. * pi, 494331.6 * pi, 376633.6 * pi,
        80.0,          10.0,          1.2e-5,        300000.0,
        2.1e8,         8.0e7};
    for (std::size_t i = 0; i < 20; ++i) {
        EXPECT_NEAR(model.sections[0].values[i], first[i], 1.0e-12 * first[i]) << "slot " << i + 1;
    }
    // Sections 2 and 3 stand at 1/4 and 3/4 of the way from 1 to 4; the bending stiffness of 4 is
    // given, 8 * 250 = 2000, and is therefore given for 2 and 3 too.
    EXPECT_NEAR(model.sections[1].values[0], 1.25, 1.0e-15);
    EXPECT_NEAR(model.sections[2].values[0], 1.75, 1.0e-15);
    EXPECT_NEAR(model.sections[1].values[6], 500.0, 1.0e-12);
    EXPECT_NEAR(model.sections[2].values[6], 1500.0, 1.0e-12);
    EXPECT_NEAR(model.sections[2].values[9], 2.5, 1.0e-14);
    EXPECT_EQ(model.sections[3].values[6], 2000.0);
    EXPECT_EQ(model.sections[2].material, 1);
}

void expect_nodes(const std::vector<double>& found, std::initializer_list<double> expected) {
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_NEAR(found[i], expected.begin()[i], 1.0e-14) << "node " << i + 1;
    }
}

TEST(SupportPileModel, PlacesNodes) {
    const PileModel model = build_model(parse_deck(deck_text));
    ASSERT_EQ(model.piles.size(), 9U);
    expect_nodes(model.piles[0].x, {0.0, 0.75, 1.5, 3.0});
    expect_nodes(model.piles[0].y, {0.0, 1.0, 2.0, 4.0});
    expect_nodes(model.piles[0].z, {0.0, 3.0, 6.0, 12.0});
    // Pile 4 is pile 1 moved by (3, 6, 1.5); piles 2 and 3 are moved by 1/3 and 2/3 of that.
    expect_nodes(model.piles[1].x, {1.0, 1.75, 2.5, 4.0});
    expect_nodes(model.piles[2].y, {4.0, 5.0, 6.0, 8.0});
    expect_nodes(model.piles[3].z, {1.5, 4.5, 7.5, 13.5});
    expect_nodes(model.piles[4].x, {0.0, 0.75, 1.5, 3.0});
    expect_nodes(model.piles[4].y, {0.0, -1.0, -2.0, -4.0});
    expect_nodes(model.piles[5].x, {0.0, -0.75, -1.5, -3.0});
    expect_nodes(model.piles[5].y, {0.0, 1.0, 2.0, 4.0});
    expect_nodes(model.piles[6].z, {1.0, 4.0, 7.0, 13.0});
    expect_nodes(model.piles[6].x, {10.0, 10.75, 11.5, 13.0});
    expect_nodes(model.piles[7].z, {3.0});
    expect_nodes(model.piles[8].y, {3.0});
    EXPECT_EQ(model.piles[4].elements.size(), 3U);
    EXPECT_EQ(model.piles[4].elements[2].section, 4);
    EXPECT_TRUE(model.piles[8].elements.empty());
}

TEST(SupportPileModel, ChecksPiles) {
    const std::vector<std::string> broken = {
        with_change(deck_text, "2 4 4 13.0", "2 4 4 13.1"), // 13.05 m between points 13 m apart
        with_change(deck_text, "1 7 -3 0", "1 7 -4 0"),     // tip code beyond the nodes
        with_change(deck_text, "1 7 -3 0", "1 7 -3 1"),     // fixed to a pile with elements
        with_change(deck_text, "1 1 1 1 3 ", "1 1 4 5 3 "), // a node too far
        with_change(deck_text, "1 1 1 1 3 ", "8 8 1 1 3 "), // soil displacement at the dummy pile
        with_change(deck_text, "2 4 4 13.0\n  1", "2 4 4 13.0 449")};
    for (const std::string& text : broken) {
        EXPECT_THROW(build_model(parse_deck(text)), std::runtime_error);
    }
    EXPECT_NO_THROW(build_model(parse_deck(with_change(deck_text, "1 7 -3 0", "1 7 -3 8"))));
    EXPECT_NO_THROW(build_model(parse_deck(with_change(deck_text, "13.0\n  1", "13.0 448"))));
}

std::vector<int> preferred(const std::vector<ElementSection>& elements) {
    std::vector<int> sections;
    for (const ElementSection& element : elements)
        sections.push_back(element.section);
    return sections;
}

TEST(SupportPileModel, StepsCrossSectionsAlongASegment) {
    EXPECT_EQ(preferred(element_sections(2, 5, 3.0, 3)), (std::vector<int>{3, 4, 5}));
    EXPECT_EQ(preferred(element_sections(5, 2, 3.0, 3)), (std::vector<int>{5, 4, 3}));
    EXPECT_EQ(preferred(element_sections(4, 4, 7.0, 2)), (std::vector<int>{4, 4}));
    // 1 + 0.25 and 1 + 0.75 are rounded; no midpoint is near a border.
    const auto clear = element_sections(1, 2, 8.0, 2);
    EXPECT_EQ(preferred(clear), (std::vector<int>{1, 2}));
    EXPECT_EQ(clear[0].other, 1);
    EXPECT_EQ(clear[1].other, 2);
}

std::vector<double> items_of(const ExpectedRecord& record) {
    std::vector<double> values;
    for (const ExpectedItem& item : record.items) {
        const auto* const integer = std::get_if<std::int32_t>(&item);
        values.push_back(integer != nullptr ? *integer : std::get<double>(item));
    }
    return values;
}

TEST(SupportExpectedFile, HoldsTheRecordsInOrder) {
    const ExpectedFile file = expected_pile_file(build_model(parse_deck(deck_text)));
    // Label, counts, 4 sections; 4 + 18 + 2 records for 7 piles, 4 + 18 for the 2 dummy piles.
    ASSERT_EQ(file.size(), 6U + 7U * 24U + 2U * 22U);
    EXPECT_EQ(items_of(file[1]), (std::vector<double>{9, 4}));
    EXPECT_EQ(items_of(file[6]), (std::vector<double>{1, 0, 3, -3}));
    // Springs: 1000 / 0.5 and 1000 * 0.5 times the values; loads: 1000 and 500; displacements: 0.5, 1.
    expect_nodes(items_of(file[10]), {0, 2000, 2000, 0});
    expect_nodes(items_of(file[11]), {0, 0, 1000, 7000});
    expect_nodes(items_of(file[12]), {0.5, 0, 0, 0});
    expect_nodes(items_of(file[25]), {0, 3000, 3000, 0});
    expect_nodes(items_of(file[26]), {0, 0, 3000, 3500});
    expect_nodes(items_of(file[27]), {6, 0, 0, 0});
    expect_nodes(items_of(file[28]), {1, 3.25, 1, 3.25, 2, 6.5});
    // Temperatures 0, 0, 20, 20 at the nodes.
    expect_nodes(items_of(file[29]), {1, 0, 1, 1.2e-4, 4, 2.4e-4});
    EXPECT_EQ(items_of(file[6 + 7 * 24]), (std::vector<double>{8, 0, 0, 0}));
    EXPECT_EQ(file[6 + 7 * 24 + 22].pile, 9);
}

TEST(SupportExpectedFile, GivesThePlot) {
    // The modulus of steel is converted by the factors a second time, so that this pile, of steel
    // and given in other units than kN and m, is plotted as concrete.
    const std::string text = plot_text(expected_plot(build_model(parse_deck(deck_text))));
    EXPECT_EQ(
        text.substr(0, text.find("   2   4")),
        "Caisson group, label line" + std::string(55, ' ') +
            "\n\n        9  Number of piles\n"
            "\n   1   4  2.000  0.040   2  Pile,nodes,diam,wall,'material (1=steel 2=concrete)"
            "\n\n  Node     X         Y         Z\n"
            "    1     0.000     0.000     0.000\n"
            "    2     0.750     1.000     3.000\n"
            "    3     1.500     2.000     6.000\n"
            "    4     3.000     4.000    12.000\n\n");
    // Seven piles of 4 + 4 lines after the 3 lines of the heading.
    EXPECT_EQ(split_lines(text).size(), 3U + 7U * 8U);
}

TEST(SupportExpectedFile, AcceptsEitherNeighbourOfABorder) {
    // 1/16 lies in the middle between 0.062 and 0.063; a zero has no sign.
    PileModel model = build_model(parse_deck(deck_text));
    model.piles.resize(1);
    model.piles[0].x = {0.0625, 0.0, 0.0, 0.0};
    const ExpectedPlot plot = expected_plot(model);
    ASSERT_EQ(plot.size(), 11U);
    EXPECT_EQ(plot[7][1], (PlotPiece{"     0.062", "     0.063"}));
    EXPECT_EQ(plot[8][1], (PlotPiece{"     0.000"}));
}

TEST(SupportExpectedFile, TellsSteelFromConcrete) {
    // The converted modulus is compared with 2.1e8 * 4000, so the limit is 4.2e7 units of the deck,
    // which itself still counts as concrete.
    for (const auto& [modulus, kind] :
         {std::pair{"42000000", "   2  P"}, {"42001000", "   1  P"}}) {
        const Deck deck = parse_deck(with_change(deck_text, "52500", modulus));
        EXPECT_NE(plot_text(expected_plot(build_model(deck))).find(kind), std::string::npos);
    }
}

Record real_record(std::initializer_list<double> values) {
    Record record;
    for (const double value : values) {
        const auto bits = std::bit_cast<std::uint64_t>(value);
        for (unsigned i = 0; i < 8; ++i) {
            record.push_back(static_cast<unsigned char>((bits >> (8U * i)) & 0xFFU));
        }
    }
    return record;
}

TEST(SupportExpectedFile, ComparesRecords) {
    ExpectedFile file = {{"x coordinates", 3, 0.0, {"node"}, {1.0, 0.0}, {}}};
    const auto differences = [&](std::initializer_list<double> values) {
        return pile_file_differences({real_record(values)}, file);
    };
    EXPECT_TRUE(differences({1.0, 0.0}).empty());
    EXPECT_TRUE(differences({1.0 + 9.0e-13, 0.0}).empty());
    EXPECT_EQ(
        differences({1.0, 0.5}),
        (std::vector<std::string>{"record 1 (x coordinates of pile 3), node 2: found real 0.5, "
                                  "expected real 0"}));
    EXPECT_FALSE(differences({1.0 + 1.1e-12, 0.0}).empty());
    EXPECT_FALSE(differences({1.0, 1.0e-13}).empty());
    EXPECT_FALSE(differences({1.0, std::numeric_limits<double>::quiet_NaN()}).empty());
    EXPECT_FALSE(differences({1.0}).empty());
    EXPECT_FALSE(differences({1.0, 0.0, 0.0}).empty());
    EXPECT_FALSE(pile_file_differences({}, file).empty());
    file[0].absolute_tolerance = 1.0e-12;
    file[0].alternatives[0] = 2.0;
    EXPECT_TRUE(differences({2.0, 9.0e-13}).empty());
    EXPECT_FALSE(differences({3.0, 0.0}).empty());
    EXPECT_FALSE(differences({2.0, 1.1e-12}).empty());
}

TEST(SupportExpectedFile, ComparesPlots) {
    const ExpectedPlot plot = {{{"   1"}, {" 0.062", " 0.063"}}, {}};
    EXPECT_TRUE(plot_differences("   1 0.062\n\n", plot).empty());
    EXPECT_TRUE(plot_differences("   1 0.063\n\n", plot).empty());
    EXPECT_FALSE(plot_differences("   1 0.064\n\n", plot).empty());
    EXPECT_FALSE(plot_differences("   1 0.062 \n\n", plot).empty());
    EXPECT_FALSE(plot_differences("   1 0.062\n", plot).empty());
    EXPECT_FALSE(plot_differences("   1 0.062\n\n\n", plot).empty());
}

} // namespace
} // namespace korvat::test
