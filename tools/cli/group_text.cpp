#include "cli/group_text.hpp"

#include "cli/table.hpp"
#include "export/quantities.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace korvat::cli {
namespace {

using group::Group;
using group::Pile;
using group::Section;

using Row = std::vector<std::string>;

void add_number(Row& row, double value) {
    row.push_back(shown_number(value));
}

Row numbered(std::size_t number, const std::vector<double>& values) {
    Row row{std::to_string(number)};
    for (const double value : values)
        add_number(row, value);
    return row;
}

std::string date_text(const std::array<int, 3>& date) {
    const auto two = [](int part) {
        return (part >= 0 && part < 10 ? "-0" : "-") + std::to_string(part);
    };
    return std::to_string(date[0]) + two(date[1]) + two(date[2]);
}

// A line ends with no blank where there is no label.
std::string behind_blank(const std::string& label) {
    return label.empty() ? "" : ' ' + shown_text(label);
}

std::string heading(const Group& group) {
    std::string text = "Group of revision " + std::to_string(group.revision);
    if (group.revision == 5) text += " (" + date_text(group.date) + ")";
    return text + ": " + counted(group.piles.size(), "pile") + ", " +
           counted(group.sections.size(), "cross section") + "\nLabel: " + shown_text(group.label) +
           '\n';
}

std::string sections_text(const std::vector<Section>& sections) {
    Table shapes({"section", "diameter", "wall", "area", "modulus", "wall weight", "fluid weight"},
                 {"", "L", "L", "L2", "L3", "F/L3", "F/L3"});
    Table stiffnesses({"section", "EA", "GA", "EI", "GJ", "E", "G", "yield stress", "strain"},
                      {"", "F", "F", "F L2", "F L2", "F/L2", "F/L2", "F/L2", ""});
    for (std::size_t i = 0; i < sections.size(); ++i) {
        const Section& s = sections[i];
        shapes.add(numbered(
            i + 1, {s.diameter, s.wall, s.area, s.section_modulus, s.wall_weight, s.fluid_weight}));
        stiffnesses.add(numbered(i + 1, {s.axial_stiffness, s.shear_stiffness, s.bending_stiffness,
                                         s.torsional_stiffness, s.elastic_modulus, s.shear_modulus,
                                         s.yield_stress, s.temperature_strain}));
    }
    return "\nCross sections\n\n" + shapes.text() + '\n' + stiffnesses.text();
}

// What only revision 5 has.
std::string more_of_sections(const std::vector<Section>& sections) {
    Table table({"section", "type", "non-linear", "eccentricity", "axial yield", "torsional yield",
                 "misc 1", "misc 2", "misc 3", "tubes"},
                {"", "", "", "", "F", "F L", "", "", "", ""});
    for (std::size_t i = 0; i < sections.size(); ++i) {
        const Section& s = sections[i];
        Row row{std::to_string(i + 1), std::to_string(s.type), std::to_string(s.non_linear_code)};
        for (const double value : {s.eccentricity, s.axial_yield, s.torsional_yield,
                                   s.miscellaneous[0], s.miscellaneous[1], s.miscellaneous[2]})
            add_number(row, value);
        std::string tubes;
        for (const int tube : s.tubes)
            tubes += (tubes.empty() ? "" : " ") + std::to_string(tube);
        row.push_back(std::move(tubes));
        table.add(std::move(row));
    }
    return '\n' + table.text();
}

std::string curves_text(const std::vector<Section>& sections) {
    Table table({"section", "point", "elastic axial", "moment", "plastic axial", "moment"},
                {"", "", "F", "F L", "F", "F L"});
    bool has_any = false;
    for (std::size_t i = 0; i < sections.size(); ++i) {
        const Section& s = sections[i];
        const std::size_t points = std::min(s.elastic_curve.size(), s.plastic_curve.size());
        for (std::size_t p = 0; p < points; ++p) {
            table.add(
                {std::to_string(i + 1), std::to_string(p + 1),
                 shown_number(s.elastic_curve[p].axial), shown_number(s.elastic_curve[p].moment),
                 shown_number(s.plastic_curve[p].axial), shown_number(s.plastic_curve[p].moment)});
            has_any = true;
        }
    }
    return has_any ? "\nYield curves\n\n" + table.text() : "";
}

std::string piles_text(const std::vector<Pile>& piles) {
    Table table({"pile", "fixed to", "tip code", "elements", "x head", "y head", "z head", "x tip",
                 "y tip", "z tip", "length"},
                {"", "", "", "", "L", "L", "L", "L", "L", "L", "L"});
    for (const Pile& pile : piles) {
        Row row{std::to_string(pile.number),
                pile.fixed_to == 0 ? "-" : std::to_string(pile.fixed_to),
                std::to_string(pile.tip_code),
                pile.is_dummy() ? "dummy" : std::to_string(pile.elements.size())};
        for (const group::Node* const node : {&pile.nodes.front(), &pile.nodes.back()}) {
            for (const double value : {node->x, node->y, node->z})
                row.push_back(pile.is_dummy() && row.size() > 6 ? "" : shown_number(value));
        }
        row.push_back(pile.is_dummy() ? "" : shown_number(exporting::pile_length(pile)));
        table.add(std::move(row));
    }
    return "\nPiles\n\n" + table.text();
}

std::string nodes_text(const Pile& pile) {
    Table table({"node", "x", "y", "z", "element", "section", "diameter", "length", "strain"},
                {"", "L", "L", "L", "", "", "L", "L", ""});
    for (std::size_t i = 0; i < pile.nodes.size(); ++i) {
        const group::Node& node = pile.nodes[i];
        Row row = numbered(i + 1, {node.x, node.y, node.z});
        if (i < pile.elements.size()) {
            const group::Element& element = pile.elements[i];
            row.push_back(std::to_string(i + 1));
            row.push_back(std::to_string(element.section));
            for (const double value : {element.diameter, element.length, element.strain})
                add_number(row, value);
        }
        row.resize(9);
        table.add(std::move(row));
    }
    return table.text();
}

std::string node_values_text(const Pile& pile) {
    using Kind = std::pair<const char*, const group::Components group::Node::*>;
    Table table({"node", "values", "x", "y", "z", "about x", "about y", "about z"});
    bool has_any = false;
    for (std::size_t i = 0; i < pile.nodes.size(); ++i) {
        for (const auto& [name, values] : {Kind("springs, F/L and F L", &group::Node::springs),
                                           Kind("forces, F and F L", &group::Node::forces),
                                           Kind("soil displ, L", &group::Node::displacements)}) {
            const group::Components& components = pile.nodes[i].*values;
            if (components == group::Components{}) continue;
            Row row{std::to_string(i + 1), name};
            for (const double value : components)
                add_number(row, value);
            table.add(std::move(row));
            has_any = true;
        }
    }
    return has_any ? '\n' + table.text() : "";
}

} // namespace

