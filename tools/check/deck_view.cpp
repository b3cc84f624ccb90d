#include "check/deck_view.hpp"

#include "check/text.hpp"

#include <cmath>
#include <limits>
#include <utility>

namespace korvat::check {
namespace {

constexpr double least_factor = 1.0e-10; // what is not above it counts as 1

bool has(const Row& row, std::size_t count) {
    return row.numbers.size() >= count;
}

// Item i of a row, from 1.
double value(const Row& row, std::size_t i) {
    return row.numbers[i - 1].value;
}

template <std::size_t N>
std::array<double, N> values(const Row& row, std::size_t first) {
    std::array<double, N> found{};
    for (std::size_t i = 0; i < N; ++i)
        found[i] = value(row, first + i);
    return found;
}

// The view of each row of a kind that has `count` values.
template <typename View>
std::vector<View> views(const Subject& subject, deck::RecordId id, std::size_t count,
                        View (*view_of)(const Row&)) {
    std::vector<View> found;
    for (const Row* const row : subject.outline.rows(id)) {
        if (has(*row, count)) found.push_back(view_of(*row));
    }
    return found;
}

MaterialView material_of(const Row& row) {
    return {.row = &row,
            .number = whole(row, 1),
            .modulus = value(row, 2),
            .shear_modulus = value(row, 3),
            .yield_stress = value(row, 4),
            .weight = value(row, 5),
            .strain = value(row, 6)};
}

// The tube whose material number is item `first`.
TubeView tube_of(const Row& row, std::size_t first) {
    return {.row = &row,
            .first = first,
            .section = whole(row, 1),
            .material = whole(row, first),
            .diameter = value(row, first + 1),
            .wall = value(row, first + 2),
            .stiffness = values<4>(row, first + 3),
            .fluid = value(row, first + 7)};
}

SegmentView segment_of(const Row& row) {
    return {.row = &row,
            .number = whole(row, 1),
            .first_section = whole(row, 2),
            .last_section = whole(row, 3),
            .length = value(row, 4),
            .elements = whole(row, 5)};
}

PileView pile_of(const Row& row) {
    return {.row = &row,
            .number = whole(row, 1),
            .source = whole(row, 2),
            .mirror = whole(row, 3),
            .head = values<3>(row, 4),
            .tip = values<3>(row, 7)};
}

SegmentListView segment_list_of(const Row& row) {
    SegmentListView list{.row = &row, .pile = whole(row, 1), .types = {}};
    for (std::size_t i = 3; i <= row.numbers.size(); ++i)
        list.types.push_back(whole(row, i));
    return list;
}

FixView fixing_of(const Row& row) {
    return {.row = &row,
            .first_pile = whole(row, 1),
            .last_pile = whole(row, 2),
            .tip_code = whole(row, 3),
            .fixed_to = whole(row, 4)};
}

NodeValueView node_value_of(const Row& row) {
    return {.row = &row,
            .first_pile = whole(row, 1),
            .last_pile = whole(row, 2),
            .first_node = whole(row, 3),
            .last_node = whole(row, 4),
            .code = whole(row, 5),
            .values = values<6>(row, 6)};
}

// The element of that number, from 1; null where there is none.
template <typename Value>
const Value* element_at(const std::vector<Value>& values, int number) {
    const bool is_there = number >= 1 && static_cast<std::size_t>(number) <= values.size();
    return is_there ? &values[static_cast<std::size_t>(number) - 1] : nullptr;
}

double factor_of(const Subject& subject, deck::RecordId id) {
    const auto rows = subject.outline.rows(id);
    if (rows.empty() || !has(*rows.front(), 1)) return 1.0;
    const double factor = value(*rows.front(), 1);
    return factor > least_factor ? factor : 1.0;
}

} // namespace

int whole(const Row& row, std::size_t i) {
    if (!has(row, i)) return -1;
    const double rounded = std::floor(value(row, i) + 0.5);
    const bool fits = std::abs(rounded) < static_cast<double>(std::numeric_limits<int>::max());
    return fits ? static_cast<int>(rounded) : -1;
}

std::vector<MaterialView> materials(const Subject& subject) {
    return views(subject, deck::RecordId::material, 6, material_of);
}

std::vector<TubeView> tubes(const Subject& subject) {
    std::vector<TubeView> found;
    for (const Row& row : subject.outline.rows()) {
        if (row.id == deck::RecordId::cross_section && has(row, 9)) {
            found.push_back(tube_of(row, 2));
        } else if (row.id == deck::RecordId::cross_section_5 && has(row, 11)) {
            if (whole(row, 2) != 1) continue; // the first line of a composite has no tube
            found.push_back(tube_of(row, 4));
            found.back().yield_code = whole(row, 3);
        } else if (row.id == deck::RecordId::sub_section && has(row, 12)) {
            found.push_back(tube_of(row, 5));
            found.back().tube = whole(row, 2);
        }
    }
    return found;
}

std::vector<SegmentView> segments(const Subject& subject) {
    return views(subject, deck::RecordId::segment_type, 5, segment_of);
}

std::vector<PileView> piles(const Subject& subject) {
    return views(subject, deck::RecordId::pile_geometry, 9, pile_of);
}

std::vector<SegmentListView> segment_lists(const Subject& subject) {
    return views(subject, deck::RecordId::pile_segments, 2, segment_list_of);
}

std::vector<FixView> fixings(const Subject& subject) {
    return views(subject, deck::RecordId::tip_and_fix, 4, fixing_of);
}

std::vector<NodeValueView> node_values(const Subject& subject) {
    auto found = views(subject, deck::RecordId::special_node_values, 11, node_value_of);
    std::erase_if(found, [](const NodeValueView& values) { return values.first_pile < 1; });
    return found;
}

std::vector<LoadVectorView> load_vectors(const Subject& subject) {
    std::vector<LoadVectorView> vectors;
    for (const Row& row : subject.outline.rows()) {
        if (row.id == deck::RecordId::loaded_piles) {
            vectors.push_back({.count_row = &row, .loads = {}});
        } else if (vectors.empty()) {
            continue;
        } else if (row.id == deck::RecordId::load_factor && has(row, 1)) {
            vectors.back().factor_row = &row;
            vectors.back().factor = value(row, 1);
        } else if (row.id == deck::RecordId::pile_load && has(row, 7)) {
            vectors.back().loads.push_back(
                {.row = &row, .pile = whole(row, 1), .components = values<6>(row, 2)});
        }
    }
    return vectors;
}

const Row* section_row(const Subject& subject, int section) {
    const Row* const row = subject.outline.numbered(deck::RecordId::cross_section, section);
    return row != nullptr ? row
                          : subject.outline.numbered(deck::RecordId::cross_section_5, section);
}

const Row* pile_row(const Subject& subject, int pile) {
    const Row* last = nullptr;
    for (const Row* const row : subject.outline.rows(deck::RecordId::pile_geometry)) {
        if (has(*row, 1) && whole(*row, 1) <= pile) last = row;
    }
    return last;
}

const group::Pile* pile_numbered(const group::Group& group, int number) {
    return element_at(group.piles, number);
}

const group::Section* section_numbered(const group::Group& group, int number) {
    return element_at(group.sections, number);
}

double force_factor(const Subject& subject) {
    return factor_of(subject, deck::RecordId::force_factor);
}

double length_factor(const Subject& subject) {
    return factor_of(subject, deck::RecordId::length_factor);
}

std::string name_of(const TubeView& tube) {
    const std::string section = "section " + text_of(tube.section);
    return tube.tube == 0 ? section : "tube " + text_of(tube.tube) + " of " + section;
}

} // namespace korvat::check
