#include "export/csv.hpp"

#include "export/csv_table.hpp"
#include "export/quantities.hpp"
#include "export/text.hpp"

#include <algorithm>
#include <string>

namespace korvat::exporting {
namespace {

using group::Group;
using group::Pile;
using group::Section;

int number_at(std::size_t index) {
    return static_cast<int>(index) + 1;
}

std::string tube_list(const Section& section) {
    std::string text;
    for (const int tube : section.tubes) {
        if (!text.empty()) text += ' ';
        text += std::to_string(tube);
    }
    return text;
}

// The composite that a section is a tube of; 0 where it is none.
int composite_of(const Group& group, int section) {
    for (std::size_t i = 0; i < group.sections.size(); ++i) {
        const std::vector<int>& tubes = group.sections[i].tubes;
        if (std::count(tubes.begin(), tubes.end(), section) > 0) return number_at(i);
    }
    return 0;
}

std::string sections_csv(const Group& group, const std::vector<Quantities>& quantities) {
    CsvTable table({"section",
                    "type",
                    "tubes",
                    "part of",
                    "material",
                    "diameter [L]",
                    "wall [L]",
                    "area [L2]",
                    "section modulus [L3]",
                    "axial stiffness [F]",
                    "shear stiffness [F]",
                    "bending stiffness [F L2]",
                    "torsional stiffness [F L2]",
                    "unit weight of wall [F/L3]",
                    "unit weight of fluid [F/L3]",
                    "temperature strain",
                    "yield stress [F/L2]",
                    "elastic modulus [F/L2]",
                    "shear modulus [F/L2]",
                    "eccentricity",
                    "axial yield force [F]",
                    "torsional yield moment [F L]",
                    "miscellaneous 1",
                    "miscellaneous 2",
                    "miscellaneous 3",
                    "curve points",
                    "steel weight [F/L]",
                    "other weight [F/L]",
                    "fluid weight [F/L]",
                    "displaced volume [L2]"});
    const std::vector<std::string> materials = wall_materials(group);
    for (std::size_t i = 0; i < group.sections.size(); ++i) {
        const Section& s = group.sections[i];
        table.add(number_at(i)).add(s.is_composite() ? "composite" : "tube").add(tube_list(s));
        table.add(composite_of(group, number_at(i))).add(materials[i]);
        for (const double value : {s.diameter,
                                   s.wall,
                                   s.area,
                                   s.section_modulus,
                                   s.axial_stiffness,
                                   s.shear_stiffness,
                                   s.bending_stiffness,
                                   s.torsional_stiffness,
                                   s.wall_weight,
                                   s.fluid_weight,
                                   s.temperature_strain,
                                   s.yield_stress,
                                   s.elastic_modulus,
                                   s.shear_modulus,
                                   s.eccentricity,
                                   s.axial_yield,
                                   s.torsional_yield,
                                   s.miscellaneous[0],
                                   s.miscellaneous[1],
                                   s.miscellaneous[2]}) {
            table.add(value);
        }
        const Quantities& q = quantities[i];
        table.add(s.non_linear_code).add(q.steel_weight).add(q.other_weight).add(q.fluid_weight);
        table.add(q.displaced_volume).end_row();
    }
    return table.text();
}

std::string elements_csv(const Group& group, const std::vector<Quantities>& quantities) {
    CsvTable table({"pile", "element", "section", "x of upper node [L]", "y of upper node [L]",
                    "z of upper node [L]", "x of lower node [L]", "y of lower node [L]",
                    "z of lower node [L]", "from head [L]", "length [L]", "diameter [L]",
                    "wall [L]", "elastic modulus [F/L2]", "strain", "steel weight [F]",
                    "other weight [F]", "fluid weight [F]", "displaced volume [L3]"});
    for (const Pile& pile : group.piles) {
        const std::vector<double> distances = distances_from_head(pile);
        for (std::size_t i = 0; i < pile.elements.size(); ++i) {
            const group::Element& element = pile.elements[i];
            table.add(pile.number).add(number_at(i)).add(element.section);
            for (const std::size_t end : {i, i + 1}) {
                const group::Node& node = pile.nodes[end];
                table.add(node.x).add(node.y).add(node.z);
            }
            const auto section = static_cast<std::size_t>(element.section) - 1;
            table.add(distances[i]).add(element.length).add(element.diameter);
            table.add(group.sections[section].wall).add(group.sections[section].elastic_modulus);
            const Quantities q = element.length * quantities[section];
            table.add(element.strain).add(q.steel_weight).add(q.other_weight).add(q.fluid_weight);
            table.add(q.displaced_volume).end_row();
        }
    }
    return table.text();
}

std::string nodes_csv(const Group& group) {
    CsvTable table({"pile",
                    "node",
                    "x [L]",
                    "y [L]",
                    "z [L]",
                    "from head [L]",
                    "spring along x [F/L]",
                    "spring along y [F/L]",
                    "spring along z [F/L]",
                    "spring about x [F L]",
                    "spring about y [F L]",
                    "spring about z [F L]",
                    "force along x [F]",
                    "force along y [F]",
                    "force along z [F]",
                    "moment about x [F L]",
                    "moment about y [F L]",
                    "moment about z [F L]",
                    "soil displacement along x [L]",
                    "soil displacement along y [L]",
                    "soil displacement along z [L]",
                    "soil rotation about x",
                    "soil rotation about y",
                    "soil rotation about z"});
    for (const Pile& pile : group.piles) {
        const std::vector<double> distances = distances_from_head(pile);
        for (std::size_t i = 0; i < pile.nodes.size(); ++i) {
            const group::Node& node = pile.nodes[i];
            table.add(pile.number).add(number_at(i)).add(node.x).add(node.y).add(node.z);
            table.add(distances[i]);
            for (const auto& values : {node.springs, node.forces, node.displacements}) {
                for (const double value : values)
                    table.add(value);
            }
            table.end_row();
        }
    }
    return table.text();
}

std::string curves_csv(const Group& group) {
    CsvTable table({"section", "point", "elastic axial force [F]", "elastic moment [F L]",
                    "plastic axial force [F]", "plastic moment [F L]"});
    for (std::size_t i = 0; i < group.sections.size(); ++i) {
        const Section& section = group.sections[i];
        for (std::size_t k = 0; k < section.elastic_curve.size(); ++k) {
            table.add(number_at(i)).add(number_at(k));
            table.add(section.elastic_curve[k].axial).add(section.elastic_curve[k].moment);
            table.add(section.plastic_curve[k].axial).add(section.plastic_curve[k].moment);
            table.end_row();
        }
    }
    return table.text();
}

std::string loads_csv(const Group& group) {
    CsvTable table({"vector", "label", "record", "pile", "force along x [F]", "force along y [F]",
                    "force along z [F]", "moment about x [F L]", "moment about y [F L]",
                    "moment about z [F L]"});
    for (std::size_t i = 0; i < group.load_vectors.size(); ++i) {
        const group::LoadVector& vector = group.load_vectors[i];
        const std::string label = utf8_text(vector.label);
        for (std::size_t k = 0; k < vector.loads.size(); ++k) {
            const group::Load& load = vector.loads[k];
            table.add(number_at(i)).add(label).add(number_at(k)).add(load.pile);
            for (const auto& values : {load.force, load.moment}) {
                for (const double value : values)
                    table.add(value);
            }
            table.end_row();
        }
    }
    return table.text();
}

std::string piles_csv(const Group& group, const std::vector<Quantities>& sections) {
    CsvTable table({"pile", "fixed to", "tip code", "elements", "x of head [L]", "y of head [L]",
                    "z of head [L]", "x of tip [L]", "y of tip [L]", "z of tip [L]", "length [L]",
                    "batter [degree]", "steel weight [F]", "other weight [F]", "fluid weight [F]",
                    "displaced volume [L3]"});
    for (const Pile& pile : group.piles) {
        table.add(pile.number).add(pile.fixed_to).add(pile.tip_code);
        table.add(static_cast<int>(pile.elements.size()));
        for (const group::Node* const node : {&pile.nodes.front(), &pile.nodes.back()})
            table.add(node->x).add(node->y).add(node->z);
        table.add(pile_length(pile));
        pile.is_dummy() ? table.add_empty() : table.add(pile_batter(pile));
        const Quantities q = pile_quantities(pile, sections);
        table.add(q.steel_weight).add(q.other_weight).add(q.fluid_weight).add(q.displaced_volume);
        table.end_row();
    }
    return table.text();
}

} // namespace

std::vector<ExportedFile> csv_files(const Group& group) {
    const std::vector<Quantities> sections = section_quantities(group);
    return {{"sections.csv", sections_csv(group, sections)},
            {"elements.csv", elements_csv(group, sections)},
            {"nodes.csv", nodes_csv(group)},
            {"curves.csv", curves_csv(group)},
            {"loads.csv", loads_csv(group)},
            {"piles.csv", piles_csv(group, sections)}};
}

} // namespace korvat::exporting
