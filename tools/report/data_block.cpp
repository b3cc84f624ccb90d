#include "report/data_block.hpp"

#include "export/base64.hpp"
#include "report/markup.hpp"
#include "report/record_names.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <nlohmann/json.hpp>

namespace korvat::report {
namespace {

using Json = nlohmann::ordered_json;

constexpr int form_version = 1; // another one when a field changes or goes

static_assert(std::endian::native == std::endian::little); // as the form says

template <typename Value>
std::string packed(const std::vector<Value>& values) {
    std::string bytes(values.size() * sizeof(Value), '\0');
    if (!values.empty()) std::memcpy(bytes.data(), values.data(), bytes.size());
    return exporting::base64(bytes);
}

// JSON has no number for what is not finite.
Json number(double value) {
    return std::isfinite(value) ? Json(value) : Json(nullptr);
}

Json numbers(const auto& values) {
    Json list = Json::array();
    for (const double value : values)
        list.push_back(number(value));
    return list;
}

Json text_or_null(const std::optional<std::string>& text) {
    return text ? Json(*text) : Json(nullptr);
}

Json segments(const PileFacts& facts) {
    Json list = Json::array();
    for (const PileSegment& segment : facts.segments) {
        list.push_back({{"type", segment.type},
                        {"elements", segment.elements},
                        {"length", number(segment.length)}});
    }
    return list;
}

// The piles of a group with the places of their nodes and elements. Of another group, there are no facts.
Json piles(const group::Group& group, const ReportData* data) {
    const PileFacts unknown;
    Json list = Json::array();
    std::size_t node = 0;
    std::size_t element = 0;
    for (std::size_t i = 0; i < group.piles.size(); ++i) {
        const group::Pile& pile = group.piles[i];
        const PileFacts& facts = data == nullptr ? unknown : data->piles[i];
        const auto weights = data == nullptr ? std::nullopt : weights_of(*data, pile);
        list.push_back(
            {{"number", pile.number},
             {"fixed_to", pile.fixed_to},
             {"tip_code", pile.tip_code},
             {"origin", name_of(facts.origin)},
             {"source", facts.source},
             {"first_node", node},
             {"nodes", pile.nodes.size()},
             {"first_element", element},
             {"elements", pile.elements.size()},
             {"length", number(exporting::pile_length(pile))},
             {"batter", pile.is_dummy() ? Json(nullptr) : number(exporting::pile_batter(pile))},
             {"weight",
              weights ? number(weights->steel_weight + weights->other_weight) : Json(nullptr)},
             {"lines", facts.lines},
             {"segments", segments(facts)}});
        node += pile.nodes.size();
        element += pile.elements.size();
    }
    return list;
}

Json nodes(const group::Group& group) {
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;
    for (const group::Pile& pile : group.piles) {
        for (const group::Node& node : pile.nodes) {
            x.push_back(node.x);
            y.push_back(node.y);
            z.push_back(node.z);
        }
    }
    return {{"count", x.size()}, {"x", packed(x)}, {"y", packed(y)}, {"z", packed(z)}};
}

Json elements(const group::Group& group) {
    std::vector<std::uint16_t> sections;
    std::vector<double> diameters;
    std::vector<double> lengths;
    std::vector<double> strains;
    for (const group::Pile& pile : group.piles) {
        for (const group::Element& element : pile.elements) {
            constexpr int most = std::numeric_limits<std::uint16_t>::max();
            sections.push_back(static_cast<std::uint16_t>(std::clamp(element.section, 0, most)));
            diameters.push_back(element.diameter);
            lengths.push_back(element.length);
            strains.push_back(element.strain);
        }
    }
    return {{"count", sections.size()},
            {"section", packed(sections)},
            {"diameter", packed(diameters)},
            {"length", packed(lengths)},
            {"strain", packed(strains)}};
}

bool has_value(const group::Components& values) {
    return std::ranges::any_of(values, [](double value) { return value != 0.0; });
}

Json node_values(const group::Group& group) {
    std::vector<std::uint32_t> indices;
    std::vector<double> springs;
    std::vector<double> forces;
    std::vector<double> displacements;
    std::uint32_t index = 0;
    for (const group::Pile& pile : group.piles) {
        for (const group::Node& node : pile.nodes) {
            const std::uint32_t here = index++;
            if (!has_value(node.springs) && !has_value(node.forces) &&
                !has_value(node.displacements))
                continue;
            indices.push_back(here);
            springs.insert(springs.end(), node.springs.begin(), node.springs.end());
            forces.insert(forces.end(), node.forces.begin(), node.forces.end());
            displacements.insert(displacements.end(), node.displacements.begin(),
                                 node.displacements.end());
        }
    }
    return {{"count", indices.size()},
            {"node", packed(indices)},
            {"springs", packed(springs)},
            {"forces", packed(forces)},
            {"displacements", packed(displacements)}};
}

// `materials`: of each section; none of another group.
Json sections(const group::Group& group, const std::vector<int>& materials) {
    Json list = Json::array();
    for (std::size_t i = 0; i < group.sections.size(); ++i) {
        const group::Section& section = group.sections[i];
        const int material = i < materials.size() ? materials[i] : 0;
        list.push_back({{"number", i + 1},
                        {"type", section.type},
                        {"diameter", number(section.diameter)},
                        {"wall", number(section.wall)},
                        {"material", material > 0 ? Json(material) : Json(nullptr)},
                        {"tubes", section.tubes}});
    }
    return list;
}

Json materials(const ReportData& data) {
    Json list = Json::array();
    for (const Material& material : data.materials)
        list.push_back({{"number", material.number}, {"name", text_or_null(material.name)}});
    return list;
}

Json load_vectors(const group::Group& group) {
    Json list = Json::array();
    for (const group::LoadVector& vector : group.load_vectors) {
        Json loads = Json::array();
        for (const group::Load& load : vector.loads) {
            loads.push_back({{"pile", load.pile},
                             {"force", numbers(load.force)},
                             {"moment", numbers(load.moment)}});
        }
        list.push_back({{"label", readable(vector.label)}, {"loads", std::move(loads)}});
    }
    return list;
}

Json clashes(const ReportData& data) {
    Json list = Json::array();
    for (const check::Clash& clash : data.clashes) {
        list.push_back({{"piles", {clash.first_pile, clash.second_pile}},
                        {"point", numbers(clash.clearance.point)},
                        {"overlap", number(-clash.clearance.gap)}});
    }
    return list;
}

Json records() {
    Json all = Json::object();
    for (std::size_t i = 0; i < deck::records().size(); ++i) {
        const auto id = static_cast<deck::RecordId>(i);
        Json items = Json::array();
        for (const deck::RecordItem& item : deck::record(id).items)
            items.push_back({{"name", item.name}, {"meaning", item.meaning}, {"unit", item.unit}});
        const RecordName& name = record_name(id);
        all[std::string(name.key)] = {{"title", name.title}, {"items", std::move(items)}};
    }
    return all;
}

Json other_group(const ReportData& data) {
    if (!data.comparison) return nullptr;
    const group::Group& other = data.comparison->other;
    return {{"label", readable(other.label)},
            {"piles", piles(other, nullptr)},
            {"nodes", nodes(other)},
            {"elements", elements(other)},
            {"sections", sections(other, {})}};
}

Json changes(const ReportData& data) {
    if (!data.comparison) return nullptr;
    return {{"changed", data.comparison->changed},
            {"only_here", data.comparison->only_here},
            {"only_there", data.comparison->only_there}};
}

void replace_all(std::string& text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
        text.replace(at, from.size(), to);
        at += to.size();
    }
}

} // namespace

std::string data_block(const ReportData& data, bool has_geometry) {
    const group::Group& group = data.group;
    Json block = {
        {"format", "korvat report"},
        {"version", form_version},
        {"program", data.program},
        {"label", readable(data.label)},
        {"file", readable(data.deck.file)},
        {"revision", data.revision},
        {"complete", data.is_complete},
        {"units",
         {{"force", text_or_null(data.units.force)}, {"length", text_or_null(data.units.length)}}},
        {"piles", piles(group, &data)},
        {"nodes", nodes(group)},
        {"elements", elements(group)},
        {"node_values", node_values(group)},
        {"sections", sections(group, data.section_materials)},
        {"materials", materials(data)},
        {"load_vectors", load_vectors(group)},
        {"clashes", clashes(data)},
        {"records", records()},
        {"other", other_group(data)},
        {"changes", changes(data)}};
    if (!has_geometry) {
        for (const char* const name : {"nodes", "elements", "node_values", "other"})
            block.erase(name);
    }
    std::string text = block.dump();
    replace_all(text, "<", "\\u003c");
    replace_all(text, "\xE2\x80\xA8", "\\u2028");
    replace_all(text, "\xE2\x80\xA9", "\\u2029");
    return text;
}

} // namespace korvat::report
