// What a table of many runs shows of each group.
#pragma once

#include "group/group.hpp"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace korvat::study {

// Values are in stored units, F and L. Sections count where an element has them, and the tubes of composites
// that an element has.
struct GroupValues {
    int piles = 0;                          // dummy piles included
    int nodes = 0;                          // of all piles
    int elements = 0;                       // of all piles
    double length = 0.0;                    // of all piles, each from its first to its last node, L
    double steel_weight = 0.0;              // of all piles, F
    std::array<double, 3> heads{};          // check sums of the coordinates of all pile heads, L
    std::array<double, 3> tips{};           // and of the tips of all piles that have elements, L
    std::optional<double> diameter_to_wall; // the largest of all tubes; none where none has a wall
    // The smallest plastic capacities of the sections with yield curves; none where no section has any.
    // Of a section: the axial force with no moment, of compression and tension the smaller one, F; and
    // the largest moment of its curve, F L.
    std::optional<double> plastic_axial;
    std::optional<double> plastic_moment;

    bool operator==(const GroupValues&) const = default;
};

// The group is as read_pile returns it.
[[nodiscard]] GroupValues group_values(const group::Group& group);

} // namespace korvat::study
