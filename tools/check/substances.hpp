// The units of a deck, and which of its tubes are of metal.
#pragma once

#include "check/deck_view.hpp"
#include "group/substances.hpp"

#include <optional>
#include <vector>

namespace korvat::check {

using group::Range;
using group::Substance;
using group::substances;
using group::unit_systems;
using group::UnitSystem;
using group::with_modulus;

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
