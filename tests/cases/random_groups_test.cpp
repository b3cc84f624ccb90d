// Over a thousand random pile groups, run in batches: all piles are divided and placed as given.
#include "../support/case.hpp"
#include "../support/listing_check.hpp"
#include "../support/pile_file.hpp"
#include "../support/pile_model.hpp"
#include "../support/random_groups.hpp"
#include "../support/record_file.hpp"

#include <cmath>
#include <cstddef>
#include <gtest/gtest.h>
#include <iostream>
#include <random>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

constexpr std::mt19937::result_type seed = 20200204;
constexpr int groups_to_run = 1100;
// How far the sum of the segments may be from the distance between head and tip.
constexpr double fit = 0.001;

void expect_none(const std::vector<std::string>& differences) {
    for (const std::string& difference : differences)
        ADD_FAILURE() << difference;
}

const FilePile& pile_at(const PileFile& file, int number) {
    return file.piles.at(static_cast<std::size_t>(number) - 1);
}

double sum_of(const std::vector<double>& values) {
    double sum = 0.0;
    for (const double value : values)
        sum += value;
    return sum;
}

double head_to_tip(const FilePile& pile) {
    return std::hypot(pile.x.back() - pile.x.front(), pile.y.back() - pile.y.front(),
                      pile.z.back() - pile.z.front());
}

// Nodes, elements and their lengths.
void expect_divided(const FilePile& found, const RandomPile& pile) {
    const auto elements = static_cast<std::size_t>(pile.elements);
    ASSERT_EQ(found.lengths.size(), elements);
    ASSERT_EQ(found.x.size(), elements + 1);
    if (elements == 0) return;
    // The nodes lie on one line, so that the lengths of the elements add up to that of the pile.
    const double length = head_to_tip(found);
    EXPECT_NEAR(sum_of(found.lengths), length, 1.0e-11 * length);
}

// The head, the tip and the length against those of the deck.
void expect_placed(const FilePile& found, const RandomPile& pile) {
    const double distance = std::hypot(pile.tip[0] - pile.head[0], pile.tip[1] - pile.head[1],
                                       pile.tip[2] - pile.head[2]);
    EXPECT_NEAR(found.x.front(), pile.head[0], 1.0e-11);
    EXPECT_NEAR(found.y.front(), pile.head[1], 1.0e-11);
    EXPECT_NEAR(found.z.front(), pile.head[2], 1.0e-11);
    if (pile.elements == 0) return;
    EXPECT_NEAR(sum_of(found.lengths), distance, fit * distance);
    EXPECT_NEAR(sum_of(found.lengths), pile.segment_sum, fit * pile.segment_sum);
    // The depth of the tip is reached in full. In plan the nodes go by the distance, so that the tip is
    // missed by as much as the segments are too long or too short for it.
    const double share = pile.segment_sum / distance;
    EXPECT_NEAR(found.x.back(), pile.head[0] + share * (pile.tip[0] - pile.head[0]), 1.0e-10);
    EXPECT_NEAR(found.y.back(), pile.head[1] + share * (pile.tip[1] - pile.head[1]), 1.0e-10);
    EXPECT_NEAR(found.z.back(), pile.tip[2], 1.0e-10);
    EXPECT_NEAR(std::hypot(found.x.back() - pile.tip[0], found.y.back() - pile.tip[1]), 0.0,
                fit * distance);
}

void expect_generated(const FilePile& found, const RandomPile& pile, const FilePile& source) {
    ASSERT_EQ(found.x.size(), source.x.size());
    EXPECT_EQ(found.sections, source.sections);
    for (std::size_t n = 0; n < found.x.size(); ++n) {
        if (pile.mirror == 0) {
            // The shift may be converted to either of two neighbouring reals.
            EXPECT_NEAR(found.x[n], source.x[n] + pile.head[0], 1.0e-12);
            EXPECT_NEAR(found.y[n], source.y[n] + pile.head[1], 1.0e-12);
            EXPECT_NEAR(found.z[n], source.z[n] + pile.head[2], 1.0e-12);
        } else {
            EXPECT_EQ(found.x[n], pile.mirror == 2 ? -source.x[n] : source.x[n]);
            EXPECT_EQ(found.y[n], pile.mirror == 1 ? -source.y[n] : source.y[n]);
            EXPECT_EQ(found.z[n], source.z[n]);
        }
    }
}

// A mirror in x changes the sign of the sums of X and nothing else, one in y that of the sums of Y.
void expect_mirrored_sums(const PileFile& file, const RandomGroup& group) {
    const CoordinateSums sums = coordinate_sums(file, group.first_pile, group.last_pile);
    const int last = group.original + group.last_pile - group.first_pile;
    CoordinateSums due = coordinate_sums(file, group.original, last);
    const std::size_t axis = group.mirror == 2 ? 0 : 1;
    due.heads[axis] = -due.heads[axis];
    due.tips[axis] = -due.tips[axis];
    EXPECT_EQ(sums.heads, due.heads);
    EXPECT_EQ(sums.tips, due.tips);
}

void expect_deck_as_made(const RandomDeck& deck, const CaseResult& run) {
    const std::string& content = run.files.at("PILE.07");
    const std::vector<Record> records = parse_record_bytes(content);
    const PileFile file = parse_pile_file(records);
    ASSERT_EQ(file.piles.size(), deck.piles.size());
    for (int number = 1; number <= static_cast<int>(deck.piles.size()); ++number) {
        SCOPED_TRACE("pile " + std::to_string(number));
        const RandomPile& pile = deck.piles[static_cast<std::size_t>(number) - 1];
        const FilePile& found = pile_at(file, number);
        expect_divided(found, pile);
        if (testing::Test::HasFailure()) return;
        if (pile.source == 0) {
            expect_placed(found, pile);
        } else {
            expect_generated(found, pile, pile_at(file, pile.source));
        }
    }
    for (const RandomGroup& group : deck.groups) {
        SCOPED_TRACE("group of piles from " + std::to_string(group.first_pile));
        if (group.original != 0) expect_mirrored_sums(file, group);
    }
    expect_same_pile_file(records, expected_pile_file(build_model(parse_deck(deck.text))));
    expect_none(check_sum_differences(run.files.at("KORVAT.LIS"), file));
}

TEST(RandomGroups, AreDividedAndPlacedAsTheirDecksSay) {
    std::mt19937 engine(seed);
    int groups = 0;
    int mirrored = 0;
    for (int batch = 1; groups < groups_to_run; ++batch) {
        SCOPED_TRACE("batch " + std::to_string(batch));
        const RandomDeck deck = random_deck(engine);
        const CaseResult run = run_deck(KORVAT_PROGRAM, &deck.text);
        expect_none(run.differences);
        ASSERT_EQ(run.exit_code, 0) << run.files.at("KORVAT.MLG") << deck.text;
        expect_deck_as_made(deck, run);
        for (const RandomGroup& group : deck.groups)
            group.original == 0 ? ++groups : ++mirrored;
        // The first batch that fails tells enough.
        if (HasFailure()) return;
    }
    EXPECT_GT(mirrored, 100);
    std::cout << "groups: " << groups + mirrored << "\n";
}

} // namespace
} // namespace korvat::test
