// Headings and records that are missing or too many.
#include "tools/check/deck_text.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using Texts = std::vector<std::string>;

const Texts none;

TEST(StructureRules, GoodDecksHaveNoErrors) {
    EXPECT_EQ(count(checked(good_deck()), check::Level::error), 0);
    EXPECT_EQ(count(checked(good_deck_5()), check::Level::error), 0);
}

TEST(StructureRules, AHeadingThatIsTakenForAComment) {
    EXPECT_EQ(found(good_deck().with(15, "Components of steel"), "heading-comment"),
              Texts{"15:1+19 a heading begins with C and is taken for a comment"});
    EXPECT_EQ(found(good_deck().with(15, "*omponents of steel"), "heading-comment"),
              Texts{"15:1+19 a heading begins with * and is taken for a comment"});
    EXPECT_EQ(found(good_deck().with(34, "column NP NSEG"), "heading-comment"),
              Texts{"34:1+14 a heading begins with c and is taken for a comment"});
    EXPECT_EQ(found(good_deck().with(47, "Current from south"), "heading-comment"),
              Texts{"47:1+18 a label or heading begins with C and is taken for a comment"});
    EXPECT_EQ(found(good_deck().with(15, " Components of steel"), "heading-comment"), none);
}

// A comment is none of the headings, and other sections may have their comments.
TEST(StructureRules, ACommentBesideAHeadingIsAComment) {
    const DeckText deck = good_deck()
                              .with_changed(17, "2.1E8", "0.0")
                              .with_inserted(15, "Comment on the steel")
                              .with_inserted(48, "Comment on the loads");
    EXPECT_EQ(found(deck, "heading-comment"), none);
    EXPECT_EQ(found(deck, "heading-count"), none);
}

TEST(StructureRules, TheNumberOfHeadings) {
    EXPECT_EQ(
        found(good_deck().with_inserted(16, " more about them"), "heading-count"),
        Texts{"15:0+0 material types: 3 heading lines between the blank line and the first record, "
              "but a deck of revision 4 has 2"});
    EXPECT_EQ(
        found(good_deck_5().without(17), "heading-count"),
        Texts{"15:0+0 material types: 2 heading lines between the blank line and the first record, "
              "but a deck of revision 5 has 3"});
    EXPECT_EQ(found(good_deck().with_inserted(16, "* more about them"), "heading-count"), none);
}

// Without a revision nobody knows how many headings there must be.
TEST(StructureRules, NoHeadingsAreCountedWithoutARevision) {
    EXPECT_EQ(found(good_deck_5().with_changed(2, "2009-09-01", "2009-09-02"), "heading-count"),
              none);
}

TEST(StructureRules, ARecordThatTakesNumbersFromTheNextLine) {
    EXPECT_EQ(
        found(good_deck().with_changed(21, "   10.0", ""), "short-record"),
        Texts{"21:3+45 record 1 of the cross section type data has 8 numbers instead of 9, so the "
              "others are taken from the next line"});
    EXPECT_EQ(found(good_deck().with_changed(21, "   10.0", "").with_inserted(22, "   10.0"),
                    "short-record"),
              none);
}

TEST(StructureRules, NumberedRecordsAgainstTheirCount) {
    EXPECT_EQ(
        found(good_deck().with_changed(9, "1", "2"), "record-count"),
        Texts{"18:0+0 material types: 1 record, but NUMMAT in line 9 is 2; number 2 is expected "
              "here"});
    EXPECT_EQ(
        found(good_deck().with_inserted(18, "  2 2.1E8 8.077E7 3.55E5 77.0 1.2E-5"),
              "record-count"),
        Texts{
            "18:3+34 material types: 2 records, but NUMMAT in line 9 is 1; the first one too many "
            "stands here"});
    // The counts agree no more where number 2 is missing, not at the end.
    EXPECT_EQ(
        found(good_deck().with_changed(10, "2", "3").with(27, "  3     2     2     15.0        5"),
              "record-count"),
        Texts{"27:3+31 pile segment types: 2 records, but NUMSEG in line 10 is 3; number 2 is "
              "expected here"});
}

// No pile is listed that the count has too many of: a count may be of billions.
TEST(StructureRules, TheSegmentTableIsNotComparedWithMorePilesThanThereMayBe) {
    const DeckText deck =
        good_deck().with_changed(7, "3", "201").with_changed(33, "3    2    2", "201  0    0");
    EXPECT_EQ(found(deck, "record-count"),
              Texts{"40:0+0 pile tip/fix table: the table ends with number 3, but NUMPIL in line 7 "
                    "is 201"});
}

