#include "study/group_values.hpp"

#include "export/quantities.hpp"

#include <algorithm>
#include <set>

namespace korvat::study {
namespace {

using group::Pile;
using group::Section;

void add(std::array<double, 3>& sum, const group::Node& node) {
    sum[0] += node.x;
    sum[1] += node.y;
    sum[2] += node.z;
}

// Numbers of the sections that elements have, and of their tubes.
std::set<int> sections_in_use(const group::Group& group) {
    std::set<int> numbers;
    for (const Pile& pile : group.piles) {
        for (const group::Element& element : pile.elements)
            numbers.insert(element.section);
    }
    std::set<int> tubes;
    for (const int number : numbers) {
        const Section& section = group.sections.at(static_cast<std::size_t>(number) - 1);
        if (section.is_composite()) tubes.insert(section.tubes.begin(), section.tubes.end());
    }
    numbers.merge(tubes);
    return numbers;
}

void take_smaller(std::optional<double>& smallest, double value) {
    smallest = smallest ? std::min(*smallest, value) : value;
}

void take_larger(std::optional<double>& largest, double value) {
    largest = largest ? std::max(*largest, value) : value;
}

// Compression is positive; a curve with points on one side only has a capacity on that side.
double axial_capacity(const std::vector<group::YieldPoint>& curve) {
    const auto [least, largest] = std::ranges::minmax_element(curve, {}, &group::YieldPoint::axial);
    const double compression = largest->axial;
    const double tension = -least->axial;
    if (compression <= 0.0) return tension;
    if (tension <= 0.0) return compression;
    return std::min(compression, tension);
}

void add_section(GroupValues& values, const Section& section) {
    if (!section.is_composite() && section.wall > 0.0)
        take_larger(values.diameter_to_wall, section.diameter / section.wall);
    if (section.plastic_curve.empty()) return;
    take_smaller(values.plastic_axial, axial_capacity(section.plastic_curve));
    take_smaller(values.plastic_moment,
                 std::ranges::max(section.plastic_curve, {}, &group::YieldPoint::moment).moment);
}

} // namespace

GroupValues group_values(const group::Group& group) {
    GroupValues values;
    const auto quantities = exporting::section_quantities(group);
    for (const Pile& pile : group.piles) {
        ++values.piles;
        values.nodes += static_cast<int>(pile.nodes.size());
        values.elements += static_cast<int>(pile.elements.size());
        values.length += exporting::pile_length(pile);
        values.steel_weight += exporting::pile_quantities(pile, quantities).steel_weight;
        add(values.heads, pile.nodes.front());
        if (!pile.is_dummy()) add(values.tips, pile.nodes.back());
    }
    for (const int number : sections_in_use(group))
        add_section(values, group.sections.at(static_cast<std::size_t>(number) - 1));
    return values;
}

} // namespace korvat::study
