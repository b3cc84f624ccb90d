// Characters that make a reader stumble.
#include "tools/check/deck_text.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using Texts = std::vector<std::string>;

const Texts none;

TEST(CharacterRules, ATabBetweenNumbers) {
    const std::string text =
        "a tab stands where a blank is needed: a tab separates no numbers, and a "
        "line with a tab is not blank";
    EXPECT_EQ(found(good_deck().with_changed(17, "8.077E7      3.55E5", "8.077E7\t3.55E5"), "tab"),
              Texts{"17:27+1 " + text});
    EXPECT_EQ(found(good_deck().with(23, "\t"), "tab"), Texts{"23:1+1 " + text});
    EXPECT_EQ(found(good_deck().with_changed(17, "2.1E8 ", "2.1E8\t "), "tab"), none);
    EXPECT_EQ(found(good_deck().with(24, "Pile\tsegment types"), "tab"), none);
}

TEST(CharacterRules, ManyTabsAreToldOnce) {
    const DeckText deck = good_deck()
                              .with_changed(17, "8.077E7      3.55E5", "8.077E7\t3.55E5")
                              .with_changed(21, "0.914     0.025", "0.914\t0.025")
                              .with_changed(22, "0.914     0.019", "0.914\t0.019");
    EXPECT_EQ(
        found(deck, "tab"),
        Texts{"17:27+1 a tab stands where a blank is needed; so in 3 lines: a tab separates no "
              "numbers, and a line with a tab is not blank"});
}

TEST(CharacterRules, TabsAndCommasSeparateInTheCrossSectionsOfRevision5) {
    const DeckText deck = good_deck_5()
                              .with_changed(18, "2.1E8", "0.0") // the run ends in front of them
                              .with_changed(26, "1.000  0.030", "1.000\t0.030")
                              .with_changed(27, "0.800  0.020", "0.800,0.020");
    EXPECT_EQ(found(deck, "tab"), none);
    EXPECT_EQ(found(deck, "decimal-comma"), none);
}

TEST(CharacterRules, ANoBreakSpace) {
    const std::string text =
        "a no-break space stands where a blank is needed: it looks like a blank and "
        "separates nothing";
    EXPECT_EQ(found(good_deck().with_changed(17, "77.0          1.2E-5", "77.0\u00A01.2E-5"),
                    "no-break-space"),
              Texts{"17:48+1 " + text});
    EXPECT_EQ(found(good_deck().with(23, " \u00A0"), "no-break-space"), Texts{"23:2+1 " + text});
    EXPECT_EQ(found(good_deck().with(24, " Pile\u00A0segment types"), "no-break-space"), none);
}

TEST(CharacterRules, AnotherCharacterThatIsNotAscii) {
    EXPECT_EQ(
        found(good_deck().with_changed(32, "10.0", "\u221210.0"), "non-ascii"),
        Texts{"32:47+1 a character that is not ASCII stands in a record, such as a long dash for a "
              "minus sign or a number of another script"});
    EXPECT_EQ(found(good_deck().with_changed(17, "2.1E8", "0.0").with(1, "Dalben für Kai 3"),
                    "non-ascii"),
              none);
}

TEST(CharacterRules, ADecimalComma) {
    EXPECT_EQ(found(good_deck().with_changed(21, "0.025", "0,025"), "decimal-comma"),
              Texts{"21:22+5 a comma stands inside a number"});
    EXPECT_EQ(found(good_deck().with_changed(17, "2.1E8", "0.0").with(7, "  3  piles, 1,5 m apart"),
                    "decimal-comma"),
              none);
}

TEST(CharacterRules, ASemicolon) {
    EXPECT_EQ(found(good_deck().with_changed(26, "10.0 ", "10.0;"), "semicolon"),
              Texts{"26:25+1 a semicolon stands between numbers"});
    EXPECT_EQ(found(good_deck().with(26, "  1 1 1 10.0 5  upper; lower"), "semicolon"), none);
}

std::string in_utf16(const std::string& text, bool is_low_byte_first) {
    std::string wide;
    for (const char c : text) {
        wide += is_low_byte_first ? std::string{c, '\0'} : std::string{'\0', c};
    }
    return wide;
}

TEST(CharacterRules, Utf16WithAndWithoutItsMark) {
    const Texts one{"1:0+0 the file is written in UTF-16, of which no line can be read"};
    const std::string text = good_deck().text();
    EXPECT_EQ(found(DeckText("\xFF\xFE" + in_utf16(text, true)), "utf-16"), one);
    EXPECT_EQ(found(DeckText("\xFE\xFF" + in_utf16(text, false)), "utf-16"), one);
    EXPECT_EQ(found(DeckText(in_utf16(text, true)), "utf-16"), one);
    EXPECT_EQ(found(DeckText(in_utf16(text, true)), "not-text"), none);
    EXPECT_EQ(found(good_deck(), "utf-16"), none);
}

TEST(CharacterRules, AByteOrderMark) {
    EXPECT_EQ(
        found(good_deck().with(1, "\uFEFFSmall frame"), "byte-order-mark"),
        Texts{"1:1+1 the file begins with a byte order mark, which becomes the beginning of its "
              "label"});
    EXPECT_EQ(found(good_deck().with(1, "Small \uFEFFframe"), "byte-order-mark"), none);
}

TEST(CharacterRules, AByteThatNoTextHas) {
    EXPECT_EQ(found(good_deck().with_changed(47, "cap", "c\x01p"), "not-text"),
              Texts{"47:23+1 this is not a text: a byte with the code 1 stands here"});
    EXPECT_EQ(found(good_deck().with_changed(47, "cap", "c\fp"), "not-text"), none);
}

// Lines cannot be made out in a picture: nothing is said about them.
TEST(CharacterRules, NothingElseIsLookedForInAFileThatIsNoText) {
    const std::string picture = "\x89PNG\r\n\x1A\n" + std::string(300, '\0') + "\n 1,5 2;3\n";
    std::vector<std::string> rules;
    for (const check::Finding& finding : checked(DeckText(picture)).findings) {
        rules.push_back(finding.rule);
    }
    EXPECT_EQ(rules, (Texts{"run-error", "not-text"}));
}

} // namespace
} // namespace korvat::test
