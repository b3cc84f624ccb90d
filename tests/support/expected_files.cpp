// The records of the analysis file and the lines of the plot file that a pile model must give.
#include "pile_model.hpp"

#include "text.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>

namespace korvat::test {

namespace {

constexpr std::size_t most_sections = 200;
constexpr std::size_t most_sub_sections = 12;
constexpr std::size_t most_points = 10;

constexpr std::array<const char*, 3> node_value_names = {"springs", "loads", "soil displacements"};

// Positions of neighbouring nodes may come from numbers that differ in the last bit.
double position_tolerance(const ModelPile& pile) {
    double largest = 0.0;
    for (const auto* const axis : {&pile.x, &pile.y, &pile.z}) {
        for (const double value : *axis)
            largest = std::max(largest, std::abs(value));
    }
    return std::max(1.0e-12, 4.0 * std::numeric_limits<double>::epsilon() * largest);
}

std::int32_t count_of(std::size_t count) {
    return static_cast<std::int32_t>(count);
}

ExpectedRecord reals(std::string what, int pile, const std::vector<double>& values,
                     const char* item_name) {
    ExpectedRecord record;
    record.what = std::move(what);
    record.pile = pile;
    record.item_names = {item_name};
    record.items.assign(values.begin(), values.end());
    return record;
}

const ModelSection& section_at(const PileModel& model, int number) {
    return model.sections.at(static_cast<std::size_t>(number) - 1);
}

// Zero for a composite, which has no material.
MaterialRecord material_of(const PileModel& model, int section) {
    const int material = section_at(model, section).material;
    if (material == 0) return {};
    return model.materials.at(static_cast<std::size_t>(material) - 1);
}

double temperature_strain(const PileModel& model, const ModelPile& pile, std::size_t element,
                          int section) {
    // At an element of a composite the node values are strains already.
    const double strain = section_at(model, section).material == 0
                              ? 1.0
                              : material_of(model, section).temperature_strain;
    return strain * (pile.temperatures[element] + pile.temperatures[element + 1]) * 0.5;
}

ExpectedRecord element_sizes(const PileModel& model, const ModelPile& pile, int number) {
    ExpectedRecord record;
    record.what = "element sizes";
    record.pile = number;
    record.absolute_tolerance = position_tolerance(pile);
    record.item_names = {"diameter of element", "length of element"};
    for (std::size_t e = 0; e < pile.elements.size(); ++e) {
        const ElementSection& sections = pile.elements[e];
        if (sections.other != sections.section) {
            record.alternatives[record.items.size()] = section_at(model, sections.other).values[0];
        }
        record.items.emplace_back(section_at(model, sections.section).values[0]);
        record.items.emplace_back(std::hypot(pile.x[e + 1] - pile.x[e], pile.y[e + 1] - pile.y[e],
                                             pile.z[e + 1] - pile.z[e]));
    }
    return record;
}

ExpectedRecord element_types(const PileModel& model, const ModelPile& pile, int number) {
    ExpectedRecord record;
    record.what = "element types";
    record.pile = number;
    record.item_names = {"cross section of element", "temperature strain of element"};
    for (std::size_t e = 0; e < pile.elements.size(); ++e) {
        const ElementSection& sections = pile.elements[e];
        if (sections.other != sections.section) {
            record.alternatives[record.items.size()] = sections.other;
            record.alternatives[record.items.size() + 1] =
                temperature_strain(model, pile, e, sections.other);
        }
        record.items.emplace_back(sections.section);
        record.items.emplace_back(temperature_strain(model, pile, e, sections.section));
    }
    return record;
}

void append_pile(const PileModel& model, const ModelPile& pile, int number, ExpectedFile& file) {
    file.push_back({"pile head",
                    number,
                    0.0,
                    {"pile number", "pile fixed to", "number of elements", "tip code"},
                    {number, pile.fixed_to, count_of(pile.elements.size()), pile.tip_code},
                    {}});
    for (const auto& [what, values] :
         {std::pair{"x coordinates", &pile.x}, std::pair{"y coordinates", &pile.y},
          std::pair{"z coordinates", &pile.z}}) {
        file.push_back(reals(what, number, *values, "node"));
        file.back().absolute_tolerance = position_tolerance(pile);
    }
    for (std::size_t component = 0; component < 6; ++component) {
        for (std::size_t kind = 0; kind < pile.node_values.size(); ++kind) {
            std::vector<double> values;
            for (const auto& node : pile.node_values[kind])
                values.push_back(node[component]);
            file.push_back(reals(node_value_names[kind] + std::string(", component ") +
                                     std::to_string(component + 1),
                                 number, values, "node"));
        }
    }
    if (pile.elements.empty()) return;
    file.push_back(element_sizes(model, pile, number));
    file.push_back(element_types(model, pile, number));
}

std::string integer_field(int value, std::size_t width) {
    const std::string digits = std::to_string(value);
    return std::string(width - std::min(width, digits.size()), ' ') + digits;
}

PlotPiece decimals(double value, int width, double absolute_tolerance) {
    // A zero comes from zeros.
    const double margin =
        value == 0.0 ? 0.0 : std::max(1.0e-12 * std::abs(value), absolute_tolerance);
    return printed_forms(value, width, 3, margin);
}

PlotPiece merged(PlotPiece first, const PlotPiece& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

std::string material_kind(const PileModel& model, int section) {
    const double modulus = material_of(model, section).young;
    const bool concrete = static_cast<double>(0.2F) > modulus / model.steel_modulus;
    return integer_field(concrete ? 2 : 1, 4);
}

void append_plot_of_pile(const PileModel& model, const ModelPile& pile, int number,
                         ExpectedPlot& plot) {
    const ElementSection& tip = pile.elements.back();
    const ModelSection& tube = section_at(model, tip.section);
    const ModelSection& other_tube = section_at(model, tip.other);
    plot.push_back({});
    plot.push_back({{integer_field(number, 4) + integer_field(count_of(pile.x.size()), 4)},
                    merged(decimals(tube.diameter, 7, 0.0), decimals(other_tube.diameter, 7, 0.0)),
                    merged(decimals(tube.wall, 7, 0.0), decimals(other_tube.wall, 7, 0.0)),
                    {material_kind(model, tip.section), material_kind(model, tip.other)},
                    {"  Pile,nodes,diam,wall,'material (1=steel 2=concrete)"}});
    plot.push_back({});
    plot.push_back({{"  Node     X         Y         Z"}});
    const double tolerance = position_tolerance(pile);
    for (std::size_t n = 0; n < pile.x.size(); ++n) {
        plot.push_back({{integer_field(count_of(n) + 1, 5)},
                        decimals(pile.x[n], 10, tolerance),
                        decimals(pile.y[n], 10, tolerance),
                        decimals(pile.z[n], 10, tolerance)});
    }
}

// Type, non-linear code and sub-sections of all sections for which there is room.
ExpectedRecord section_kinds(const PileModel& model) {
    std::vector<std::int32_t> types(most_sections, 0);
    std::vector<std::int32_t> codes(most_sections, 0);
    std::vector<std::int32_t> parts(most_sections * most_sub_sections, 0);
    for (std::size_t i = 0; i < model.sections.size(); ++i) {
        const ModelSection& section = model.sections[i];
        types[i] = section.type;
        codes[i] = section.nonlinear < 0 ? count_of(most_points) : section.nonlinear;
        std::copy(section.sub_sections.begin(), section.sub_sections.end(),
                  parts.begin() + static_cast<std::ptrdiff_t>(i * most_sub_sections));
    }
    ExpectedRecord record;
    record.what = "kinds of cross sections";
    for (const auto* const list : {&types, &codes, &parts})
        record.items.insert(record.items.end(), list->begin(), list->end());
    return record;
}

ExpectedRecord yield_curves(const PileModel& model) {
    ExpectedRecord record;
    record.what = "yield curves";
    for (const auto value : {&YieldPoint::elastic_axial, &YieldPoint::elastic_moment,
                             &YieldPoint::plastic_axial, &YieldPoint::plastic_moment}) {
        std::vector<double> values(most_sections * most_points, 0.0);
        for (std::size_t i = 0; i < model.sections.size(); ++i) {
            const std::vector<YieldPoint>& points = model.sections[i].points;
            for (std::size_t p = 0; p < points.size(); ++p)
                values.at(i * most_points + p) = points[p].*value;
        }
        record.items.insert(record.items.end(), values.begin(), values.end());
    }
    return record;
}

} // namespace

ExpectedFile expected_pile_file(const PileModel& model) {
    ExpectedFile file;
    if (model.revision > 4) {
        file.push_back(
            {"date of the revision", 0, 0.0, {"year", "month", "day"}, {2009, 9, 1}, {}});
    }
    file.push_back({"label", 0, 0.0, {"label"}, {model.label}, {}});
    file.push_back({"counts",
                    0,
                    0.0,
                    {"number of piles", "number of cross sections"},
                    {count_of(model.piles.size()), count_of(model.sections.size())},
                    {}});
    for (std::size_t i = 0; i < model.sections.size(); ++i) {
        const auto& values = model.sections[i].values;
        file.push_back(reals("cross section " + std::to_string(i + 1), 0,
                             {values.begin(), values.end()}, "slot"));
    }
    if (model.revision > 4) {
        file.push_back(section_kinds(model));
        file.push_back(yield_curves(model));
    }
    for (std::size_t i = 0; i < model.piles.size(); ++i) {
        append_pile(model, model.piles[i], count_of(i) + 1, file);
    }
    return file;
}

ExpectedPlot expected_plot(const PileModel& model) {
    ExpectedPlot plot;
    plot.push_back({{model.label}});
    plot.push_back({});
    plot.push_back({{integer_field(count_of(model.piles.size()), 9) + "  Number of piles"}});
    for (std::size_t i = 0; i < model.piles.size(); ++i) {
        if (model.piles[i].elements.empty()) continue;
        append_plot_of_pile(model, model.piles[i], count_of(i) + 1, plot);
    }
    return plot;
}

} // namespace korvat::test
