// How groups differ.
#include "group/difference.hpp"

#include "sample_group.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace korvat::test {
namespace {

using group::Difference;
using group::differences;
using group::Group;
using group::Subject;

class Differences : public testing::Test {
protected:
    Differences() { a.load_vectors = b.load_vectors = sample_loads(); }

    Group a = sample_group(5);
    Group b = a;
};

Difference one(Subject subject, int number, const std::string& quantity, const std::string& unit,
               const group::Value& before, const group::Value& after) {
    return {subject, number, quantity, unit, before, after, "", 0, 1};
}

TEST_F(Differences, AGroupDoesNotDifferFromItself) {
    EXPECT_TRUE(differences(a, a).empty());
    EXPECT_TRUE(differences(Group{}, Group{}).empty());
}

TEST_F(Differences, OfSectionsAndTheLabel) {
    b.label = "Two other piles";
    a.sections[2].wall = 0.050;
    b.sections[2].wall = 0.045;
    b.sections[1].tubes = {3, 1};
    b.sections[2].plastic_curve[1].moment += 0.5;
    const double moment = a.sections[2].plastic_curve[1].moment;
    const std::vector<Difference> expected{
        one(Subject::group, 0, "label", "", "Two piles", "Two other piles"),
        one(Subject::section, 2, "tubes", "", "1 3", "3 1"),
        one(Subject::section, 3, "wall", "L", 0.050, 0.045),
        {Subject::section, 3, "plastic curve: moment", "F L", moment, moment + 0.5, "point", 2, 1}};
    EXPECT_TRUE(differences(a, b) == expected);
}

TEST_F(Differences, OfWhatOnlyOneGroupHas) {
    b.sections.pop_back();
    b.piles.push_back(b.piles[0]);
    b.load_vectors.pop_back();
    const group::Value none;
    const std::vector<Difference> expected{one(Subject::section, 3, "", "", 3, none),
                                           one(Subject::pile, 3, "", "", none, 3),
                                           one(Subject::load_vector, 2, "", "", 2, none)};
    EXPECT_TRUE(differences(a, b) == expected);
}

// Of many nodes, the one with the largest difference speaks for all.
TEST_F(Differences, OfNodesAndElements) {
    a.piles[1].nodes[0].forces[3] = 1.0;
    a.piles[1].nodes[2].forces[3] = 7.0;
    b.piles[1].nodes[0].forces[3] = 1.5;
    b.piles[1].nodes[2].forces[3] = 4.0;
    a.piles[1].nodes[1].y = 5.0;
    b.piles[1].nodes[1].y = 6.0;
    b.piles[1].elements[0].section = 1;
    b.piles[1].elements[1].section = 1;
    const std::vector<Difference> expected{
        {Subject::pile, 2, "y", "L", 5.0, 6.0, "node", 2, 1},
        {Subject::pile, 2, "force about x", "F L", 7.0, 4.0, "node", 3, 2},
        {Subject::pile, 2, "section", "", 2, 1, "element", 1, 2}};
    EXPECT_TRUE(differences(a, b) == expected);
}

TEST_F(Differences, OfPilesWithOtherNumbersOfElements) {
    for (Group* const group : {&a, &b}) {
        group::Pile& pile = group->piles[1];
        pile.nodes.assign(3, {});
        pile.nodes[2].z = 20.0;
        pile.nodes[0].springs[2] = 100.0;
        pile.nodes[1].springs[2] = 50.0;
        pile.nodes[1].displacements[0] = -0.5;
    }
    b.piles[1].nodes.push_back({});
    b.piles[1].nodes[3].z = 21.0;
    b.piles[1].nodes[3].springs[2] = 10.0;
    b.piles[1].nodes[3].displacements[0] = 0.25;
    b.piles[1].elements = {{1.0, 1.0, 2, 0.0}, {1.0, 1.0, 2, 0.0}, {1.0, 1.0, 1, 0.0}};
    const std::vector<Difference> expected{
        one(Subject::pile, 2, "elements", "", 2, 3),
        one(Subject::pile, 2, "tip z", "L", 20.0, 21.0),
        one(Subject::pile, 2, "length", "L", 20.0, 21.0),
        one(Subject::pile, 2, "sections from the head", "", "2 3", "2 1"),
        one(Subject::pile, 2, "total spring z", "F/L", 150.0, 160.0)};
    EXPECT_TRUE(differences(a, b) == expected);
}

TEST_F(Differences, OfLoads) {
    b.load_vectors[0].label = "Wind";
    b.load_vectors[0].loads[1].pile = 2;
    b.load_vectors[0].loads[1].moment[1] = -1.0;
    b.load_vectors[1].loads.push_back({1, {3.0, 0.0, 0.0}, {}});
    const std::vector<Difference> expected{
        one(Subject::load_vector, 1, "label", "", "Waves", "Wind"),
        {Subject::load_vector, 1, "pile", "", 1, 2, "load", 2, 1},
        {Subject::load_vector, 1, "moment y", "F L", 0.0, -1.0, "load", 2, 1},
        one(Subject::load_vector, 2, "loads", "", 1, 2),
        one(Subject::load_vector, 2, "total force x", "F", -8.0, -5.0)};
    EXPECT_TRUE(differences(a, b) == expected);
}

TEST_F(Differences, WhatOnlyRevision5HasIsNoneOfRevision4) {
    b = sample_group(4);
    b.load_vectors = a.load_vectors;
    for (auto& section : a.sections)
        section.miscellaneous = {};
    for (std::size_t p = 0; p < 2; ++p)
        b.piles[p] = a.piles[p];
    const std::vector<Difference> expected{one(Subject::group, 0, "revision", "", 5, 4)};
    EXPECT_TRUE(differences(a, b) == expected);
}

TEST_F(Differences, ToleranceIsTheSumOfBothParts) {
    const auto differ = [&](double x, double y, const group::Tolerance& tolerance) {
        a.sections[0].area = x;
        b.sections[0].area = y;
        return !differences(a, b, tolerance).empty();
    };
    // 0.5 + 0.25 max(8, 10) = 3
    EXPECT_FALSE(differ(7.0, 10.0, {0.5, 0.25}));
    EXPECT_TRUE(differ(6.875, 10.0, {0.5, 0.25}));
    EXPECT_FALSE(differ(-10.0, -7.0, {0.5, 0.25}));
    EXPECT_TRUE(differ(7.0, 10.0, {0.0, 0.25}));
    EXPECT_TRUE(differ(7.0, 10.0, {0.5, 0.0}));
    EXPECT_FALSE(differ(0.0, -0.0, {}));
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double largest = std::numeric_limits<double>::max();
    EXPECT_TRUE(differ(infinity, 1.0, {1.0, 1.0}));
    EXPECT_TRUE(differ(infinity, -infinity, {1.0, 1.0}));
    EXPECT_FALSE(differ(infinity, infinity, {}));
    EXPECT_TRUE(differ(std::nan(""), 1.0, {1.0, 1.0}));
    EXPECT_FALSE(differ(std::nan(""), std::nan(""), {}));
    EXPECT_TRUE(differ(largest, -largest, {0.0, 1.5}));
}

TEST_F(Differences, AValueThatIsNoNumberIsTheLargestDifference) {
    b.piles[1].nodes[0].forces[0] += 1e300;
    b.piles[1].nodes[1].forces[0] = std::nan("");
    const auto found = differences(a, b);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].place_number, 2);
    EXPECT_EQ(found[0].count, 2U);
}

} // namespace
} // namespace korvat::test
