// Independent calculation of what a deck gives: cross sections, nodes and elements of every pile.
#include "pile_model.hpp"

#include "deck_units.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <string>

namespace korvat::test {

namespace {

using Extended = Units::Extended;

constexpr double smallest = 1.0e-10;
constexpr int most_nodes = 451;

[[noreturn]] void fail_at(const std::string& what, int number, const std::string& why) {
    throw std::runtime_error(what + " " + std::to_string(number) + ": " + why);
}

std::size_t index_of(int number, std::size_t count, const char* what) {
    if (number < 1 || static_cast<std::size_t>(number) > count) {
        fail_at(what, number, "there is no such number");
    }
    return static_cast<std::size_t>(number) - 1;
}

MaterialRecord scaled_material(const MaterialRecord& material, const Units& units) {
    return {scaled(material.young, units.stress()), scaled(material.shear, units.stress()),
            scaled(material.yield, units.stress()), scaled(material.wall_weight, units.weight()),
            material.temperature_strain};
}

// Head and tip of every pile. Node positions are computed in double and in the order of the method
// itself: neighbouring nodes are subtracted later, so extended precision here would differ by more
// than the comparison allows.
std::vector<PileRecord> all_piles(const Deck& deck, double length_factor) {
    std::vector<PileRecord> piles;
    for (PileRecord next : deck.pile_records) {
        for (double& value : next.head)
            value *= length_factor;
        for (double& value : next.tip)
            value *= length_factor;
        const PileRecord previous = piles.empty() ? PileRecord{} : piles.back();
        const double parts = next.number - previous.number;
        for (int number = previous.number + 1; number < next.number; ++number) {
            if (previous.source != 0 || next.source != 0) {
                fail_at("pile", number, "omitted beside a generated pile");
            }
            PileRecord pile = piles.back();
            pile.number = number;
            for (std::size_t i = 0; i < 3; ++i) {
                pile.head[i] += (next.head[i] - previous.head[i]) / parts;
                pile.tip[i] += (next.tip[i] - previous.tip[i]) / parts;
            }
            piles.push_back(pile);
        }
        piles.push_back(next);
    }
    return piles;
}

std::vector<int> sections_for_length(int first, int last, double length, int elements) {
    const double slope = (last - first) / length;
    const double step = length / elements;
    double middle = -0.5 * step;
    std::vector<int> sections;
    for (int i = 0; i < elements; ++i) {
        middle += step;
        const int rounded = static_cast<int>(slope * middle + first + 0.5);
        sections.push_back(std::clamp(rounded, std::min(first, last), std::max(first, last)));
    }
    return sections;
}

struct Alignment {
    std::vector<double> distances = {0.0};
    std::vector<ElementSection> elements;
};

Alignment align_segments(const Deck& deck, const std::vector<int>& segments, int pile,
                         double length_factor) {
    Alignment result;
    for (const int number : segments) {
        const SegmentRecord& segment =
            deck.segments[index_of(number, deck.segments.size(), "segment type")];
        const double length = segment.length * length_factor;
        for (int i = 0; i < segment.elements; ++i) {
            result.distances.push_back(result.distances.back() + length / segment.elements);
        }
        const std::vector<ElementSection> sections =
            element_sections(segment.first_section, segment.last_section, length, segment.elements);
        result.elements.insert(result.elements.end(), sections.begin(), sections.end());
        if (result.distances.size() > most_nodes) fail_at("pile", pile, "too many nodes");
    }
    return result;
}

void place_given_pile(const PileRecord& record, const Alignment& alignment, ModelPile& pile) {
    pile.elements = alignment.elements;
    const double dx = record.tip[0] - record.head[0];
    const double dy = record.tip[1] - record.head[1];
    const double dz = record.tip[2] - record.head[2];
    const double sum = alignment.distances.back();
    const double straight = std::sqrt(dy * dy + dx * dx + dz * dz);
    if (pile.elements.empty()) {
        pile.x = {record.head[0]};
        pile.y = {record.head[1]};
        pile.z = {record.head[2]};
        return;
    }
    if (std::abs(straight - sum) / sum > static_cast<double>(0.001F)) {
        fail_at("pile", record.number, "the segments do not fit between head and tip");
    }
    for (const double distance : alignment.distances) {
        // Plan positions go by the straight distance, depth by the sum of the segments.
        pile.x.push_back(distance / straight * dx + record.head[0]);
        pile.y.push_back(distance / straight * dy + record.head[1]);
        pile.z.push_back(dz / sum * distance + record.head[2]);
    }
}

void place_generated_pile(const PileRecord& record, const ModelPile& source, ModelPile& pile) {
    pile.elements = source.elements;
    pile.x = source.x;
    pile.y = source.y;
    pile.z = source.z;
    if (record.mirror == 1) {
        for (double& y : pile.y)
            y = 0.0 - y;
    } else if (record.mirror == 2) {
        for (double& x : pile.x)
            x = 0.0 - x;
    } else {
        for (double& x : pile.x)
            x += record.head[0];
        for (double& y : pile.y)
            y += record.head[1];
        for (double& z : pile.z)
            z += record.head[2];
    }
}

std::array<double, 6> scaled_node_values(const NodeValueRecord& record, const Units& units) {
    const Extended force = units.force;
    const Extended length = units.length;
    std::array<Extended, 2> factors = {1.0L, 1.0L}; // of the first and of the last three values
    if (record.code == 1) factors = {force / length, force * length};
    if (record.code == 2) factors = {force, force * length};
    if (record.code == 3) factors = {length, 1.0L};
    std::array<double, 6> values{};
    for (std::size_t i = 0; i < 6; ++i)
        values[i] = scaled(record.values[i], factors[i / 3]);
    return values;
}

void apply_node_values(const Deck& deck, const Units& units, int number, ModelPile& pile) {
    const std::size_t nodes = pile.x.size();
    for (auto& kind : pile.node_values)
        kind.assign(nodes, {});
    pile.temperatures.assign(nodes, 0.0);
    for (const NodeValueRecord& record : deck.node_values) {
        if (number < record.first_pile || number > record.last_pile) continue;
        if (record.first_node < 1 || record.first_node > record.last_node ||
            static_cast<std::size_t>(record.last_node) > nodes || record.code < 1 ||
            record.code > 4) {
            fail_at("pile", number, "a special node value does not fit");
        }
        const std::array<double, 6> values = scaled_node_values(record, units);
        for (int n = record.first_node; n <= record.last_node; ++n) {
            const auto node = static_cast<std::size_t>(n) - 1;
            if (record.code == 4) {
                pile.temperatures[node] = values[0];
            } else {
                pile.node_values.at(static_cast<std::size_t>(record.code) - 1)[node] = values;
            }
        }
    }
    if (!pile.elements.empty()) return;
    const std::array<double, 6>& springs = pile.node_values[0][0];
    const std::array<double, 6>& soil = pile.node_values[2][0];
    if (springs[0] + springs[1] + springs[2] <= smallest &&
        std::abs(soil[0]) + std::abs(soil[1]) + std::abs(soil[2]) >= smallest) {
        fail_at("pile", number, "soil displacements at a dummy pile without springs");
    }
}

void check_tips(const PileModel& model) {
    for (std::size_t i = 0; i < model.piles.size(); ++i) {
        const ModelPile& pile = model.piles[i];
        if (pile.tip_code >= 0) continue;
        const int number = static_cast<int>(i) + 1;
        if (static_cast<std::size_t>(-pile.tip_code) >= pile.x.size()) {
            fail_at("pile", number, "tip code beyond the nodes");
        }
        if (pile.fixed_to == 0) continue;
        if (!model.piles[index_of(pile.fixed_to, model.piles.size(), "pile")].elements.empty()) {
            fail_at("pile", number, "fixed to a pile that is no dummy pile");
        }
    }
}

} // namespace

std::vector<ElementSection> element_sections(int first_section, int last_section, double length,
                                             int elements) {
    const int lowest = std::min(first_section, last_section);
    const int highest = std::max(first_section, last_section);
    std::vector<ElementSection> result;
    for (const int section : sections_for_length(first_section, last_section, length, elements)) {
        // The length cancels out: twice the count of elements times what is rounded down.
        const int i = static_cast<int>(result.size());
        const int rounded =
            2 * elements * first_section + (last_section - first_section) * (2 * i + 1) + elements;
        int other = section;
        if (rounded % (2 * elements) == 0) {
            const int border = rounded / (2 * elements);
            other = std::clamp(section == border ? border - 1 : border, lowest, highest);
        }
        result.push_back({section, other});
    }
    return result;
}

PileModel build_model(const Deck& deck) {
    const Units units = units_of(deck.force_factor, deck.length_factor);
    PileModel model;
    model.revision = deck.revision;
    model.label = deck.label;
    model.steel_modulus = static_cast<double>(2.1e8L * units.stress());
    for (const MaterialRecord& material : deck.materials) {
        model.materials.push_back(scaled_material(material, units));
    }
    model.sections = model_sections(deck, units, model.materials);
    for (const PileRecord& record : all_piles(deck, units.length)) {
        ModelPile pile;
        if (record.source != 0) {
            const ModelPile& source =
                model.piles[index_of(record.source, model.piles.size(), "source pile")];
            place_generated_pile(record, source, pile);
        } else {
            place_given_pile(record,
                             align_segments(deck, deck.pile_segments.at(record.number),
                                            record.number, units.length),
                             pile);
        }
        apply_node_values(deck, units, record.number, pile);
        model.piles.push_back(pile);
    }
    for (const TipRecord& tip : deck.tips) {
        for (int p = tip.first_pile; p <= tip.last_pile; ++p) {
            ModelPile& pile = model.piles[index_of(p, model.piles.size(), "pile")];
            pile.tip_code = tip.tip_code;
            pile.fixed_to = tip.fixed_to;
        }
    }
    check_tips(model);
    return model;
}

} // namespace korvat::test
