// Tests of the pile segment types and of the table that lists the segments of each pile.
#include "section_fixture.hpp"

namespace korvat::test {
namespace {

class SegmentTypes : public SectionTest {
protected:
    SegmentTypes() {
        cmn().NUMCRS = 9;
        in.NUMSEG = 1;
    }

    Cause read_types(const std::vector<std::string>& records) {
        return read_section(read_segment_types, under_headings(2, records));
    }

    std::string log_of(const std::vector<std::string>& records) {
        const std::size_t start = log().size();
        EXPECT_EQ(read_types(records), Cause::bad_value) << records.back();
        return log().substr(start);
    }
};

std::string segment_error(const std::string& number) {
    return "\n **** SR/READPI : SEGMENT ERROR  NUM,IERR=    1    " + number + "\n";
}

TEST_F(SegmentTypes, StoresEveryType) {
    in.NUMSEG = 2;
    set_factors(7.0, 0.3048);
    EXPECT_EQ(read_types({"1 2 5 11 3", "2 9 9 10 450"}), Cause::none);
    EXPECT_EQ(cmn().ICRSEG(1, 1), 2);
    EXPECT_EQ(cmn().ICRSEG(2, 1), 5);
    EXPECT_EQ(cmn().SEGLEN(1), 11 * 0.3048);
    EXPECT_EQ(cmn().NELSEG(1), 3);
    EXPECT_EQ(cmn().ICRSEG(1, 2), 9);
    EXPECT_EQ(cmn().NELSEG(2), 450);
    EXPECT_EQ(cmn().NLINE, 5);
    EXPECT_EQ(in.LOC, 502);
    EXPECT_EQ(log(), "");
}

TEST_F(SegmentTypes, NumbersMustFollowOneAnother) {
    const std::string text = "\n **** SR/READPI : SEGMENT SEQUENCE ERROR    1";
    EXPECT_EQ(log_of({"2 1 1 1 1"}), text + "    2\n");
    EXPECT_EQ(log_of({"1e300 1 1 1 1"}), text + "2147483647\n");
    EXPECT_EQ(log_of({"-1e300 1 1 1 1"}), text + "-2147483648\n");
    EXPECT_EQ(cmn().NELSEG(1), 0);
}

TEST_F(SegmentTypes, ErrorNumbers) {
    EXPECT_EQ(log_of({"1 0 1 1 1"}), segment_error("1"));
    EXPECT_EQ(log_of({"1 1 0 1 1"}), segment_error("2"));
    EXPECT_EQ(log_of({"1 10 1 1 1"}), segment_error("3"));
    EXPECT_EQ(log_of({"1 1 10 1 1"}), segment_error("4"));
    EXPECT_EQ(log_of({"1 10 0 1 1"}), segment_error("2")); // in the order of the ends
    EXPECT_EQ(log_of({"1 0 10 0 1"}), segment_error("5"));
    EXPECT_EQ(log_of({"1 1 1 -1 1"}), segment_error("5"));
    EXPECT_EQ(log_of({"1 1 1 0 0"}), segment_error("6"));
    EXPECT_EQ(log_of({"1 1 1 0 451"}), segment_error("7"));
}

TEST_F(SegmentTypes, LengthEqualToTheToleranceIsAccepted) {
    cmn().TOL = 0.5;
    EXPECT_EQ(read_types({"1 1 1 0.5 1"}), Cause::none);
    EXPECT_EQ(log_of({"1 1 1 0.25 1"}), segment_error("5"));
}

TEST_F(SegmentTypes, HugeIntegers) {
    EXPECT_EQ(log_of({"1 1e300 1 1 1"}), segment_error("3"));
    EXPECT_EQ(log_of({"1 -1e300 1 1 1"}), segment_error("1"));
    EXPECT_EQ(log_of({"1 1 1e300 1 1"}), segment_error("4"));
    EXPECT_EQ(log_of({"1 1 -1e300 1 1"}), segment_error("2"));
    EXPECT_EQ(log_of({"1 1 1 1 1e300"}), segment_error("7"));
    EXPECT_EQ(log_of({"1 1 1 1 -1e300"}), segment_error("6"));
}

// One heading line, then a record for each pile that is given.
class PileSegmentTable : public SectionTest {
protected:
    PileSegmentTable() {
        cmn().NUMPIL = 1;
        in.NUMSEG = 9;
    }

    Cause read_table(std::vector<std::string> records) {
        records.insert(records.begin(), "heading");
        return read_section(read_pile_segment_table, records);
    }

