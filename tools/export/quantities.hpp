// What follows from the values of a group: weights, volumes, length and batter of its piles.
#pragma once

#include "group/group.hpp"

#include <string>
#include <vector>

namespace korvat::exporting {

// Of a section for each unit of length, or of a whole element or pile. Weights are as the deck's unit
// weights are, dry or submerged.
struct Quantities {
    double steel_weight = 0.0;     // F/L, or F
    double other_weight = 0.0;     // of walls that are not known as steel; F/L, or F
    double fluid_weight = 0.0;     // inside the innermost tube; F/L, or F
    double displaced_volume = 0.0; // within the outer diameter; L2, or L3

    Quantities& operator+=(const Quantities& other);
    bool operator==(const Quantities&) const = default;
};

[[nodiscard]] Quantities operator*(double length, const Quantities& of_a_unit);

// What the wall of each section is made of, in their order: "steel", "concrete", "aluminium", "timber",
// "unknown"; empty for a composite, which has its tubes for it. The files of a run do not name units: a modulus
// is that of a substance in the units in which moduli, weights, yield stresses, diameters and lengths of the
// group make most sense together.
[[nodiscard]] std::vector<std::string> wall_materials(const group::Group& group);

// Of each section, in their order, for each unit of length. The tubes of each composite are sections of the
// group.
[[nodiscard]] std::vector<Quantities> section_quantities(const group::Group& group);

// Of a whole pile; `sections` are those of its group. A dummy pile has none.
[[nodiscard]] Quantities pile_quantities(const group::Pile& pile,
                                         const std::vector<Quantities>& sections);

// From the first to the last node, L.
[[nodiscard]] double pile_length(const group::Pile& pile);

// The angle between the vertical and the line from the first to the last node, in degrees, as in the
// listing: negative where the tip is above the head.
[[nodiscard]] double pile_batter(const group::Pile& pile);

// Distances of the nodes from the head, measured along the elements, L.
[[nodiscard]] std::vector<double> distances_from_head(const group::Pile& pile);

} // namespace korvat::exporting
