// Input that is lost, or read otherwise than it looks.
#include "tools/check/deck_text.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using Texts = std::vector<std::string>;

const Texts none;

TEST(InputRules, TheNameOfTheDeck) {
    const auto rules = [](std::string_view name) {
        Texts texts;
        for (const check::Finding& finding : checked(good_deck(), name).findings) {
            if (finding.rule == "deck-name") texts.push_back(finding.message);
        }
        return texts;
    };
    EXPECT_EQ(rules("korvat.inp"), Texts{"the deck is named korvat.inp: where capitals count, "
                                         "KORVAT does not find it"});
    EXPECT_EQ(rules("KORVAT.INP"), none);
    EXPECT_EQ(rules("jacket.txt"), none);
    EXPECT_EQ(rules(""), none);
}

TEST(InputRules, ALineThatWasMeantAsAVersionLine) {
    const std::string text =
        "this line looks like a version line and is none: the deck is read as one of "
        "revision 4";
    EXPECT_EQ(found(good_deck().with(2, "Korvat Version: 2006-06-11"), "version-line"),
              Texts{"2:1+26 " + text});
    EXPECT_EQ(found(good_deck().with(2, "Revision of 2009-09-01"), "version-line"),
              Texts{"2:1+22 " + text});
    EXPECT_EQ(found(good_deck().without(2), "version-line"), none);
    EXPECT_EQ(found(good_deck().with(2, "KORVAT version: 2006-06-11"), "version-line"), none);
}

TEST(InputRules, SurplusNumbers) {
    EXPECT_EQ(found(good_deck().with_changed(21, "10.0", "10.0 4.0 5.0"), "surplus-numbers"),
              Texts{"21:56+7 2 numbers behind the 9 of the record are not read"});
    EXPECT_EQ(
        found(good_deck_5().with_changed(26, "0. 0. 0.  ", "0. 0. 0. 0.  "), "surplus-numbers"),
        Texts{"26:68+2 1 number behind the 15 of the record is not read"});
    EXPECT_EQ(found(good_deck().with_changed(21, "10.0", "10.0 t/m3 4.0"), "surplus-numbers"),
              none);
}

// The remark of a single value may begin with a number.
TEST(InputRules, RemarksBehindASingleValue) {
    EXPECT_EQ(found(good_deck().with(7, "  3   2 rows of piles"), "surplus-numbers"), none);
    EXPECT_EQ(found(good_deck().with(7, "  3   2"), "surplus-numbers"),
              Texts{"7:7+1 1 number behind the 1 of the record is not read"});
}

TEST(InputRules, NumbersBeyondTheLastColumn) {
    const std::string start = "  1   1    0.914     0.025    0.   0.   0.   0.";
    const std::string gap(80 - start.size() - 4, ' ');
    EXPECT_EQ(found(good_deck().with(21, start + gap + "10.055"), "beyond-column"),
              Texts{"21:77+6 10.055 crosses column 80 and is read as 10.0"});
    EXPECT_EQ(found(good_deck().with(21, start + gap + "10.0"), "beyond-column"), none);
    EXPECT_EQ(found(good_deck().with(21, start + "  10.0" + gap + "7.5"), "beyond-column"),
              Texts{"21:83+3 7.5 is beyond column 80 and is not read"});
    EXPECT_EQ(found(good_deck().with(21, start + "  10.0  fluid " + gap + "7.5"), "beyond-column"),
              none);
}

// In the cross sections of revision 5, 120 columns are read.
TEST(InputRules, TheLastColumnOfRevision5) {
    const std::string start = "  2  1  -1    1   1.000  0.030   0. 0. 0. 0.  10.0   0.   0. 0.";
    const auto line = [&](std::size_t column) {
        return start + std::string(column - start.size() - 1, ' ') + "2.5";
    };
    EXPECT_EQ(found(good_deck_5().with(26, line(118)), "beyond-column"), none);
    EXPECT_EQ(found(good_deck_5().with(26, line(119)), "beyond-column"),
              Texts{"26:119+3 2.5 crosses column 120 and is read as 2."});
}

TEST(InputRules, WholeNumbersWithAFraction) {
    EXPECT_EQ(found(good_deck().with_changed(26, "        5", "        5.4"), "rounded-number"),
              Texts{"26:33+3 5.4 stands for a whole number and is read as 5"});
    EXPECT_EQ(found(good_deck().with_changed(26, "        5", "        5.0"), "rounded-number"),
              none);
    // 109 is a little less in the program; it is a whole number all the same.
    EXPECT_EQ(found(good_deck().with_changed(26, "        5", "        109"), "rounded-number"),
              none);
}

