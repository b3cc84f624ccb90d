// Independent calculation of what a deck gives: cross sections, nodes, elements and both files.
#pragma once

#include "deck_reader.hpp"
#include "expected_file.hpp"

#include <array>
#include <vector>

namespace korvat::test {

struct ModelSection {
    int material = 0;
    std::array<double, 20> values{}; // slot 1 first
};

// Cross-section numbers step along a segment and are rounded at the midpoints of the elements. Where
// a midpoint lies so close to a step that the last bit of the segment length decides, both sections
// are right, since a length may be converted to either of two neighbouring reals. Else both are equal.
struct ElementSection {
    int section = 0;
    int other = 0;
};

struct ModelPile {
    int fixed_to = 0;
    int tip_code = 0;
    std::vector<double> x, y, z; // head first
    std::vector<ElementSection> elements;
    // Springs, loads and soil displacements, each with six components a node.
    std::array<std::vector<std::array<double, 6>>, 3> node_values;
    std::vector<double> temperatures; // a value for each node
};

struct PileModel {
    std::string label;
    double steel_modulus = 0.0;
    std::vector<MaterialRecord> materials; // in the units of the analysis
    std::vector<ModelSection> sections;
    std::vector<ModelPile> piles;
};

// Throws std::runtime_error when the deck breaks a rule that this calculation checks.
PileModel build_model(const Deck& deck);

// The cross section of each element of one segment.
std::vector<ElementSection> element_sections(int first_section, int last_section, double length,
                                             int elements);

ExpectedFile expected_pile_file(const PileModel& model);
ExpectedPlot expected_plot(const PileModel& model);

} // namespace korvat::test
