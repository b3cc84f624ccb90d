// The place where two piles come nearest to each other.
#pragma once

#include "group/group.hpp"

#include <array>
#include <optional>

namespace korvat::check {

struct Clearance {
    double gap = 0.0;              // between the walls, L; below 0 where they overlap
    double radii = 0.0;            // sum of the radii there, L
    std::array<double, 3> point{}; // midway between the axes, L
};

// Where the walls are nearest, of two such places the upper one. None when the axes are further apart
// than any radii of the two piles. Both piles have elements.
[[nodiscard]] std::optional<Clearance> least_clearance(const group::Pile& a, const group::Pile& b);

} // namespace korvat::check
