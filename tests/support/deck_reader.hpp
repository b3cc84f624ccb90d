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
    // The rest is given by decks of revision 5 only.
    int type = 0;      // 1: a plain tube, above: the number of sub-sections
    int nonlinear = 0; // the number of points; negative: the curves are to be generated
    double eccentricity = 0.0;
    std::array<double, 3> miscellaneous{};
};

// A point of both yield curves; axial forces fall from the first point to the last.
struct YieldPoint {
    double elastic_axial = 0.0;
    double elastic_moment = 0.0;
    double plastic_axial = 0.0;
    double plastic_moment = 0.0;
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

struct PileLoad {
    int pile = 0;
    std::array<double, 6> components{}; // three forces, three moments
};

struct LoadVector {
    std::string label; // 80 characters, blank-padded
    double factor = 0.0;
    std::vector<PileLoad> loads;
};

struct Deck {
    int revision = 0;  // 4 or 5
    std::string label; // 80 characters, blank-padded
    double force_factor = 0.0;
    double length_factor = 0.0;
    int piles = 0;
    int sections = 0;
    int print_level = 0; // 0 to 2, as it is used
    std::vector<MaterialRecord> materials;
    std::vector<SectionRecord> section_records; // omitted numbers are not here
    // By the number of the cross section that they belong to.
    std::map<int, std::vector<SectionRecord>> sub_sections;
    std::map<int, std::vector<YieldPoint>> yield_points;
    std::vector<SegmentRecord> segments;
    std::vector<PileRecord> pile_records; // omitted piles are not here
    std::map<int, std::vector<int>> pile_segments;
    std::vector<TipRecord> tips;
    std::vector<NodeValueRecord> node_values;
    std::vector<LoadVector> load_vectors;
};

// Both throw std::runtime_error, which says where and why, for a deck that cannot be read.
int deck_revision(std::string_view content);
Deck parse_deck(std::string_view content);

} // namespace korvat::test
