// What can be read of the geometry of a deck that does not run.
#pragma once

#include "check/rule.hpp"
#include "report/report_data.hpp"

#include <vector>

namespace korvat::report {

// Its piles have two nodes and one element, its sections a diameter and a wall; everything in stored units.
// A section that the deck leaves out, and a composite, has a diameter of 0.
struct RoughGroup {
    group::Group group;
    std::vector<Origin> origins; // of each pile
    std::vector<int> sources;    // of each pile
    std::vector<int> section_materials;
};

[[nodiscard]] RoughGroup rough_group(const check::Subject& subject);

} // namespace korvat::report
