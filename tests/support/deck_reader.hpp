// Independent reader of an input deck: the records as they are given, neither scaled nor completed.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

struct MaterialRecord {
    double young = 0.0;
    double shear = 0.0;
    double yield = 0.0;
    double wall_weight = 0.0;
    double temperature_strain = 0.0;
};

// The items that the generation of omitted cross sections interpolates, in the order of the deck.
struct SectionRecord {
    int number = 0;
    int material = 0;
    double diameter = 0.0;
    double wall = 0.0;
    double axial = 0.0;
    double bending = 0.0;
    double shear = 0.0;
    double torsion = 0.0;
    double fluid_weight = 0.0;
};

struct SegmentRecord {
    int first_section = 0;
    int last_section = 0;
    double length = 0.0;
    int elements = 0;
};

struct PileRecord {
    int number = 0;
    int source = 0; // 0: the pile is given, else the pile from which it is generated
    int mirror = 0;
    std::array<double, 3> head{};
    std::array<double, 3> tip{};
};

struct TipRecord {
    int first_pile = 0;
    int last_pile = 0;
    int tip_code = 0;
    int fixed_to = 0;
};

struct NodeValueRecord {
    int first_pile = 0;
    int last_pile = 0;
    int first_node = 0;
    int last_node = 0;
    int code = 0;
    std::array<double, 6> values{};
};

struct Deck {
    std::string label; // 80 characters, blank-padded
    double force_factor = 0.0;
    double length_factor = 0.0;
    int piles = 0;
    int sections = 0;
    std::vector<MaterialRecord> materials;
    std::vector<SectionRecord> section_records; // omitted numbers are not here
    std::vector<SegmentRecord> segments;
    std::vector<PileRecord> pile_records; // omitted piles are not here
    std::map<int, std::vector<int>> pile_segments;
    std::vector<TipRecord> tips;
    std::vector<NodeValueRecord> node_values;
};

// Both throw std::runtime_error, which says where and why, for a deck that cannot be read.
int deck_revision(std::string_view content);
Deck parse_deck(std::string_view content); // revision 4 only

} // namespace korvat::test