std::string group_text(const Group& group) {
    std::string text = heading(group);
    if (!group.sections.empty()) {
        text += sections_text(group.sections);
        if (group.revision == 5) text += more_of_sections(group.sections);
        text += curves_text(group.sections);
    }
    if (!group.piles.empty()) text += piles_text(group.piles);
    for (const Pile& pile : group.piles) {
        const std::string values = node_values_text(pile);
        if (pile.is_dummy() && values.empty()) continue; // the table of piles has it all
        text += "\nPile " + std::to_string(pile.number) + "\n\n" + nodes_text(pile) + values;
    }
    return text;
}

std::string load_vectors_text(const std::vector<group::LoadVector>& vectors) {
    std::string text = counted(vectors.size(), "load vector") + '\n';
    for (std::size_t i = 0; i < vectors.size(); ++i) {
        text +=
            "\nLoad vector " + std::to_string(i + 1) + ':' + behind_blank(vectors[i].label) + '\n';
        if (vectors[i].loads.empty()) continue;
        Table table({"pile", "force x", "force y", "force z", "moment x", "moment y", "moment z"},
                    {"", "F", "F", "F", "F L", "F L", "F L"});
        for (const group::Load& load : vectors[i].loads) {
            Row row{std::to_string(load.pile)};
            for (const auto* const components : {&load.force, &load.moment}) {
                for (const double value : *components)
                    add_number(row, value);
            }
            table.add(std::move(row));
        }
        text += '\n' + table.text();
    }
    return text;
}

} // namespace korvat::cli
