// Independent calculation of what a deck gives: cross sections, nodes, elements and the files.
#pragma once

#include "deck_reader.hpp"
#include "expected_file.hpp"
#include "section_model.hpp"

#include <array>
#include <vector>

namespace korvat::test {

// Cross-section numbers step along a segment and are rounded at the midpoints of the elements. Where
// a midpoint lies on a step, the last bits of the segment length decide, and both sections are right,
// since the conversion of a length may change these. Else both are equal.
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
    int revision = 0;
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

// Generated yield curves are expected as the points that the cross section holds.
ExpectedFile expected_pile_file(const PileModel& model);
ExpectedPlot expected_plot(const PileModel& model);
ExpectedFile expected_load_file(const Deck& deck);

} // namespace korvat::test