// The deck ends where the record is missing, and has no line behind that.
TEST(StructureRules, ARecordMissingBehindTheLastLineIsMissedAtThatLine) {
    DeckText deck = good_deck().with_changed(9, "1", "2");
    while (!deck.text().ends_with(" 1.2E-5\n")) // of line 17, the record of material 1
        deck = deck.without(18);
    EXPECT_EQ(found(deck, "record-count"),
              Texts{"17:0+0 material types: 1 record, but NUMMAT in line 9 is 2; number 2 is "
                    "expected here"});
}

TEST(StructureRules, TablesThatEndWithAHighestNumber) {
    EXPECT_EQ(
        found(good_deck().with_changed(8, "2", "3"), "record-count"),
        Texts{"23:0+0 cross sections: the table ends with number 2, but NUMCRS in line 8 is 3"});
    EXPECT_EQ(
        found(good_deck().with_changed(8, "2", "1"), "record-count"),
        Texts{
            "22:3+52 cross sections: 1 record behind number 1, which ends the table, as NUMCRS in "
            "line 8 is 1"});
    EXPECT_EQ(
        found(good_deck().with_changed(7, "3", "4"), "record-count"),
        (Texts{"34:0+0 pile geometry: the table ends with number 3, but NUMPIL in line 7 is 4",
               "40:0+0 pile tip/fix table: the table ends with number 3, but NUMPIL in line 7 is "
               "4"}));
}

TEST(StructureRules, TheControlSectionHasNineValues) {
    EXPECT_EQ(found(good_deck().without(13), "record-count"),
              Texts{"13:0+0 control section: 8 values, but it has nine"});
    EXPECT_EQ(found(good_deck().with_inserted(9, "  1   more"), "record-count"),
              Texts{"14:3+18 control section: 10 values, but it has nine"});
}

// None of the counts is known then: NUMPIL, say, is read from the line of NUMCRS.
TEST(StructureRules, AShiftedControlSectionIsTheOnlyOneThatIsCounted) {
    EXPECT_EQ(found(good_deck().without(6), "record-count"),
              Texts{"13:0+0 control section: 8 values, but it has nine"});
}

TEST(StructureRules, TheSegmentTable) {
    EXPECT_EQ(
        found(good_deck().without(36), "record-count"),
        Texts{"36:0+0 pile segment table: 1 record, but the geometry has 2 piles with NGEN 0; pile "
              "2 is expected here"});
    EXPECT_EQ(
        found(good_deck().with_inserted(37, "  3    1    1"), "record-count"),
        Texts{
            "37:3+11 pile segment table: 3 records, but the geometry has 2 piles with NGEN 0; this "
            "one is too many"});
}

TEST(StructureRules, TheEndRecordOfTheNodeValues) {
    EXPECT_EQ(found(good_deck().without(44), "record-count"),
              Texts{"44:0+0 special pile node values: 1 record, and no end record behind them"});
}

TEST(StructureRules, LoadsAgainstTheirCounts) {
    EXPECT_EQ(found(good_deck().with_changed(48, "1", "2"), "record-count"),
              Texts{"52:0+0 load vector 1: 1 record, but its number of loaded piles is 2"});
    EXPECT_EQ(found(good_deck().with_changed(11, "1", "2"), "record-count"),
              Texts{"51:0+0 load vectors: 1 whole vector, but NUMLOD in line 11 is 2"});
}

TEST(StructureRules, CompositesAndCurvesOfRevision5) {
    EXPECT_EQ(
        found(good_deck_5().without(25), "record-count"),
        Texts{"25:3+64 cross section 1 has 1 tube fewer than its type says; one is expected here"});
    const std::string tube =
        "  1  3   1    0   1   0.900  0.020   0. 0. 0. 0.  10.0   0.   0. 0. 0.";
    EXPECT_EQ(
        found(good_deck_5().with_inserted(26, tube), "record-count"),
        Texts{"26:3+68 cross section 1 has more tubes than its type says; the first one too many "
              "stands here"});
    EXPECT_EQ(
        found(good_deck_5().without(30), "record-count"),
        Texts{
            "30:0+0 the yield curves have 1 point fewer than the non-linear codes of the sections "
            "say"});
    EXPECT_EQ(found(good_deck_5().with_changed(8, "3", "4"), "record-count"),
              Texts{"30:0+0 cross sections: 3 records, but NUMCRS in line 8 is 4"});
}

TEST(StructureRules, TheLineEnd) {
    EXPECT_EQ(found(good_deck().with(52, "End"), "end-line"),
              Texts{"52:1+3 this line does not end the deck: END stands in column 1, in capitals"});
    EXPECT_EQ(found(good_deck().without(52), "end-line"),
              Texts{"51:3+41 the deck has no line END: this is its last line"});
    EXPECT_EQ(
        found(good_deck().with(24, "END BEARING piles"), "end-line"),
        Texts{"24:1+17 this line begins with END and so ends the deck; records stand behind it"});
    EXPECT_EQ(found(good_deck().with(24, " END BEARING piles"), "end-line"), none);
}

} // namespace
} // namespace korvat::test
