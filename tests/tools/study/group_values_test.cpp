// What the summary shows of a group, worked out by hand.
#include "study/group_values.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using group::Element;
using group::Group;
using group::Node;
using group::Pile;
using group::Section;

Section tube(double diameter, double wall) {
    Section section;
    section.diameter = diameter;
    section.wall = wall;
    section.type = 1;
    return section;
}

Node at(double x, double y, double z) {
    Node node;
    node.x = x;
    node.y = y;
    node.z = z;
    return node;
}

// A cap point; a pile of 3-4-12, so 13 long, with two elements; one straight down.
Group small_group() {
    Group group;
    group.revision = 5;
    group.sections = {tube(1.0, 0.05), tube(0.8, 0.02), tube(2.0, 0.01)};
    group.piles = {
        {.number = 1, .fixed_to = 0, .tip_code = 0, .nodes = {at(1, 2, -3)}, .elements = {}},
        {.number = 2,
         .fixed_to = 1,
         .tip_code = 0,
         .nodes = {at(0, 0, 0), at(1.5, 2, 6), at(3, 4, 12)},
         .elements = {{1.0, 6.5, 1, 0.0}, {1.0, 6.5, 1, 0.0}}},
        {.number = 3,
         .fixed_to = 1,
         .tip_code = 0,
         .nodes = {at(5, 0, 0), at(5, 0, 10)},
         .elements = {{0.8, 10.0, 2, 0.0}}}};
    return group;
}

TEST(GroupValues, CountAndAddUp) {
    const study::GroupValues values = study::group_values(small_group());
    EXPECT_EQ(values.piles, 3);
    EXPECT_EQ(values.nodes, 6);
    EXPECT_EQ(values.elements, 3);
    EXPECT_DOUBLE_EQ(values.length, 23.0);
    EXPECT_EQ(values.heads, (std::array{6.0, 2.0, -3.0})); // with the dummy pile
    EXPECT_EQ(values.tips, (std::array{8.0, 4.0, 22.0}));  // without it
}

// Section 3, with 200, belongs to no pile.
TEST(GroupValues, TakeTheTubesThatPilesHave) {
    Group group = small_group();
    EXPECT_DOUBLE_EQ(*study::group_values(group).diameter_to_wall, 40.0);
    group.sections[0].type = 2; // of tubes 2 and 3
    group.sections[0].wall = 0.0;
    group.sections[0].tubes = {2, 3};
    EXPECT_DOUBLE_EQ(*study::group_values(group).diameter_to_wall, 200.0);
    for (Section& section : group.sections)
        section.wall = 0.0;
    EXPECT_EQ(study::group_values(group).diameter_to_wall, std::nullopt);
}

TEST(GroupValues, TakeTheWeakestCurve) {
    Group group = small_group();
    EXPECT_EQ(study::group_values(group).plastic_axial, std::nullopt);
    EXPECT_EQ(study::group_values(group).plastic_moment, std::nullopt);
    // 90 in tension is less than 100 in compression; the moment is largest beside the middle.
    group.sections[0].plastic_curve = {{100, 0}, {10, 55}, {0, 50}, {-90, 0}};
    group.sections[1].plastic_curve = {{95, 0}, {0, 60}, {-120, 0}};
    group.sections[2].plastic_curve = {{1, 0}, {0, 1}, {-1, 0}}; // of no pile
    EXPECT_EQ(study::group_values(group).plastic_axial, 90.0);
    EXPECT_EQ(study::group_values(group).plastic_moment, 55.0);
    // Points on one side only.
    group.sections[0].plastic_curve = {{80, 0}, {20, 70}};
    group.sections[1].plastic_curve = {{0, 65}, {-85, 0}};
    EXPECT_EQ(study::group_values(group).plastic_axial, 80.0);
    EXPECT_EQ(study::group_values(group).plastic_moment, 65.0);
}

// Steel as in the tables of export: E = 2.1E8 kN/m2 and 77 kN/m3 are steel in kN and m.
TEST(GroupValues, WeighSteel) {
    Group group = small_group();
    for (Section& section : group.sections) {
        section.elastic_modulus = 2.1e8;
        section.wall_weight = 77.0;
        section.yield_stress = 3.55e5;
    }
    group.sections[0].area = 0.15;
    group.sections[1].area = 0.05;
    EXPECT_DOUBLE_EQ(study::group_values(group).steel_weight, 77.0 * (13 * 0.15 + 10 * 0.05));
}

} // namespace
} // namespace korvat::test