    std::string log_of(const std::vector<std::string>& records) {
        const std::size_t start = log().size();
        EXPECT_EQ(read_table(records), Cause::bad_value) << records.back();
        return log().substr(start);
    }
};

TEST_F(PileSegmentTable, ListsTheSegmentsOfEachPile) {
    cmn().NUMPIL = 2;
    EXPECT_EQ(read_table({"1 3 9 1 5", "2 1 4"}), Cause::none);
    EXPECT_EQ(cmn().NSEGP(1), 3);
    EXPECT_EQ(cmn().ISEGP(1, 1), 9);
    EXPECT_EQ(cmn().ISEGP(2, 1), 1);
    EXPECT_EQ(cmn().ISEGP(3, 1), 5);
    EXPECT_EQ(cmn().ISEGP(4, 1), 0);
    EXPECT_EQ(cmn().NSEGP(2), 1);
    EXPECT_EQ(cmn().ISEGP(1, 2), 4);
    EXPECT_EQ(cmn().NLINE, 3);
    EXPECT_EQ(in.LOC, 702);
    EXPECT_EQ(log(), "");
}

TEST_F(PileSegmentTable, GeneratedPilesHaveNoRecord) {
    cmn().NUMPIL = 4;
    cmn().NGEN(2) = 1;
    cmn().NGEN(4) = 1;
    EXPECT_EQ(read_table({"1 1 1", "3 1 2", "next"}), Cause::none);
    EXPECT_EQ(cmn().NSEGP(2), 0);
    EXPECT_EQ(cmn().NSEGP(3), 1);
    EXPECT_EQ(in.LOC, 703);
    EXPECT_EQ(next_line(12), "next");
}

TEST_F(PileSegmentTable, ListMayBeContinued) {
    EXPECT_EQ(read_table({"1 20 1 2 3 4 5 6 7 8 9", "1 2 3 4 5 6 7 8 9", "1 2"}), Cause::none);
    EXPECT_EQ(cmn().NSEGP(1), 20);
    EXPECT_EQ(cmn().ISEGP(10, 1), 1);
    EXPECT_EQ(cmn().ISEGP(20, 1), 2);
    EXPECT_EQ(cmn().NLINE, 4);
}

TEST_F(PileSegmentTable, PileWithoutSegments) {
    EXPECT_EQ(read_table({"1 0"}), Cause::none);
    EXPECT_EQ(cmn().NSEGP(1), 0);
    EXPECT_EQ(read_table({"1 -2"}), Cause::none); // the count of numbers resolves to 0: any number
    EXPECT_EQ(cmn().NSEGP(1), -2);
    EXPECT_EQ(cmn().ISEGP(1, 1), 0);
    EXPECT_EQ(log(), "");
    EXPECT_EQ(read_table({"1 -1"}), Cause::record_fault); // one number is due, two are there
}

TEST_F(PileSegmentTable, PilesMustFollowOneAnother) {
    const std::string text = "\n **** SR/READPI : PILE 001 EXPECTED IN SEGMENT TABLE , NOT";
    EXPECT_EQ(log_of({"2 1 1"}), text + " 002\n");
    EXPECT_EQ(log_of({"1e300 1 1"}), text + "2147483647\n");
    EXPECT_EQ(log_of({"-1e300 1 1"}), text + "-2147483648\n");
}

TEST_F(PileSegmentTable, AtMostTwentySegments) {
    EXPECT_EQ(log_of({"1 21 1 2 3 4 5 6 7 8 9 1 2 3 4 5 6 7 8 9 1 2 3"}),
              "\n **** SR/READPI : PILE SEGMENT TABLE  NP,SEG,MAX=    1   21   20\n");
    EXPECT_EQ(cmn().NSEGP(1), 0);
}

TEST_F(PileSegmentTable, SegmentMustBeAType) {
    const std::string text = "\n **** SR/READPI : PILE SEGMENT TABLE  NP,I,SEG(I)=    1    2";
    EXPECT_EQ(log_of({"1 2 9 10"}), text + "   10\n");
    EXPECT_EQ(log_of({"1 2 9 0"}), text + "    0\n");
    EXPECT_EQ(log_of({"1 2 9 1e300"}), text + "2147483647\n");
    EXPECT_EQ(log_of({"1 2 9 -1e300"}), text + "-2147483648\n");
    EXPECT_EQ(cmn().ISEGP(1, 1), 9);
    EXPECT_EQ(cmn().ISEGP(2, 1), 0);
}

TEST_F(PileSegmentTable, HugeCountOfSegmentsIsARecordThatDoesNotEnd) {
    EXPECT_EQ(read_table({"1 1e300 1"}), Cause::record_fault);
    EXPECT_EQ(read_table({"1 -1e300 1"}), Cause::record_fault);
    EXPECT_EQ(cmn().NSEGP(1), 0);
}

} // namespace
} // namespace korvat::test
