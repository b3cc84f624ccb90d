// Unit systems, and what the materials of piles have in them.
#pragma once

#include "check/deck_view.hpp"

#include <optional>
#include <span>
#include <string_view>

namespace korvat::check {

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

[[nodiscard]] std::span<const UnitSystem> unit_systems();
[[nodiscard]] std::span<const Substance> substances();

// The substances that have that modulus, in Pa; timber and weak concrete share some.
[[nodiscard]] std::vector<const Substance*> with_modulus(double modulus);

// The units in which the numbers of the deck make most sense, before any factor; none where no material
// of a pile can be made out in any.
[[nodiscard]] std::optional<UnitSystem> deck_units(const Subject& subject);

// Tells tubes of metal from others by the moduli of their materials.
class MetalTubes {
public:
    explicit MetalTubes(const Subject& subject)
        : units_(deck_units(subject)), materials_(materials(subject)) {}

    // Also for a tube of a material that cannot be made out: nearly all piles are of steel.
    [[nodiscard]] bool holds(const TubeView& tube) const;

private:
    std::optional<UnitSystem> units_;
    std::vector<MaterialView> materials_;
};

} // namespace korvat::check
