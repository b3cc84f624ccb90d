#include "model/sections/deck_records.hpp"

#include "model/store/integer.hpp"

#include <algorithm>
#include <array>
#include <cassert>

namespace korvat::deck {
namespace {

constexpr RecordItem force_factor[] = {{"FACF", "force unit factor", "-"}};
constexpr RecordItem length_factor[] = {{"FACL", "length unit factor", "-"}};
constexpr RecordItem piles[] = {{"NUMPIL", "number of piles", "-"}};
constexpr RecordItem cross_sections[] = {{"NUMCRS", "number of cross sections", "-"}};
constexpr RecordItem materials[] = {{"NUMMAT", "number of material types", "-"}};
constexpr RecordItem segment_types[] = {{"NUMSEG", "number of pile segment types", "-"}};
constexpr RecordItem load_vectors[] = {{"NUMLOD", "number of load vectors", "-"}};
constexpr RecordItem print_level[] = {{"JPRINT", "print level", "-"}};
constexpr RecordItem echo_level[] = {{"JECHO", "echo level", "-"}};

constexpr RecordItem material[] = {{"N", "material number", "-"},
                                   {"EMOD", "elastic modulus", "F/L2"},
                                   {"GMOD", "shear modulus", "F/L2"},
                                   {"SIGYLD", "yield stress", "F/L2"},
                                   {"UWWALL", "unit weight of the pile wall", "F/L3"},
                                   {"EPSTMP", "temperature strain", "-"}};

// What a record of a cross section gives of its tube, in either revision.
constexpr RecordItem tube[] = {
    {"MATCRS", "material number", "-"},       {"DIAM", "outer diameter", "L"},
    {"WALL", "wall thickness", "L"},          {"STFAX", "axial stiffness", "F"},
    {"STFBN", "bending stiffness", "F L2"},   {"STFSH", "shear stiffness", "F"},
    {"STFTO", "torsional stiffness", "F L2"}, {"UWFLD", "unit weight of the fluid inside", "F/L3"}};

constexpr RecordItem passed_through[] = {{"ECC", "eccentricity", "as given"},
                                         {"CMISC(1)", "miscellaneous value 1", "as given"},
                                         {"CMISC(2)", "miscellaneous value 2", "as given"},
                                         {"CMISC(3)", "miscellaneous value 3", "as given"}};

constexpr RecordItem cross_section_head[] = {{"N", "cross-section number", "-"}};

constexpr RecordItem cross_section_5_head[] = {{"N", "cross-section number", "-"},
                                               {"ITYCRS", "1 plain, above 1 the sub-sections", "-"},
                                               {"NLCRS", "non-linear code", "-"}};

constexpr RecordItem sub_section_head[] = {{"N", "cross-section number", "-"},
                                           {"J", "sub-section number, outermost first", "-"},
                                           {"ITYCRS", "1", "-"},
                                           {"NLCRS", "0", "-"}};

// The items of several lists, one behind the other.
template <std::size_t... Sizes>
constexpr auto joined(const RecordItem (&... lists)[Sizes]) {
    std::array<RecordItem, (Sizes + ...)> items;
    auto next = items.begin();
    ((next = std::copy(std::begin(lists), std::end(lists), next)), ...);
    return items;
}

constexpr auto cross_section = joined(cross_section_head, tube);
constexpr auto cross_section_5 = joined(cross_section_5_head, tube, passed_through);
constexpr auto sub_section = joined(sub_section_head, tube, passed_through);

constexpr RecordItem curve_point[] = {{"N", "cross-section number", "-"},
                                      {"I", "point number", "-"},
                                      {"FAXEL", "axial force, elastic curve", "as given"},
                                      {"FMOEL", "moment, elastic curve", "as given"},
                                      {"FAXPL", "axial force, plastic curve", "as given"},
                                      {"FMOPL", "moment, plastic curve", "as given"}};

constexpr RecordItem segment_type[] = {{"N", "segment type number", "-"},
                                       {"ICRSEG(1)", "cross section at the segment start", "-"},
                                       {"ICRSEG(2)", "cross section at the segment end", "-"},
                                       {"SEGLEN", "segment length", "L"},
                                       {"NELSEG", "number of elements", "-"}};

constexpr RecordItem pile_geometry[] = {
    {"NP", "pile number", "-"},       {"NGEN", "pile to generate from", "-"},
    {"NSYM", "generation code", "-"}, {"XHEAD(1)", "pile head x", "L"},
    {"XHEAD(2)", "pile head y", "L"}, {"XHEAD(3)", "pile head z", "L"},
    {"XTIP(1)", "pile tip x", "L"},   {"XTIP(2)", "pile tip y", "L"},
    {"XTIP(3)", "pile tip z", "L"}};

constexpr RecordItem pile_segments[] = {{"NP", "pile number", "-"},
                                        {"NSEG", "number of segments", "-"},
                                        {"SEG(I)", "segment types from head to tip", "-"}};

constexpr RecordItem tip_and_fix[] = {{"NP1", "first pile", "-"},
                                      {"NP2", "last pile", "-"},
                                      {"ITIP", "tip code", "-"},
                                      {"IFIX", "pile fixed to", "-"}};

constexpr RecordItem special_node_values[] = {
    {"NP1", "first pile", "-"},       {"NP2", "last pile", "-"},
    {"ND1", "first node", "-"},       {"ND2", "last node", "-"},
    {"CODE", "kind of values", "-"},  {"VAL(1)", "value 1", "by CODE"},
    {"VAL(2)", "value 2", "by CODE"}, {"VAL(3)", "value 3", "by CODE"},
    {"VAL(4)", "value 4", "by CODE"}, {"VAL(5)", "value 5", "by CODE"},
    {"VAL(6)", "value 6", "by CODE"}};

constexpr RecordItem loaded_piles[] = {{"NLP", "number of loaded piles", "-"}};
constexpr RecordItem load_factor[] = {{"F", "load factor", "-"}};

constexpr RecordItem pile_load[] = {
    {"NP", "pile number", "-"},           {"LOAD(1)", "force in x", "F"},
    {"LOAD(2)", "force in y", "F"},       {"LOAD(3)", "force in z", "F"},
    {"LOAD(4)", "moment about x", "F L"}, {"LOAD(5)", "moment about y", "F L"},
    {"LOAD(6)", "moment about z", "F L"}};

constexpr Record single(std::string_view section, int location, std::span<const RecordItem> items) {
    return {section, location, false, static_cast<int>(items.size()), items};
}

constexpr Record repeated(std::string_view section, int location,
                          std::span<const RecordItem> items) {
    return {section, location, true, static_cast<int>(items.size()), items};
}

// The second number tells how many follow it.
constexpr Record counted(std::string_view section, int location,
                         std::span<const RecordItem> items) {
    return {section, location, true, -2, items};
}

constexpr std::string_view control = "CONTROL SECTION";
constexpr std::string_view revision_5 = "CROSS SECTIONS, REVISION 5";
constexpr std::string_view loads = "LOAD VECTOR SECTION";

constexpr std::array all_records = {
    single(control, 215, force_factor),
    single(control, 220, length_factor),
    single(control, 225, piles),
    single(control, 230, cross_sections),
    single(control, 235, materials),
    single(control, 240, segment_types),
    single(control, 245, load_vectors),
    single(control, 250, print_level),
    single(control, 255, echo_level),
    repeated("MATERIAL TYPES SECTION", 300, material),
    repeated("CROSS SECTION TYPE DATA", 400, cross_section),
    repeated(revision_5, 100, cross_section_5),
    repeated(revision_5, 0, sub_section),
    repeated(revision_5, 2000, curve_point),
    repeated("PILE SEGMENT TYPE DATA", 500, segment_type),
    repeated("PILE GEOMETRY SECTION", 600, pile_geometry),
    counted("PILE SEGMENT TABLE", 700, pile_segments),
    repeated("PILE TIP/FIX TABLE", 800, tip_and_fix),
    repeated("SPECIAL PILE NODE VALUES", 900, special_node_values),
    repeated(loads, 1300, loaded_piles),
    repeated(loads, 1400, load_factor),
    repeated(loads, 2000, pile_load),
};

} // namespace

std::span<const Record> records() {
    return all_records;
}

const Record& record(RecordId id) {
    const auto position = static_cast<std::size_t>(id);
    assert(position < all_records.size());
    return all_records[position];
}

int location_of(const Record& record, int k) {
    return record.is_repeated ? saturated_sum(record.location, k) : record.location;
}

} // namespace korvat::deck
