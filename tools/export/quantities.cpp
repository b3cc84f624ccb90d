#include "export/quantities.hpp"

#include "group/substances.hpp"

#include <cmath>
#include <numbers>

namespace korvat::exporting {
namespace {

constexpr double level_tolerance = 1.0E-10;

using group::Group;
using group::Pile;
using group::Section;

const Section& section_of(const Group& group, int number) {
    return group.sections.at(static_cast<std::size_t>(number) - 1);
}

double circle_area(double diameter) {
    return std::numbers::pi / 4.0 * diameter * diameter;
}

group::Evidence evidence_of(const Group& group) {
    group::Evidence evidence;
    for (const Section& section : group.sections) {
        if (section.is_composite()) continue;
        evidence.materials.push_back(
            {section.elastic_modulus, section.wall_weight, section.yield_stress});
        evidence.diameters.push_back(section.diameter);
    }
    for (const Pile& pile : group.piles) {
        if (!pile.is_dummy()) evidence.lengths.push_back(pile_length(pile));
    }
    return evidence;
}

// Where two substances share a modulus, the weight decides.
std::string material_of(const Section& section, const group::UnitSystem& units) {
    const auto found = group::with_modulus(section.elastic_modulus * units.stress());
    if (found.empty()) return "unknown";
    const double weight = section.wall_weight * units.unit_weight();
    for (const group::Substance* const substance : found) {
        if (substance->weight.holds(weight)) return std::string(substance->name);
    }
    return std::string(found.front()->name);
}

// Of the section with that number.
Quantities quantities_of(const Group& group, int number,
                         const std::vector<std::string>& materials) {
    const Section& section = section_of(group, number);
    Quantities sum;
    const auto add_wall = [&](int tube_number) {
        const Section& tube = section_of(group, tube_number);
        const bool is_steel = materials.at(static_cast<std::size_t>(tube_number) - 1) == "steel";
        (is_steel ? sum.steel_weight : sum.other_weight) += tube.area * tube.wall_weight;
    };
    const Section* innermost = &section;
    if (section.is_composite()) {
        for (const int tube : section.tubes) {
            innermost = &section_of(group, tube);
            add_wall(tube);
        }
    } else {
        add_wall(number);
    }
    sum.fluid_weight =
        circle_area(innermost->diameter - 2.0 * innermost->wall) * innermost->fluid_weight;
    sum.displaced_volume = circle_area(section.diameter);
    return sum;
}

} // namespace

Quantities& Quantities::operator+=(const Quantities& other) {
    steel_weight += other.steel_weight;
    other_weight += other.other_weight;
    fluid_weight += other.fluid_weight;
    displaced_volume += other.displaced_volume;
    return *this;
}

Quantities operator*(double length, const Quantities& of_a_unit) {
    return {length * of_a_unit.steel_weight, length * of_a_unit.other_weight,
            length * of_a_unit.fluid_weight, length * of_a_unit.displaced_volume};
}

std::vector<std::string> wall_materials(const Group& group) {
    const auto units = group::likely_units(evidence_of(group));
    std::vector<std::string> materials;
    for (const Section& section : group.sections) {
        if (section.is_composite()) {
            materials.emplace_back();
        } else {
            materials.push_back(units ? material_of(section, *units) : "unknown");
        }
    }
    return materials;
}

std::vector<Quantities> section_quantities(const Group& group) {
    const std::vector<std::string> materials = wall_materials(group);
    std::vector<Quantities> result;
    for (std::size_t i = 1; i <= group.sections.size(); ++i)
        result.push_back(quantities_of(group, static_cast<int>(i), materials));
    return result;
}

Quantities pile_quantities(const Pile& pile, const std::vector<Quantities>& sections) {
    Quantities sum;
    for (const group::Element& element : pile.elements)
        sum += element.length * sections.at(static_cast<std::size_t>(element.section) - 1);
    return sum;
}

double pile_length(const Pile& pile) {
    const group::Node& head = pile.nodes.front();
    const group::Node& tip = pile.nodes.back();
    return std::hypot(tip.x - head.x, tip.y - head.y, tip.z - head.z);
}

double pile_batter(const Pile& pile) {
    const group::Node& head = pile.nodes.front();
    const group::Node& tip = pile.nodes.back();
    const double down = tip.z - head.z;
    if (std::fabs(down) <= level_tolerance) return 90.0;
    const double aside = std::hypot(tip.x - head.x, tip.y - head.y);
    return std::atan(aside / down) * 180.0 / std::numbers::pi;
}

std::vector<double> distances_from_head(const Pile& pile) {
    std::vector<double> distances{0.0};
    for (const group::Element& element : pile.elements)
        distances.push_back(distances.back() + element.length);
    return distances;
}

} // namespace korvat::exporting
