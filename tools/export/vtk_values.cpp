#include "export/vtk_values.hpp"

#include <string>
#include <utility>

namespace korvat::exporting {
namespace {

using group::Components;
using group::Node;
using group::Section;

std::int32_t number_at(std::size_t index) {
    return static_cast<std::int32_t>(index) + 1;
}

DataArray pile_numbers(const auto& places) {
    std::vector<std::int32_t> numbers;
    numbers.reserve(places.size());
    for (const auto& place : places)
        numbers.push_back(place.pile->number);
    return integers("pile", numbers);
}

// Three of the six components of each node, from the given one on.
DataArray vectors(std::string name, const std::vector<NodeAt>& nodes, Components Node::*values,
                  std::size_t from) {
    std::vector<double> components;
    for (const NodeAt& at : nodes) {
        for (std::size_t k = from; k < from + 3; ++k)
            components.push_back((at.node().*values)[k]);
    }
    return reals(std::move(name), components, 3);
}

// The value of each element; 0 for the head of a dummy pile.
template <typename Value, typename Function>
std::vector<Value> values_of(const std::vector<ElementAt>& elements, Function value_of) {
    std::vector<Value> values;
    values.reserve(elements.size());
    for (const ElementAt& at : elements)
        values.push_back(at.pile->is_dummy() ? Value{} : value_of(at));
    return values;
}

} // namespace

DataArray coordinates(const std::vector<NodeAt>& nodes) {
    std::vector<double> values;
    for (const NodeAt& at : nodes) {
        for (const double value : {at.node().x, at.node().y, at.node().z})
            values.push_back(value);
    }
    return reals("Points", values, 3);
}

std::vector<DataArray> node_arrays(const std::vector<NodeAt>& nodes) {
    std::vector<std::int32_t> numbers;
    numbers.reserve(nodes.size());
    for (const NodeAt& at : nodes)
        numbers.push_back(number_at(at.index));
    return {pile_numbers(nodes),
            integers("node", numbers),
            vectors("springs", nodes, &Node::springs, 0),
            vectors("rotational_springs", nodes, &Node::springs, 3),
            vectors("forces", nodes, &Node::forces, 0),
            vectors("moments", nodes, &Node::forces, 3),
            vectors("soil_displacements", nodes, &Node::displacements, 0),
            vectors("soil_rotations", nodes, &Node::displacements, 3)};
}

std::vector<DataArray> element_arrays(const group::Group& group,
                                      const std::vector<ElementAt>& elements) {
    const auto element = [](const ElementAt& at) -> const group::Element& {
        return at.pile->elements[at.index];
    };
    const auto section = [&](const ElementAt& at) -> const Section& {
        return group.sections.at(static_cast<std::size_t>(element(at).section) - 1);
    };
    const auto number = [&](const char* name, auto value_of) {
        return integers(name, values_of<std::int32_t>(elements, value_of));
    };
    const auto real = [&](const char* name, auto value_of) {
        return reals(name, values_of<double>(elements, value_of));
    };
    const auto of_section = [&](const char* name, double Section::*value) {
        return real(name, [&](const ElementAt& at) { return section(at).*value; });
    };
    return {pile_numbers(elements),
            number("element", [](const ElementAt& at) { return number_at(at.index); }),
            number("section", [&](const ElementAt& at) { return element(at).section; }),
            number("tubes",
                   [&](const ElementAt& at) {
                       return section(at).is_composite() ? section(at).type : 1;
                   }),
            real("radius", [&](const ElementAt& at) { return element(at).diameter / 2.0; }),
            of_section("wall", &Section::wall),
            real("length", [&](const ElementAt& at) { return element(at).length; }),
            real("strain", [&](const ElementAt& at) { return element(at).strain; }),
            of_section("area", &Section::area),
            of_section("elastic_modulus", &Section::elastic_modulus),
            of_section("shear_modulus", &Section::shear_modulus),
            of_section("yield_stress", &Section::yield_stress),
            of_section("axial_stiffness", &Section::axial_stiffness),
            of_section("shear_stiffness", &Section::shear_stiffness),
            of_section("bending_stiffness", &Section::bending_stiffness),
            of_section("torsional_stiffness", &Section::torsional_stiffness)};
}

} // namespace korvat::exporting
