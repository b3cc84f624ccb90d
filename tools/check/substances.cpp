#include "check/substances.hpp"

namespace korvat::check {

std::optional<UnitSystem> deck_units(const Subject& subject) {
    group::Evidence evidence;
    for (const MaterialView& material : materials(subject)) {
        evidence.materials.push_back({material.modulus, material.weight, material.yield_stress});
    }
    for (const TubeView& tube : tubes(subject)) {
        evidence.diameters.push_back(tube.diameter);
    }
    for (const SegmentView& segment : segments(subject)) {
        evidence.lengths.push_back(segment.length);
    }
    return group::likely_units(evidence);
}

bool MetalTubes::holds(const TubeView& tube) const {
    if (!units_) return true;
    for (const MaterialView& material : materials_) {
        if (material.number != tube.material) continue;
        const auto found = with_modulus(material.modulus * units_->stress());
        return found.empty() || found.front()->is_metal;
    }
    return true;
}

} // namespace korvat::check
