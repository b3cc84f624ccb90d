#include "export/quantities.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace korvat::exporting {
namespace {

constexpr double steel_share = 0.2; // of the largest modulus; PILEPLOT.TXT has the same bound
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

Quantities quantities_of(const Group& group, const Section& section, double steel_modulus) {
    Quantities sum;
    const auto add_wall = [&](const Section& tube) {
        const double weight = tube.area * tube.wall_weight;
        (tube.elastic_modulus >= steel_modulus ? sum.steel_weight : sum.grout_weight) += weight;
    };
    const Section* innermost = &section;
    if (section.is_composite()) {
        for (const int tube : section.tubes) {
            innermost = &section_of(group, tube);
            add_wall(*innermost);
        }
    } else {
        add_wall(section);
    }
    sum.fluid_weight =
        circle_area(innermost->diameter - 2.0 * innermost->wall) * innermost->fluid_weight;
    sum.displaced_volume = circle_area(section.diameter);
    return sum;
}

} // namespace

Quantities& Quantities::operator+=(const Quantities& other) {
    steel_weight += other.steel_weight;
    grout_weight += other.grout_weight;
    fluid_weight += other.fluid_weight;
    displaced_volume += other.displaced_volume;
    return *this;
}

Quantities operator*(double length, const Quantities& of_a_unit) {
    return {length * of_a_unit.steel_weight, length * of_a_unit.grout_weight,
            length * of_a_unit.fluid_weight, length * of_a_unit.displaced_volume};
}

std::vector<Quantities> section_quantities(const Group& group) {
    double largest = 0.0;
    for (const Section& section : group.sections)
        largest = std::max(largest, section.elastic_modulus);
    std::vector<Quantities> result;
    for (const Section& section : group.sections)
        result.push_back(quantities_of(group, section, steel_share * largest));
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
