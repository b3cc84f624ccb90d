// A line of the journal holds all that is known of a case.
#include "study/case_record.hpp"

#include <gtest/gtest.h>
#include <limits>

namespace korvat::test {
namespace {

using study::CaseRecord;
using study::CaseState;
using study::Keep;

CaseRecord full_record() {
    CaseRecord record;
    record.name = "S\xC3\xBC"
                  "d \"1\"\n\\";
    record.position = 4'000'000'000;
    record.parameters = {{"wall", "0.050"}, {"d", "1,5"}};
    record.deck = "d";
    record.program = "p";
    record.version = "7.6.0.81  12-Mar-2025";
    record.state = CaseState::fine;
    record.exit_code = 0;
    record.error = "SR/X : Y";
    record.line = 7;
    record.warnings = 2;
    record.values =
        study::GroupValues{.piles = 3,
                           .nodes = 15,
                           .elements = 12,
                           .length = 0.1,
                           .steel_weight = 1.0 / 3.0,
                           .heads = {0.0, -1.0, std::numeric_limits<double>::infinity()},
                           .tips = {1.0e300, 2.0, -std::numeric_limits<double>::infinity()},
                           .diameter_to_wall = 47.61904761904761,
                           .plastic_axial = std::nullopt,
                           .plastic_moment = 4319.999999999999};
    record.outputs = {{"KORVAT.LIS", 12, ""}, {"PILE.07", 80350, "cad7"}};
    record.kept = Keep::results;
    record.tries = 2;
    record.seconds = 0.012345;
    return record;
}

TEST(CaseRecord, ReadsBackToTheLastBit) {
    const std::string line = study::to_line(full_record());
    EXPECT_EQ(line.find('\n'), std::string::npos);
    EXPECT_EQ(study::record_of_line(line), full_record());
    EXPECT_EQ(study::record_of_line(study::to_line(CaseRecord{})), CaseRecord{});
}

// A name is any bytes; JSON is UTF-8.
TEST(CaseRecord, NamesThatAreNoTextStayWhatTheyAre) {
    CaseRecord record;
    record.name = "a\xFF"
                  "b\xC3";
    EXPECT_NE(study::to_line(record).find("\"case\":\"a\xEF\xBF\xBD"
                                          "b\xEF\xBF\xBD\""),
              std::string::npos);
    EXPECT_EQ(study::record_of_line(study::to_line(record)), record);
}

TEST(CaseRecord, EachStateHasAName) {
    for (const CaseState state : {CaseState::fine, CaseState::refused, CaseState::lost,
                                  CaseState::crashed, CaseState::timeout, CaseState::not_run}) {
        CaseRecord record;
        record.state = state;
        EXPECT_EQ(study::record_of_line(study::to_line(record)), record) << name_of(state);
    }
}

TEST(CaseRecord, WhatIsNotWholeIsNone) {
    const std::string line = study::to_line(full_record());
    for (std::size_t size = 0; size < line.size(); ++size)
        EXPECT_EQ(study::record_of_line(line.substr(0, size)), std::nullopt) << size;
    for (const std::string other :
         {"[]", "{}", "1", R"({"case":"a"})", R"({"format":"korvat case","version":1})"})
        EXPECT_EQ(study::record_of_line(other), std::nullopt) << other;
    std::string later = line;
    later.replace(later.find("\"version\":1"), 11, "\"version\":2");
    EXPECT_EQ(study::record_of_line(later), std::nullopt);
}

} // namespace
} // namespace korvat::test
