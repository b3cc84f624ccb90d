// A group with every kind of thing that one can have, each value another one.
#pragma once

#include "group/group.hpp"

namespace korvat::test {

// A tube, a composite of it and of a second tube, with curves of two points; a dummy pile, and a pile of two
// elements that is fixed to it.
inline group::Group sample_group(int revision) {
    group::Group group;
    group.revision = revision;
    group.label = "Two piles";
    double value = 0.0;
    const auto next = [&value] { return value += 1.5; };
    for (int i = 0; i < 3; ++i) {
        group::Section s;
        for (double* const slot : {&s.diameter,
                                   &s.wall,
                                   &s.area,
                                   &s.section_modulus,
                                   &s.axial_stiffness,
                                   &s.shear_stiffness,
                                   &s.bending_stiffness,
                                   &s.torsional_stiffness,
                                   &s.wall_weight,
                                   &s.fluid_weight,
                                   &s.temperature_strain,
                                   &s.yield_stress,
                                   &s.elastic_modulus,
                                   &s.shear_modulus,
                                   &s.eccentricity,
                                   &s.axial_yield,
                                   &s.torsional_yield,
                                   &s.miscellaneous[0],
                                   &s.miscellaneous[1],
                                   &s.miscellaneous[2]}) {
            *slot = next();
        }
        group.sections.push_back(s);
    }
    if (revision == 5) {
        group.date = {2009, 9, 1};
        for (auto& section : group.sections)
            section.type = 1;
        group.sections[1].type = 2;
        group.sections[1].tubes = {1, 3};
        group.sections[2].non_linear_code = 2;
        group.sections[2].elastic_curve = {{next(), next()}, {next(), next()}};
        group.sections[2].plastic_curve = {{next(), next()}, {next(), next()}};
    }
    for (int number = 1; number <= 2; ++number) {
        group::Pile pile;
        pile.number = number;
        pile.fixed_to = number - 1;
        pile.tip_code = number == 2 ? -2 : 0;
        pile.nodes.resize(number == 2 ? 3 : 1);
        for (auto& node : pile.nodes) {
            node.x = next();
            node.y = next();
            node.z = next();
            for (auto* const values : {&node.springs, &node.forces, &node.displacements}) {
                for (double& component : *values)
                    component = next();
            }
        }
        if (number == 2) {
            for (const int section : {2, 3})
                pile.elements.push_back({next(), next(), section, next()});
        }
        group.piles.push_back(pile);
    }
    return group;
}

inline std::vector<group::LoadVector> sample_loads() {
    return {{"Waves", {{2, {1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}}, {1, {7.0, 0.0, 0.0}, {}}}},
            {"", {{2, {-8.0, 0.0, 0.0}, {0.0, 0.0, 9.0}}}}};
}

} // namespace korvat::test
