#include "report/record_names.hpp"

#include <array>

namespace korvat::report {
namespace {

// In the order of RecordId.
constexpr std::array names{
    RecordName{"force_factor", "Force unit factor"},
    RecordName{"length_factor", "Length unit factor"},
    RecordName{"piles", "Number of piles"},
    RecordName{"cross_sections", "Number of cross sections"},
    RecordName{"materials", "Number of material types"},
    RecordName{"segment_types", "Number of pile segment types"},
    RecordName{"load_vectors", "Number of load vectors"},
    RecordName{"print_level", "Print level"},
    RecordName{"echo_level", "Echo level"},
    RecordName{"material", "Material type"},
    RecordName{"cross_section", "Cross section"},
    RecordName{"cross_section_5", "Cross section of revision 5"},
    RecordName{"sub_section", "Sub-section of a composite"},
    RecordName{"curve_point", "Point of the yield curves"},
    RecordName{"segment_type", "Pile segment type"},
    RecordName{"pile_geometry", "Pile geometry"},
    RecordName{"pile_segments", "Segments of a pile"},
    RecordName{"tip_and_fix", "Tip code and fixing"},
    RecordName{"special_node_values", "Special pile node values"},
    RecordName{"loaded_piles", "Number of loaded piles"},
    RecordName{"load_factor", "Load factor"},
    RecordName{"pile_load", "Load on a pile"},
};
static_assert(names.size() == static_cast<std::size_t>(deck::RecordId::pile_load) + 1);

} // namespace

const RecordName& record_name(deck::RecordId id) {
    return names.at(static_cast<std::size_t>(id));
}

} // namespace korvat::report
