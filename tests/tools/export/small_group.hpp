// A group by hand for the tests of exports: a dummy pile, and a pile of a tube and a grouted composite.
#pragma once

#include "group/group.hpp"

namespace korvat::test {

// Every value is another one, so that none can stand in the place of another. The node at the head of pile 2
// is (1, 0, -2), its elements are 5 and 10 long.
inline group::Group small_group() {
    const group::Section tube{.diameter = 2.0,
                              .wall = 0.5,
                              .area = 2.25,
                              .section_modulus = 0.75,
                              .axial_stiffness = 450.0,
                              .shear_stiffness = 170.0,
                              .bending_stiffness = 150.0,
                              .torsional_stiffness = 110.0,
                              .wall_weight = 8.0,
                              .fluid_weight = 4.0,
                              .temperature_strain = 1.2E-5,
                              .yield_stress = 0.35,
                              .elastic_modulus = 200.0,
                              .shear_modulus = 80.0,
                              .eccentricity = -0.25,
                              .axial_yield = 0.8,
                              .torsional_yield = 0.3,
                              .miscellaneous = {0.1, 0.2, 1.0E-310},
                              .type = 1,
                              .non_linear_code = 2,
                              .tubes = {},
                              .elastic_curve = {{9.0, 0.0}, {-7.5, 0.5}},
                              .plastic_curve = {{10.0, 1.5}, {-8.5, 0.25}}};
    group::Section composite;
    composite.diameter = 3.0;
    composite.area = 5.5;
    composite.axial_stiffness = 858.5;
    composite.type = 2;
    composite.tubes = {3, 4};
    group::Section outer;
    outer.diameter = 3.0;
    outer.wall = 0.25;
    outer.area = 4.0;
    outer.wall_weight = 8.0;
    outer.elastic_modulus = 200.0;
    outer.type = 1;
    group::Section grout = outer;
    grout.diameter = 2.5;
    grout.area = 1.5;
    grout.wall_weight = 2.0;
    grout.fluid_weight = 16.0;
    grout.elastic_modulus = 39.0;

    group::Pile dummy{.number = 1, .fixed_to = 0, .tip_code = 0, .nodes = {{}}, .elements = {}};
    dummy.nodes[0] = {0.5,
                      0.25,
                      -4.0,
                      {11.0, 12.0, 13.0, 14.0, 15.0, 16.0},
                      {21.0, 22.0, 23.0, 24.0, 25.0, 26.0},
                      {31.0, 32.0, 33.0, 34.0, 35.0, 36.0}};
    group::Pile pile{.number = 2, .fixed_to = 1, .tip_code = 3, .nodes = {}, .elements = {}};
    pile.nodes = {
        {1.0, 0.0, -2.0, {}, {}, {}}, {1.0, 3.0, 2.0, {}, {}, {}}, {1.0, 9.0, 10.0, {}, {}, {}}};
    pile.nodes[1].forces = {0.1, 0.0, 0.0, 0.0, 0.0, -0.0};
    pile.elements = {{.diameter = 2.0, .length = 5.0, .section = 1, .strain = 0.001},
                     {.diameter = 3.0, .length = 10.0, .section = 2, .strain = 20.0}};
    return {.revision = 5,
            .date = {2009, 9, 1},
            .label = "A < B",
            .sections = {tube, composite, outer, grout},
            .piles = {dummy, pile},
            .load_vectors = {
                {"Pull, \"full\"",
                 {{2, {1.5, 2.5, 3.5}, {4.5, 5.5, 6.5}}, {1, {-0.5, 0.0, 0.0}, {0.0, 0.0, 7.5}}}},
                {"Nothing", {}}}};
}

} // namespace korvat::test
