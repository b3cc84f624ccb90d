// The content of an analysis file, taken from its records without knowledge of the deck.
#pragma once

#include "deck_reader.hpp"
#include "record_file.hpp"

#include <array>
#include <string>
#include <vector>

namespace korvat::test {

struct FilePile {
    int fixed_to = 0;
    int tip_code = 0;
    std::vector<double> x, y, z;                                 // head first
    std::vector<double> diameters, lengths, temperature_strains; // of the elements
    std::vector<int> sections;                                   // of the elements
};

struct PileFile {
    std::string label;
    bool has_curves = false; // whether the file is of revision 5
    std::vector<std::array<double, 20>> sections;
    std::vector<int> section_types, point_counts; // 200 of each
    std::vector<std::array<YieldPoint, 10>> yield_points;
    std::vector<FilePile> piles;
};

// Throws std::runtime_error when the records do not make up such a file.
PileFile parse_pile_file(const std::vector<Record>& records);

// Sums of X, Y and Z in the order of the piles, from the pile with one number to that with another,
// which counts. A pile without elements counts as a head, not as a tip.
struct CoordinateSums {
    std::array<double, 3> heads{};
    std::array<double, 3> tips{};
};
CoordinateSums coordinate_sums(const PileFile& file, int first_pile, int last_pile);

} // namespace korvat::test
