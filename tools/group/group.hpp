// What a run of KORVAT produced: sections, piles with nodes and elements, and load vectors, as they stand
// in PILE.07 and LOAD.09. Values are in stored units: F and L are the force and the length unit of the
// deck after its factors FACF and FACL. Coordinates are global, +z downwards.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace korvat::group {

// A point of a yield curve: axial force, F, compression positive, and moment, F L.
struct YieldPoint {
    double axial = 0.0;
    double moment = 0.0;

    bool operator==(const YieldPoint&) const = default;
};

// A cross section, or a tube of a composite one. Of a composite, the values that only one tube can have
// are 0. Section i stands at index i - 1 of its group.
struct Section {
    double diameter = 0.0;            // outer diameter, L; of a composite the largest of its tubes
    double wall = 0.0;                // wall thickness, L; 0 for a composite
    double area = 0.0;                // of the wall, L2
    double section_modulus = 0.0;     // elastic, L3; 0 for a composite
    double axial_stiffness = 0.0;     // EA, F
    double shear_stiffness = 0.0;     // GA, F
    double bending_stiffness = 0.0;   // EI, F L2
    double torsional_stiffness = 0.0; // GJ, F L2
    double wall_weight = 0.0;         // unit weight of the wall, F/L3; 0 for a composite
    double fluid_weight = 0.0;        // unit weight of the fluid inside, F/L3; 0 for a composite
    double temperature_strain = 0.0;  // of the material; 0 for a composite
    double yield_stress = 0.0;        // F/L2; 0 for a composite
    double elastic_modulus = 0.0;     // E, F/L2; 0 for a composite
    double shear_modulus = 0.0;       // G, F/L2; 0 for a composite
    double eccentricity = 0.0;        // as given; 0 in revision 4
    double axial_yield = 0.0;         // sum of A sigma_y, F; 0 in revision 4
    double torsional_yield = 0.0;     // sum of A tau_y R, F L; 0 in revision 4
    std::array<double, 3> miscellaneous{}; // as given; 0 in revision 4

    int type = 0;            // 1 a plain tube, n a composite of n tubes; 0 in revision 4
    int non_linear_code = 0; // points of the yield curves; 0 for none and in revision 4
    std::vector<int> tubes;  // of a composite: section numbers, the outer one first
    std::vector<YieldPoint> elastic_curve; // non_linear_code points
    std::vector<YieldPoint> plastic_curve; // non_linear_code points

    [[nodiscard]] bool is_composite() const { return type > 1; }
    bool operator==(const Section&) const = default;
};

// Three components along x, y, z and three about them.
using Components = std::array<double, 6>;

struct Node {
    double x = 0.0;             // L
    double y = 0.0;             // L
    double z = 0.0;             // L
    Components springs{};       // F/L; about the axes F L
    Components forces{};        // F; moments F L
    Components displacements{}; // of the soil, L

    bool operator==(const Node&) const = default;
};

// An element; element e of a pile lies between its nodes e and e + 1.
struct Element {
    double diameter = 0.0; // outer diameter, L
    double length = 0.0;   // L
    int section = 0;       // number of its section, from 1
    // Temperature strain; for an element of a composite the mean temperature of its nodes.
    double strain = 0.0;

    bool operator==(const Element&) const = default;
};

// A pile from head to tip; a dummy pile has one node and no element.
struct Pile {
    int number = 0;   // from 1
    int fixed_to = 0; // pile that it is fixed to; 0: none
    int tip_code = 0; // at most 3
    std::vector<Node> nodes;
    std::vector<Element> elements;

    [[nodiscard]] bool is_dummy() const { return elements.empty(); }
    bool operator==(const Pile&) const = default;
};

// A record of a load vector: at which node it acts is a matter of the analysis.
struct Load {
    int pile = 0;
    std::array<double, 3> force{};  // F
    std::array<double, 3> moment{}; // F L

    bool operator==(const Load&) const = default;
};

struct LoadVector {
    std::string label; // without trailing blanks
    std::vector<Load> loads;

    bool operator==(const LoadVector&) const = default;
};

struct Group {
    int revision = 0;              // 4 or 5
    std::array<int, 3> date{};     // year, month, day of the revision; zeros in revision 4
    std::string label;             // without trailing blanks
    std::vector<Section> sections; // the tubes of composites included
    std::vector<Pile> piles;
    std::vector<LoadVector> load_vectors; // of LOAD.09; none where it was not read

    bool operator==(const Group&) const = default;
};

} // namespace korvat::group