TEST(InputRules, LinesBehindTheLastRecord) {
    EXPECT_EQ(
        found(good_deck().with_inserted(52, "some text left over"), "unread-lines"),
        Texts{"52:1+19 1 line behind the last record, in front of END, is not read; this is the "
              "first"});
    EXPECT_EQ(
        found(good_deck().with_inserted(52, " 1 2").with_inserted(52, "\t").with_inserted(52, " 3"),
              "unread-lines"),
        Texts{"52:2+1 2 lines behind the last record, in front of END, are not read; this is the "
              "first"});
    EXPECT_EQ(found(good_deck().with_inserted(52, "* some text left over"), "unread-lines"), none);
}

TEST(InputRules, LoadsWithoutACount) {
    const DeckText deck = good_deck().with_changed(11, "1", "0");
    EXPECT_EQ(
        found(deck, "unread-loads"),
        Texts{"46:1+12 load vectors stand here, but NUMLOD is 0: none is read and no LOAD.09 is "
              "written"});
    EXPECT_EQ(found(deck, "unread-lines"), none);
    EXPECT_EQ(found(deck.without(51), "unread-loads"), none);
}

TEST(InputRules, ASecondVector) {
    DeckText deck = good_deck();
    for (const char* const line :
         {"  1 0. 90. 0. 0. 0. 0.", "  NP", "  1.0", "  1", "Wind on the cap point"}) {
        deck = deck.with_inserted(52, line);
    }
    EXPECT_EQ(
        found(deck, "unread-vector"),
        Texts{"52:1+21 loads behind load vector 1, the last one that NUMLOD counts, are not read"});
    EXPECT_EQ(found(deck, "unread-lines"), none);
    EXPECT_EQ(found(deck.with_changed(11, "1", "2"), "unread-vector"), none);
}

TEST(InputRules, NumbersBehindEnd) {
    EXPECT_EQ(
        found(DeckText(good_deck().text() + "notes\n  4 1 2 3\n  5\n"), "behind-end"),
        Texts{"54:3+7 2 lines of numbers behind END in line 52 are not read; this is the first"});
    EXPECT_EQ(found(DeckText(good_deck().text() + "notes\n* 4 1 2 3\n"), "behind-end"), none);
}

TEST(InputRules, APileInNoRangeOfTheTipTable) {
    EXPECT_EQ(
        found(good_deck().with_changed(39, "2    3", "3    3"), "no-tip-code"),
        Texts{"39:3+1 pile 2 is in no range of the tip/fix table: tip code 0, fixed to none"});
    EXPECT_EQ(found(good_deck().with(38, "  1  1  0  0").with(39, "  2  3  0  0"), "no-tip-code"),
              none);
    // Behind the largest number there is none.
    EXPECT_EQ(found(good_deck().with(38, "  1  2147483647  0  0"), "no-tip-code"), none);
}

// Walls of 25 and 19 mm, two sections between: 25 - 6/4 = 23.5 and 25 - 3 · 6/4 = 20.5.
TEST(InputRules, SectionsThatAreMade) {
    const DeckText deck = good_deck().with_changed(8, "2", "4");
    EXPECT_EQ(
        found(deck.with_changed(22, "  2   1", "  4   1"), "made-sections"),
        Texts{"22:3+1 cross sections that are made between two given ones: 2 to 3 (diameter 0.914, "
              "wall 0.0235 to 0.0205)"});
    EXPECT_EQ(found(good_deck(), "made-sections"), none);
}

TEST(InputRules, PilesThatAreMade) {
    const DeckText deck = good_deck()
                              .with_changed(32, "  2    0", "  3    0")
                              .without(33)
                              .with(34, "  1    0")
                              .with(35, "  2    0")
                              .with_inserted(36, "  3    2    1 2");
    const Texts made{
        "32:3+1 piles that are made at equal distances between two given ones: 2 (between 1 "
        "and 3)"};
    EXPECT_EQ(found(deck, "made-piles"), made);
    EXPECT_EQ(found(deck, "run-error"), none);
    EXPECT_EQ(found(good_deck(), "made-piles"), none);
}

// What stands behind the first error is looked at too.
TEST(InputRules, RecordsBehindTheFirstError) {
    const DeckText deck = good_deck().with_changed(17, "2.1E8", "0.0");
    EXPECT_EQ(found(deck.with_changed(27, "        5", "        5 6"), "surplus-numbers"),
              Texts{"27:35+1 1 number behind the 5 of the record is not read"});
    EXPECT_EQ(found(deck.with_changed(51, "-600.    0.", "-600.    0.  2."), "surplus-numbers"),
              Texts{"51:46+2 1 number behind the 7 of the record is not read"});
    const DeckText other = good_deck_5().with_changed(18, "2.1E8", "0.0");
    EXPECT_EQ(found(other.with_changed(26, "0. 0. 0.  ", "0. 0. 0. 0.  "), "surplus-numbers"),
              Texts{"26:68+2 1 number behind the 15 of the record is not read"});
}

} // namespace
} // namespace korvat::test
