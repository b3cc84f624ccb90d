// Tests of the reader of lines and records: count of lines, location, the messages it is given.
#include "support/model_fixture.hpp"

#include "model/sections/deck_reader.hpp"

namespace korvat::test {
namespace {

using deck::RecordId;

constexpr ReaderMessages messages = {.end_of_file = "(' end at',i5)",
                                     .format_error = "(' unreadable at',i5)",
                                     .record_fault = "(' fault at',i5)"};

class DeckReaderTest : public ModelTest {
protected:
    DeckReaderTest() : in(cmn(), messages) {}

    DeckReader in;
};

TEST_F(DeckReaderTest, TextLineIsCutAtItsWidth) {
    give_copy(padded("a", 79) + "bc\n" + padded("d", 119) + "ef\n");
    EXPECT_EQ(in.read_text_line<80>(), Cause::none);
    EXPECT_EQ(fortran::trimmed(cmn().LINE.view()), padded("a", 79) + "b");
    EXPECT_EQ(in.read_text_line<120>(), Cause::none);
    EXPECT_EQ(fortran::trimmed(cmn().LINE.view()), padded("d", 119) + "e");
    EXPECT_EQ(cmn().NLINE, 2);
    EXPECT_EQ(log(), "");
}

TEST_F(DeckReaderTest, EndOfFileInATextLineIsCounted) {
    give_copy("last\n");
    EXPECT_EQ(in.read_text_line<80>(), Cause::none);
    in.LOC = 1201;
    EXPECT_EQ(in.read_text_line<80>(), Cause::end_of_file);
    EXPECT_EQ(cmn().NLINE, 2);
    EXPECT_EQ(log(), " end at 1201\n");
    EXPECT_EQ(fortran::trimmed(cmn().LINE.view()), "last"); // unchanged
}

TEST_F(DeckReaderTest, UnreadableLineOnPosix) {
    give_directory(12, "unreadable");
    in.LOC = 300;
    EXPECT_EQ(in.read_text_line<80>(), Cause::format_error);
    EXPECT_EQ(cmn().NLINE, 1);
    EXPECT_EQ(log(), " unreadable at  300\n");
}

TEST_F(DeckReaderTest, RecordsAreKeptOnlyWhereThatIsAskedFor) {
    give_copy("1.5\n 7 1 2 3\n4  5\n6\n");
    EXPECT_EQ(in.read_record(RecordId::load_factor, 2), Cause::none);
    EXPECT_TRUE(cmn().report.records.empty());
    cmn().report.keeps_records = true;
    EXPECT_EQ(in.read_record(RecordId::pile_load, 205), Cause::none);
    ASSERT_EQ(cmn().report.records.size(), 1U);
    const GivenRecord& record = cmn().report.records.front();
    EXPECT_EQ(record.kind, static_cast<int>(RecordId::pile_load));
    EXPECT_EQ(record.k, 205);
    EXPECT_EQ(record.first_line, 2);
    ASSERT_EQ(record.numbers.size(), 7U);
    EXPECT_EQ(record.numbers[0].value, 7.0);
    EXPECT_EQ(record.numbers[0].place, (DeckPlace{.line = 2, .column = 2}));
    EXPECT_EQ(record.numbers[5].value, 5.0);
    EXPECT_EQ(record.numbers[5].place, (DeckPlace{.line = 3, .column = 4}));
    EXPECT_EQ(record.numbers[6].place, (DeckPlace{.line = 4, .column = 1}));
    EXPECT_EQ(in.read_record(RecordId::load_factor, 3), Cause::record_fault); // the end of the file
    EXPECT_EQ(cmn().report.records.size(), 1U);
}

TEST_F(DeckReaderTest, RecordTakesItsCountAndLocationFromTheDescription) {
    give_copy("7 1 2 3\n4 5\n6\nnext\n");
    EXPECT_EQ(in.read_record(RecordId::pile_load, 205), Cause::none);
    EXPECT_EQ(in.LOC, 2205);
    EXPECT_EQ(in.NPHYS, 3);
    EXPECT_EQ(cmn().NLINE, 3);
    EXPECT_EQ(in.integer(1), 7);
    EXPECT_EQ(in.VAR(7), 6.0);
    EXPECT_EQ(next_line(12), "next");
}

TEST_F(DeckReaderTest, LocationOfAHugeNumberSaturates) {
    give_copy("1\n");
    EXPECT_EQ(in.read_record(RecordId::load_factor, 2147483647), Cause::none);
    EXPECT_EQ(in.LOC, 2147483647);
}

TEST_F(DeckReaderTest, SingleRecordHasItsOwnLocation) {
    give_copy("3\n");
    EXPECT_EQ(in.read_record(RecordId::load_vectors), Cause::none);
    EXPECT_EQ(in.LOC, 245);
}

TEST_F(DeckReaderTest, FaultOfARecordIsReportedBehindItsOwnMessage) {
    give_copy("\n");
    EXPECT_EQ(in.read_record(RecordId::loaded_piles, 2), Cause::record_fault);
    EXPECT_EQ(log(), "\n **** SR/READ : NO NUMBERS FOUND AT LOCATION = 1302\n"
                     "      LINE ABOVE INPUT LINE AND INPUT LINE IS PRINTED BELOW WITH A '-' IN "
                     "FRONT.\n"
                     " " +
                         std::string(79, '-') +
                         "\n\n"
                         " -  \n" // the line above is blank: one blank of it
                         " -  \n"
                         "\n\n\n"
                         " fault at 1302\n");
    EXPECT_EQ(cmn().NLINE, 1);
}

TEST_F(DeckReaderTest, MissingContinuationLineIsNotCounted) {
    give_copy("1 2\n3 4\n");
    EXPECT_EQ(in.read_record(RecordId::pile_load, 101), Cause::record_fault);
    EXPECT_EQ(cmn().NLINE, 2);
}

TEST_F(DeckReaderTest, IntegerIsTheNearestOne) {
    give_copy("1.5\n-1.5\n1e300\n-1e300\n");
    const std::vector<int> expected = {2, -1, 2147483647, -2147483647 - 1};
    for (const int value : expected) {
        EXPECT_EQ(in.read_record(RecordId::loaded_piles, 1), Cause::none);
        EXPECT_EQ(in.integer(1), value);
    }
}

TEST_F(DeckReaderTest, RejectWritesItsMessage) {
    EXPECT_EQ(in.reject({}, "(' bad',2i5)", 3, -4), Cause::bad_value);
    EXPECT_EQ(log(), " bad    3   -4\n");
}

TEST_F(DeckReaderTest, TheFirstRejectionIsTheFaultOfTheRun) {
    EXPECT_EQ(in.reject({.line = 4, .column = 2}, "(/,' bad',i5)", 3), Cause::bad_value);
    EXPECT_EQ(in.reject({.line = 5}, "(' worse')"), Cause::bad_value);
    EXPECT_EQ(cmn().report.fault.message, "\n bad    3");
    EXPECT_EQ(cmn().report.fault.file, "KORVAT.INP");
    EXPECT_EQ(cmn().report.fault.place, (DeckPlace{.line = 4, .column = 2}));
    EXPECT_EQ(log(), "\n bad    3\n worse\n");
}

// The second record starts on line 2 and goes on over lines 3 and 4.
TEST_F(DeckReaderTest, APlaceIsThatOfTheValue) {
    give_copy("7\n2 0 -1 4\n 5.0 6.0\n  7.0 8.0 9.0\n");
    EXPECT_EQ(in.read_record(RecordId::loaded_piles, 1), Cause::none);
    EXPECT_EQ(in.place(1), (DeckPlace{.line = 1, .column = 1}));
    EXPECT_EQ(in.read_record(RecordId::pile_geometry, 1), Cause::none);
    EXPECT_EQ(in.place(1), (DeckPlace{.line = 2, .column = 1}));
    EXPECT_EQ(in.place(4), (DeckPlace{.line = 2, .column = 8}));
    EXPECT_EQ(in.place(5), (DeckPlace{.line = 3, .column = 2}));
    EXPECT_EQ(in.place(9), (DeckPlace{.line = 4, .column = 11}));
    EXPECT_EQ(in.place(10), (DeckPlace{.line = 4})); // there is none: the last line
    EXPECT_EQ(in.line_place(), (DeckPlace{.line = 4}));
}

} // namespace
} // namespace korvat::test
