#include "export/group_json.hpp"

#include "export/text.hpp"

#include <cmath>
#include <nlohmann/json.hpp>

namespace korvat::exporting {
namespace {

using Json = nlohmann::ordered_json;

constexpr int form_version = 1; // of the form: another one when a field changes or goes

Json number(double value) {
    return std::isfinite(value) ? Json(value) : Json(number_text(value));
}

Json numbers(const auto& values) {
    Json array = Json::array();
    for (const double value : values)
        array.push_back(number(value));
    return array;
}

Json date(const group::Group& group) {
    return group.revision == 5 ? Json(group.date) : Json(nullptr);
}

Json curve(const std::vector<group::YieldPoint>& points) {
    Json array = Json::array();
    for (const group::YieldPoint& point : points)
        array.push_back({{"axial", number(point.axial)}, {"moment", number(point.moment)}});
    return array;
}

Json section(std::size_t index, const group::Section& s) {
    return {{"section", index + 1},
            {"type", s.type},
            {"tubes", s.tubes},
            {"diameter", number(s.diameter)},
            {"wall", number(s.wall)},
            {"area", number(s.area)},
            {"section_modulus", number(s.section_modulus)},
            {"axial_stiffness", number(s.axial_stiffness)},
            {"shear_stiffness", number(s.shear_stiffness)},
            {"bending_stiffness", number(s.bending_stiffness)},
            {"torsional_stiffness", number(s.torsional_stiffness)},
            {"wall_weight", number(s.wall_weight)},
            {"fluid_weight", number(s.fluid_weight)},
            {"temperature_strain", number(s.temperature_strain)},
            {"yield_stress", number(s.yield_stress)},
            {"elastic_modulus", number(s.elastic_modulus)},
            {"shear_modulus", number(s.shear_modulus)},
            {"eccentricity", number(s.eccentricity)},
            {"axial_yield", number(s.axial_yield)},
            {"torsional_yield", number(s.torsional_yield)},
            {"miscellaneous", numbers(s.miscellaneous)},
            {"elastic_curve", curve(s.elastic_curve)},
            {"plastic_curve", curve(s.plastic_curve)}};
}

Json node(std::size_t index, const group::Node& n) {
    return {{"node", index + 1},
            {"x", number(n.x)},
            {"y", number(n.y)},
            {"z", number(n.z)},
            {"springs", numbers(n.springs)},
            {"forces", numbers(n.forces)},
            {"soil_displacements", numbers(n.displacements)}};
}

Json element(std::size_t index, const group::Element& e) {
    return {{"element", index + 1},
            {"section", e.section},
            {"diameter", number(e.diameter)},
            {"length", number(e.length)},
            {"strain", number(e.strain)}};
}

// The items of a list, each with its place in it.
Json list(const auto& items, auto item) {
    Json array = Json::array();
    for (std::size_t i = 0; i < items.size(); ++i)
        array.push_back(item(i, items[i]));
    return array;
}

Json pile(std::size_t, const group::Pile& p) {
    return {{"pile", p.number},
            {"fixed_to", p.fixed_to},
            {"tip_code", p.tip_code},
            {"nodes", list(p.nodes, node)},
            {"elements", list(p.elements, element)}};
}

Json load(std::size_t, const group::Load& l) {
    return {{"pile", l.pile}, {"force", numbers(l.force)}, {"moment", numbers(l.moment)}};
}

Json load_vector(std::size_t index, const group::LoadVector& v) {
    return {{"vector", index + 1}, {"label", utf8_text(v.label)}, {"loads", list(v.loads, load)}};
}

} // namespace

std::string group_json(const group::Group& group) {
    const Json document = {{"format", "korvat group"},
                           {"version", form_version},
                           {"revision", group.revision},
                           {"date", date(group)},
                           {"label", utf8_text(group.label)},
                           {"sections", list(group.sections, section)},
                           {"piles", list(group.piles, pile)},
                           {"load_vectors", list(group.load_vectors, load_vector)}};
    return document.dump() + '\n';
}

} // namespace korvat::exporting
