// Unit systems, and what the walls of piles are made of: a file of a run tells neither.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace korvat::group {

struct Range {
    double least = 0.0;
    double largest = 0.0;

    [[nodiscard]] bool holds(double value) const { return value >= least && value <= largest; }
};

struct UnitSystem {
    std::string_view name;        // "kN and m"
    std::string_view length_name; // "m"
    double force = 1.0;           // of its unit, N
    double length = 1.0;          // of its unit, m

    [[nodiscard]] double stress() const { return force / (length * length); }               // Pa
    [[nodiscard]] double unit_weight() const { return force / (length * length * length); } // N/m3
};

// Ranges in N and m.
struct Substance {
    std::string_view name;
    Range modulus;
    Range weight;  // dry and under water
    Range density; // kg/m3
    Range yield;
    Range poisson; // none of timber: its shear modulus has nothing to do with it
    bool is_metal = false;
};

// A material in units that nobody has named; 0 for a value that is not given.
struct Material {
    double modulus = 0.0;
    double weight = 0.0; // of a unit of volume
    double yield_stress = 0.0;
};

// Numbers from which units can be told, all in the same units.
struct Evidence {
    std::vector<Material> materials;
    std::vector<double> diameters;
    std::vector<double> lengths; // of piles or of parts of them
};

// What lies outside is a slip of units rather than a pile, m: micropiles begin at 76 mm, the largest monopiles
// have 12 m, the deepest piles 200 m.
inline constexpr Range pile_diameters{0.06, 15.0};
inline constexpr Range pile_lengths{0.0, 300.0};

[[nodiscard]] std::span<const UnitSystem> unit_systems();
[[nodiscard]] std::span<const Substance> substances();

// The substances that have that modulus, in Pa; timber and weak concrete share some.
[[nodiscard]] std::vector<const Substance*> with_modulus(double modulus);

// The units in which the numbers make most sense; none where no material can be made out in any.
[[nodiscard]] std::optional<UnitSystem> likely_units(const Evidence& evidence);

} // namespace korvat::group
