// The numeric records of the input deck, each described once: items, meaning, unit, location code.
#pragma once

#include <span>
#include <string_view>

namespace korvat::deck {

// One number of a record. `unit` is the stored unit in the model's force F and length L; "-" for a
// pure number. What the deck gives is multiplied by the factors FACF and FACL as the unit says.
struct RecordItem {
    std::string_view name;
    std::string_view meaning;
    std::string_view unit;
};

// One kind of record. The k-th record of a section has the location code `location` + k (k counts
// from 1), a single record just `location`. A record of variable length has a negative count, as
// the record reader takes it.
struct Record {
    std::string_view section;
    int location;
    bool is_repeated;
    int count;
    std::span<const RecordItem> items;
};

// The records of both revisions in deck order; the nine control records come first. k, which makes
// the location code, is 1000 N + j for sub-section j of cross section N, 100 N + i for point i of
// cross section N, and 100 v + i for loaded pile i of vector v.
[[nodiscard]] std::span<const Record> records();

// One record of the deck by its position in records().
enum class RecordId {
    force_factor,
    length_factor,
    piles,
    cross_sections,
    materials,
    segment_types,
    load_vectors,
    print_level,
    echo_level,
    material,
    cross_section,
    cross_section_5, // of revision 5, as the next two
    sub_section,
    curve_point,
    segment_type,
    pile_geometry,
    pile_segments,
    tip_and_fix,
    special_node_values,
    loaded_piles,
    load_factor,
    pile_load
};

[[nodiscard]] const Record& record(RecordId id);

// Location code of the k-th record of its kind.
[[nodiscard]] int location_of(const Record& record, int k);

} // namespace korvat::deck
