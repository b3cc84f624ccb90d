// What the rows of an outline say, by name: values as they stand in the deck, before any factor.
#pragma once

#include "check/rule.hpp"

#include <array>
#include <map>
#include <optional>
#include <vector>

namespace korvat::check {

// Each keeps its row, for the places of its values. Rows that lack a value are left out.
struct MaterialView {
    const Row* row = nullptr;
    int number = 0;
    double modulus = 0.0;
    double shear_modulus = 0.0;
    double yield_stress = 0.0;
    double weight = 0.0;
    double strain = 0.0;
};

// A plain cross section, or a tube of a composite one.
struct TubeView {
    const Row* row = nullptr;
    std::size_t first = 0; // item of the material number; diameter and wall follow it
    int section = 0;
    int tube = 0;       // of a composite, from 1; 0 for a plain section
    int yield_code = 0; // non-linear code; 0 in revision 4
    int material = 0;
    double diameter = 0.0;
    double wall = 0.0;
    std::array<double, 4> stiffness{}; // EA, EI, GA, GJ; 0: computed
    double fluid = 0.0;

    [[nodiscard]] Place material_place() const { return place_of(row, first); }
    [[nodiscard]] Place diameter_place() const { return place_of(row, first + 1); }
    [[nodiscard]] Place wall_place() const { return place_of(row, first + 2); }
    [[nodiscard]] Place stiffness_place(std::size_t i) const {
        return place_of(row, first + 3 + i);
    }
    [[nodiscard]] Place fluid_place() const { return place_of(row, first + 7); }
};

struct SegmentView {
    const Row* row = nullptr;
    int number = 0;
    int first_section = 0;
    int last_section = 0;
    double length = 0.0;
    int elements = 0;
};

// A record of the pile geometry; left-out piles have none.
struct PileView {
    const Row* row = nullptr;
    int number = 0;
    int source = 0;
    int mirror = 0;
    std::array<double, 3> head{};
    std::array<double, 3> tip{};

    [[nodiscard]] bool is_given() const { return source == 0; }
};

// A record of the pile segment table.
struct SegmentListView {
    const Row* row = nullptr;
    int pile = 0;
    std::vector<int> types; // item 3 + i for types[i]
};

struct FixView {
    const Row* row = nullptr;
    int first_pile = 0;
    int last_pile = 0;
    int tip_code = 0;
    int fixed_to = 0;
};

struct NodeValueView {
    const Row* row = nullptr;
    int first_pile = 0;
    int last_pile = 0;
    int first_node = 0;
    int last_node = 0;
    int code = 0;
    std::array<double, 6> values{};

    [[nodiscard]] Place value_place(std::size_t i) const { return place_of(row, 6 + i); }
    [[nodiscard]] bool is_zero() const { return values == std::array<double, 6>{}; }
};

struct PileLoadView {
    const Row* row = nullptr;
    int pile = 0;
    std::array<double, 6> components{};
};

struct LoadVectorView {
    const Row* count_row = nullptr;
    const Row* factor_row = nullptr; // null where the deck breaks off before it
    double factor = 1.0;
    std::vector<PileLoadView> loads;
};

[[nodiscard]] std::vector<MaterialView> materials(const Subject& subject);
// Plain sections and the tubes of composites.
[[nodiscard]] std::vector<TubeView> tubes(const Subject& subject);
[[nodiscard]] std::vector<SegmentView> segments(const Subject& subject);
[[nodiscard]] std::vector<PileView> piles(const Subject& subject);
[[nodiscard]] std::vector<SegmentListView> segment_lists(const Subject& subject);
[[nodiscard]] std::vector<FixView> fixings(const Subject& subject);
// Without the end record.
[[nodiscard]] std::vector<NodeValueView> node_values(const Subject& subject);
[[nodiscard]] std::vector<LoadVectorView> load_vectors(const Subject& subject);

// The row of a cross section, of either revision; null for a left-out one.
[[nodiscard]] const Row* section_row(const Subject& subject, int section);

// The row of a pile in the geometry; for a left-out one that of the pile before it, between which and
// the next it stands.
[[nodiscard]] const Row* pile_row(const Subject& subject, int pile);

// A pile or a cross section of a group by its number; null where the group has none.
[[nodiscard]] const group::Pile* pile_numbered(const group::Group& group, int number);
[[nodiscard]] const group::Section* section_numbered(const group::Group& group, int number);

// A factor of the deck; 1 where it counts as 1 or is not there.
[[nodiscard]] double force_factor(const Subject& subject);
[[nodiscard]] double length_factor(const Subject& subject);

// Item i, from 1, as the reader takes a whole number: rounded half up. -1, which is no number of
// anything, where there is none or it is too large.
[[nodiscard]] int whole(const Row& row, std::size_t i);

// How a message names a tube: "section 3", "tube 2 of section 3".
[[nodiscard]] std::string name_of(const TubeView& tube);

} // namespace korvat::check
