// Tests of the description of the deck's records.
#include "model/sections/deck_records.hpp"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

using deck::RecordId;

struct Expected {
    RecordId id;
    std::string section;
    int count;
    int first_location;  // of the first record of its kind
    int second_location; // of the second
    std::vector<std::string> items;
};

const std::vector<Expected>& expected_records() {
    static const std::string control = "CONTROL SECTION";
    static const std::string revision_5 = "CROSS SECTIONS, REVISION 5";
    static const std::string loads = "LOAD VECTOR SECTION";
    static const std::vector<Expected> records = {
        {RecordId::force_factor, control, 1, 215, 215, {"FACF"}},
        {RecordId::length_factor, control, 1, 220, 220, {"FACL"}},
        {RecordId::piles, control, 1, 225, 225, {"NUMPIL"}},
        {RecordId::cross_sections, control, 1, 230, 230, {"NUMCRS"}},
        {RecordId::materials, control, 1, 235, 235, {"NUMMAT"}},
        {RecordId::segment_types, control, 1, 240, 240, {"NUMSEG"}},
        {RecordId::load_vectors, control, 1, 245, 245, {"NUMLOD"}},
        {RecordId::print_level, control, 1, 250, 250, {"JPRINT"}},
        {RecordId::echo_level, control, 1, 255, 255, {"JECHO"}},
        {RecordId::material,
         "MATERIAL TYPES SECTION",
         6,
         301,
         302,
         {"N", "EMOD", "GMOD", "SIGYLD", "UWWALL", "EPSTMP"}},
        {RecordId::cross_section,
         "CROSS SECTION TYPE DATA",
         9,
         401,
         402,
         {"N", "MATCRS", "DIAM", "WALL", "STFAX", "STFBN", "STFSH", "STFTO", "UWFLD"}},
        {RecordId::cross_section_5,
         revision_5,
         15,
         101,
         102,
         {"N", "ITYCRS", "NLCRS", "MATCRS", "DIAM", "WALL", "STFAX", "STFBN", "STFSH", "STFTO",
          "UWFLD", "ECC", "CMISC(1)", "CMISC(2)", "CMISC(3)"}},
        {RecordId::sub_section,
         revision_5,
         16,
         1,
         2,
         {"N", "J", "ITYCRS", "NLCRS", "MATCRS", "DIAM", "WALL", "STFAX", "STFBN", "STFSH", "STFTO",
          "UWFLD", "ECC", "CMISC(1)", "CMISC(2)", "CMISC(3)"}},
        {RecordId::curve_point,
         revision_5,
         6,
         2001,
         2002,
         {"N", "I", "FAXEL", "FMOEL", "FAXPL", "FMOPL"}},
        {RecordId::segment_type,
         "PILE SEGMENT TYPE DATA",
         5,
         501,
         502,
         {"N", "ICRSEG(1)", "ICRSEG(2)", "SEGLEN", "NELSEG"}},
        {RecordId::pile_geometry,
         "PILE GEOMETRY SECTION",
         9,
         601,
         602,
         {"NP", "NGEN", "NSYM", "XHEAD(1)", "XHEAD(2)", "XHEAD(3)", "XTIP(1)", "XTIP(2)",
          "XTIP(3)"}},
        // The second number counts the segments that follow it.
        {RecordId::pile_segments, "PILE SEGMENT TABLE", -2, 701, 702, {"NP", "NSEG", "SEG(I)"}},
        {RecordId::tip_and_fix, "PILE TIP/FIX TABLE", 4, 801, 802, {"NP1", "NP2", "ITIP", "IFIX"}},
        {RecordId::special_node_values,
         "SPECIAL PILE NODE VALUES",
         11,
         901,
         902,
         {"NP1", "NP2", "ND1", "ND2", "CODE", "VAL(1)", "VAL(2)", "VAL(3)", "VAL(4)", "VAL(5)",
          "VAL(6)"}},
        {RecordId::loaded_piles, loads, 1, 1301, 1302, {"NLP"}},
        {RecordId::load_factor, loads, 1, 1401, 1402, {"F"}},
        {RecordId::pile_load,
         loads,
         7,
         2001,
         2002,
         {"NP", "LOAD(1)", "LOAD(2)", "LOAD(3)", "LOAD(4)", "LOAD(5)", "LOAD(6)"}}};
    return records;
}

TEST(DeckRecords, EveryRecordInDeckOrder) {
    ASSERT_EQ(deck::records().size(), expected_records().size());
    for (std::size_t i = 0; i < expected_records().size(); ++i) {
        const Expected& expected = expected_records()[i];
        const deck::Record& record = deck::record(expected.id);
        EXPECT_EQ(&record, &deck::records()[i]);
        EXPECT_EQ(record.section, expected.section);
        EXPECT_EQ(record.count, expected.count);
        EXPECT_EQ(deck::location_of(record, 1), expected.first_location);
        EXPECT_EQ(deck::location_of(record, 2), expected.second_location);
        std::vector<std::string> names;
        for (const deck::RecordItem& item : record.items)
            names.emplace_back(item.name);
        EXPECT_EQ(names, expected.items);
    }
}

TEST(DeckRecords, LocationsOfRecordsInTwoLevels) {
    const auto location = [](RecordId id, int k) { return deck::location_of(deck::record(id), k); };
    EXPECT_EQ(location(RecordId::sub_section, 1000 * 7 + 3), 7003); // sub-section 3 of section 7
    EXPECT_EQ(location(RecordId::curve_point, 100 * 4 + 10), 2410); // (4 + 20) * 100 + 10
    EXPECT_EQ(location(RecordId::pile_load, 100 * 2 + 13), 2213);   // (2 + 20) * 100 + 13
}

TEST(DeckRecords, LocationsSaturate) {
    EXPECT_EQ(deck::location_of(deck::record(RecordId::loaded_piles), 2147483647), 2147483647);
}

TEST(DeckRecords, EveryItemHasAMeaningAndAUnit) {
    for (const deck::Record& record : deck::records()) {
        for (const deck::RecordItem& item : record.items) {
            EXPECT_FALSE(item.meaning.empty()) << item.name;
            EXPECT_FALSE(item.unit.empty()) << item.name;
        }
    }
}

TEST(DeckRecords, UnitsSayWhatTheReaderMultipliesBy) {
    const auto unit = [](RecordId id, std::size_t item) {
        return deck::record(id).items[item].unit;
    };
    for (const std::size_t modulus_or_stress : {1U, 2U, 3U})
        EXPECT_EQ(unit(RecordId::material, modulus_or_stress), "F/L2");
    EXPECT_EQ(unit(RecordId::material, 4), "F/L3");
    EXPECT_EQ(unit(RecordId::material, 5), "-");
    for (const std::size_t length : {2U, 3U})
        EXPECT_EQ(unit(RecordId::cross_section, length), "L");
    for (const std::size_t axial_or_shear : {4U, 6U})
        EXPECT_EQ(unit(RecordId::cross_section, axial_or_shear), "F");
    for (const std::size_t bending_or_torsion : {5U, 7U})
        EXPECT_EQ(unit(RecordId::cross_section, bending_or_torsion), "F L2");
    EXPECT_EQ(unit(RecordId::cross_section, 8), "F/L3");
    EXPECT_EQ(unit(RecordId::segment_type, 3), "L");
    for (std::size_t coordinate = 3; coordinate < 9; ++coordinate)
        EXPECT_EQ(unit(RecordId::pile_geometry, coordinate), "L");
}

} // namespace
} // namespace korvat::test
