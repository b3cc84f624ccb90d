// Tests of what the section readers share: line counts, location codes, blank lines, records.
#include "section_fixture.hpp"

namespace korvat::test {
namespace {

using deck::RecordId;

constexpr std::string_view linerd_303 =
    "\n **** SR/READPI : ERROR FROM SR/LINERD AT LOCATION =   303\n";

class SharedReader : public SectionTest {
protected:
    void expect_log_ends_with(std::string_view text) {
        const std::string all = log();
        ASSERT_GE(all.size(), text.size());
        EXPECT_EQ(all.substr(all.size() - text.size()), text);
    }
};

TEST_F(SharedReader, RecordSetsTheLocationAndCountsItsLine) {
    give_copy("1 2 3 4 5 6\n7\n");
    EXPECT_EQ(in.read_record(RecordId::material, 3), Cause::none);
    EXPECT_EQ(in.LOC, 303);
    EXPECT_EQ(cmn().NLINE, 1);
    EXPECT_EQ(in.NPHYS, 1);
    EXPECT_EQ(in.VAR(6), 6.0);
    EXPECT_EQ(in.read_record(RecordId::piles), Cause::none);
    EXPECT_EQ(in.LOC, 225);
    EXPECT_EQ(cmn().NLINE, 2);
}

TEST_F(SharedReader, RecordCountsItsContinuationLines) {
    cmn().NLINE = 10;
    give_copy("1 2\n3 4\n5 6\n7\n");
    EXPECT_EQ(in.read_record(RecordId::material, 1), Cause::none);
    EXPECT_EQ(cmn().NLINE, 13);
    EXPECT_EQ(next_line(12), "7");
}

TEST_F(SharedReader, FaultCountsTheLinesReadToo) {
    give_copy("1 2\n3 4\n5 x\n");
    EXPECT_EQ(in.read_record(RecordId::material, 3), Cause::record_fault);
    EXPECT_EQ(cmn().NLINE, 3);
    expect_log_ends_with(linerd_303);
}

TEST_F(SharedReader, EndOfFileOnTheFirstLineIsCounted) {
    give_copy("");
    EXPECT_EQ(in.read_record(RecordId::material, 3), Cause::record_fault);
    EXPECT_EQ(cmn().NLINE, 1);
    expect_log_ends_with(linerd_303);
}

TEST_F(SharedReader, MissingContinuationLineIsNotCounted) {
    give_copy("1 2\n");
    EXPECT_EQ(in.read_record(RecordId::material, 3), Cause::record_fault);
    EXPECT_EQ(cmn().NLINE, 1);
    give_copy("1 2\n3\n");
    EXPECT_EQ(in.read_record(RecordId::material, 3), Cause::record_fault);
    EXPECT_EQ(cmn().NLINE, 3); // one more line and one more continuation line
}

TEST_F(SharedReader, ValuesStayBetweenRecords) {
    give_copy("1 2 3 4 5 6\n7 x\n");
    EXPECT_EQ(in.read_record(RecordId::material, 1), Cause::none);
    EXPECT_EQ(in.read_record(RecordId::tip_and_fix, 1), Cause::record_fault);
    EXPECT_EQ(in.VAR(1), 7.0);
    EXPECT_EQ(in.VAR(2), 2.0);
    EXPECT_EQ(in.VAR(6), 6.0);
}

TEST_F(SharedReader, IntegersAreRoundedHalfUpAndStayInRange) {
    give_copy("1.5 -1.5 1e300 -1e300\n");
    EXPECT_EQ(in.read_record(RecordId::tip_and_fix, 1), Cause::none);
    EXPECT_EQ(in.integer(1), 2);
    EXPECT_EQ(in.integer(2), -1);
    EXPECT_EQ(in.integer(3), 2147483647);
    EXPECT_EQ(in.integer(4), -2147483647 - 1);
}

TEST_F(SharedReader, HeadingsAreCountedAndMayHoldAnything) {
    give_copy("x\n\n1 2\n3\n");
    EXPECT_EQ(in.skip_headings(3), Cause::none);
    EXPECT_EQ(cmn().NLINE, 3);
    EXPECT_EQ(next_line(12), "3");
}

TEST_F(SharedReader, HeadingIsTheLineAboveOfTheNextRecord) {
    give_copy("the heading\n");
    EXPECT_EQ(in.skip_heading(), Cause::none);
    EXPECT_EQ(fortran::trimmed(cmn().LINE.view()), "the heading");
}

TEST_F(SharedReader, HeadingReplacesTheWholeLineBuffer) {
    cmn().LINE.assign(std::string(640, 'x'));
    give_copy(std::string(120, 'h') + "more\n");
    EXPECT_EQ(in.skip_heading(), Cause::none);
    EXPECT_EQ(fortran::trimmed(cmn().LINE.view()), std::string(120, 'h'));
}

TEST_F(SharedReader, EndOfFileOnAHeading) {
    give_copy("one\n");
    in.LOC = 300;
    EXPECT_EQ(in.skip_headings(2), Cause::end_of_file);
    EXPECT_EQ(cmn().NLINE, 2);
    EXPECT_EQ(log(), "\n **** SR/READPI : END-OF-FILE AT LOCATION =   300\n");
}

TEST_F(SharedReader, ReadErrorOnAHeadingOnPosix) {
    give_directory(12, "folder");
    in.LOC = 300;
    EXPECT_EQ(in.skip_heading(), Cause::format_error);
    EXPECT_EQ(log(), "\n **** SR/READPI : FORMAT ERROR AT LOCATION =  300\n");
}

TEST_F(SharedReader, BlankLinePasses) {
    give_copy("\n" + std::string(300, ' ') + "\n" + padded("", 120) + "x\n");
    EXPECT_EQ(in.require_blank_line("CONTROL SECTION"), Cause::none);
    EXPECT_EQ(in.require_blank_line("CONTROL SECTION"), Cause::none);
    EXPECT_EQ(in.require_blank_line("CONTROL SECTION"), Cause::none); // column 121 is not read
    EXPECT_EQ(cmn().NLINE, 3);
    EXPECT_EQ(log(), "");
}

TEST_F(SharedReader, LineThatIsNotBlankIsShown) {
    give_copy(padded("not", 79) + "bc\n");
    EXPECT_EQ(in.require_blank_line("CONTROL SECTION"), Cause::bad_value);
    EXPECT_EQ(cmn().NLINE, 1);
    EXPECT_EQ(log(), "\n **** SR/READPI : NO BLANK LINE AT START OF \"CONTROL SECTION\"\n " +
                         padded("not", 79) + "b\n");
}

TEST_F(SharedReader, CharacterInTheLastColumnIsNotBlank) {
    give_copy(padded("", 119) + "x\n\t\n");
    EXPECT_EQ(in.require_blank_line("CONTROL SECTION"), Cause::bad_value);
    EXPECT_EQ(in.require_blank_line("CONTROL SECTION"), Cause::bad_value);
}

TEST_F(SharedReader, EndOfFileInsteadOfABlankLine) {
    give_copy("");
    in.LOC = 400;
    EXPECT_EQ(in.require_blank_line("CROSS SECTION TYPE DATA"), Cause::end_of_file);
    EXPECT_EQ(cmn().NLINE, 1);
    EXPECT_EQ(log(), "\n **** SR/READPI : END-OF-FILE AT LOCATION =   400\n");
}

// Each section's code holds for its blank line and its heading lines.
class SectionLocation : public SectionTest {
protected:
    // The location shown when the input ends behind `lines`.
    std::string location_at_end(Section section, const std::vector<std::string>& lines) {
        const std::size_t start = log().size();
        cmn().NUMPIL = 1;
        EXPECT_EQ(read_section(section, lines), Cause::end_of_file);
        const std::string message = log().substr(start);
        const std::string text = "\n **** SR/READPI : END-OF-FILE AT LOCATION = ";
        EXPECT_EQ(message.substr(0, text.size()), text);
        return message.substr(text.size());
    }
};

TEST_F(SectionLocation, OfTheBlankLineAndTheHeadings) {
    in.LOC = 0;
    EXPECT_EQ(location_at_end(read_control_section, {}), "    0\n");
    EXPECT_EQ(location_at_end(read_control_section, {""}), "    0\n");
    const std::vector<std::pair<Section, std::string>> sections = {
        {read_material_types, "  300\n"},
        {read_cross_sections, "  400\n"},
        {read_segment_types, "  500\n"},
        {read_pile_geometry, "  600\n"},
        {read_special_node_values, "  900\n"}};
    for (const auto& [section, location] : sections) {
        in.LOC = 123; // of the record before
        EXPECT_EQ(location_at_end(section, {}), location);
        EXPECT_EQ(location_at_end(section, {""}), location);
        EXPECT_EQ(location_at_end(section, {"", "heading"}), location);
    }
}

TEST_F(SectionLocation, OfTheTablesWithoutABlankLine) {
    in.LOC = 602;
    EXPECT_EQ(location_at_end(read_pile_segment_table, {}), "  700\n");
    in.LOC = 704; // the heading of the tip/fix table keeps the last one
    EXPECT_EQ(location_at_end(read_tip_fix_table, {}), "  704\n");
}

TEST_F(SectionLocation, OfTheBlankLineOfTheLoadVectors) {
    cmn().NUMLOD = 1;
    EXPECT_EQ(
        location_at_end(read_special_node_values,
                        under_headings(2, {"1 1 1 1 2 0 0 0 0 0 0", "0 0 0 0 0 0 0 0 0 0 0"})),
        "  902\n");
}

} // namespace
} // namespace korvat::test
