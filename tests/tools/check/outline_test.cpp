// The records of a deck with their places in the file.
#include "check/outline.hpp"

#include "check/read_outline.hpp"
#include "check/scratch_run.hpp"
#include "check/text.hpp"
#include "tools/check/deck_text.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using check::Outline;
using check::Place;
using check::Row;
using deck::RecordId;

Outline outline_of(const DeckText& deck) {
    const check::ScratchRun run = check::run_in_scratch(deck.text());
    const std::vector<std::string> lines = check::lines_of(deck.text());
    return check::read_outline(run.cmn->report, run.cmn->NLINE, lines, check::Layout(lines));
}

TEST(Outline, EachNumberHasItsPlaceInTheFile) {
    // Comments move the lines of the file, not those of the copy.
    const Outline outline =
        outline_of(good_deck().with_inserted(17, "* steel").with_inserted(3, "*"));
    const Row* const steel = outline.numbered(RecordId::material, 1);
    ASSERT_NE(steel, nullptr);
    EXPECT_EQ(steel->k, 1);
    EXPECT_EQ(steel->place, (Place{.line = 19}));
    ASSERT_EQ(steel->numbers.size(), 6U);
    EXPECT_EQ(steel->numbers[2].value, 8.077E7);
    EXPECT_EQ(steel->numbers[2].place, (Place{19, 20, 7}));
    EXPECT_EQ(check::place_of(steel, 6), (Place{19, 58, 6}));
}

TEST(Outline, AllRecordsInTheOrderOfTheDeck) {
    std::vector<std::pair<RecordId, int>> kinds;
    const Outline outline = outline_of(good_deck_5());
    for (const Row& row : outline.rows()) {
        kinds.emplace_back(row.id, row.k);
    }
    const std::vector<std::pair<RecordId, int>> expected = {{RecordId::force_factor, 0},
                                                            {RecordId::length_factor, 0},
                                                            {RecordId::piles, 0},
                                                            {RecordId::cross_sections, 0},
                                                            {RecordId::materials, 0},
                                                            {RecordId::segment_types, 0},
                                                            {RecordId::load_vectors, 0},
                                                            {RecordId::print_level, 0},
                                                            {RecordId::echo_level, 0},
                                                            {RecordId::material, 1},
                                                            {RecordId::cross_section_5, 1},
                                                            {RecordId::sub_section, 1001},
                                                            {RecordId::sub_section, 1002},
                                                            {RecordId::cross_section_5, 2},
                                                            {RecordId::cross_section_5, 3},
                                                            {RecordId::curve_point, 301},
                                                            {RecordId::curve_point, 302},
                                                            {RecordId::curve_point, 303},
                                                            {RecordId::segment_type, 1},
                                                            {RecordId::segment_type, 2},
                                                            {RecordId::segment_type, 3},
                                                            {RecordId::pile_geometry, 1},
                                                            {RecordId::pile_geometry, 2},
                                                            {RecordId::pile_geometry, 3},
                                                            {RecordId::pile_segments, 1},
                                                            {RecordId::pile_segments, 2},
                                                            {RecordId::tip_and_fix, 1},
                                                            {RecordId::tip_and_fix, 2},
                                                            {RecordId::special_node_values, 1},
                                                            {RecordId::special_node_values, 2},
                                                            {RecordId::loaded_piles, 1},
                                                            {RecordId::load_factor, 1},
                                                            {RecordId::pile_load, 101}};
    EXPECT_EQ(kinds, expected);
}

// A record over several lines, with a comment between them, and one with commas.
TEST(Outline, NumbersOfContinuedRecords) {
    const Outline outline = outline_of(
        good_deck().with(26, "  1  1").with_inserted(27, "*").with_inserted(28, "   1  10.0  5"));
    const Row* const row = outline.numbered(RecordId::segment_type, 1);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->place.line, 26);
    EXPECT_EQ(row->numbers[1].place, (Place{26, 6, 1}));
    EXPECT_EQ(row->numbers[3].place, (Place{28, 7, 4}));

    const Outline commas =
        outline_of(good_deck_5().with_changed(27, "0.800  0.020", "0.800,0.020"));
    const Row* const tube = commas.numbered(RecordId::cross_section_5, 3);
    ASSERT_NE(tube, nullptr);
    EXPECT_EQ(tube->numbers[4].place, (Place{27, 19, 5}));
    EXPECT_EQ(tube->numbers[5].place, (Place{27, 25, 5}));
}

// The same rows with the same places, whether the reader has taken them or they stand behind its error.
TEST(Outline, RowsBehindAnErrorAreAsTheReaderWouldTakeThem) {
    for (const DeckText& deck : {good_deck(), good_deck_5()}) {
        const int steel = deck.text() == good_deck().text() ? 17 : 18;
        const std::vector<Row> whole = outline_of(deck).rows();
        const std::vector<Row> broken =
            outline_of(deck.with_changed(steel, "2.1E8", "0.0E8")).rows();
        ASSERT_EQ(broken.size(), whole.size());
        for (std::size_t i = 10; i < whole.size(); ++i) {
            EXPECT_EQ(broken[i].id, whole[i].id);
            EXPECT_EQ(broken[i].k, whole[i].k);
            EXPECT_EQ(broken[i].place, whole[i].place);
            ASSERT_EQ(broken[i].numbers.size(), whole[i].numbers.size());
            for (std::size_t j = 0; j < whole[i].numbers.size(); ++j) {
                EXPECT_EQ(broken[i].numbers[j].value, whole[i].numbers[j].value);
                EXPECT_EQ(broken[i].numbers[j].place, whole[i].numbers[j].place);
            }
        }
    }
}

TEST(Outline, RunsKeepNoRecordsUnlessTheyAreAsked) {
    const char* const arguments[] = {"korvat"};
    const auto cmn = std::make_unique<Store>(1, arguments);
    EXPECT_FALSE(cmn->report.keeps_records);
}

} // namespace
} // namespace korvat::test
