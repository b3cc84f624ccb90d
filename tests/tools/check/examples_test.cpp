// Decks that are right: nothing may be said about them that an engineer would call wrong.
#include "check/checker.hpp"
#include "check/format.hpp"
#include "support/document.hpp"
#include "support/scratch_directory.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using Texts = std::vector<std::string>;

// Rule and line of what this group of rules finds: what is said of units, sections and piles is for the
// tests of those rules.
Texts findings_of(const std::string& example) {
    const check::DeckFile deck = check::read_deck(std::string(KORVAT_EXAMPLES_DIR) + "/" + example);
    const check::Selection of_input{.only = {"run-error",
                                             "run-warning",
                                             "not-looked-at",
                                             "not-text",
                                             "utf-16",
                                             "byte-order-mark",
                                             "tab",
                                             "no-break-space",
                                             "non-ascii",
                                             "decimal-comma",
                                             "semicolon",
                                             "heading-comment",
                                             "heading-count",
                                             "short-record",
                                             "record-count",
                                             "end-line",
                                             "deck-name",
                                             "version-line",
                                             "surplus-numbers",
                                             "beyond-column",
                                             "rounded-number",
                                             "unread-lines",
                                             "unread-loads",
                                             "unread-vector",
                                             "behind-end",
                                             "no-tip-code",
                                             "made-sections",
                                             "made-piles"},
                                    .off = {}};
    Texts texts;
    for (const check::Finding& finding : check::check_deck(deck, of_input).findings) {
        texts.push_back(finding.rule + " " + std::to_string(finding.place.line));
    }
    return texts;
}

TEST(Examples, OnlyNotesAboutWhatIsMade) {
    EXPECT_EQ(findings_of("jacket"), Texts());
    EXPECT_EQ(findings_of("insert-piles"), Texts());
    EXPECT_EQ(findings_of("barge-impact"), Texts{"made-piles 43"});
    EXPECT_EQ(findings_of("dolphin"), (Texts{"made-sections 24", "made-piles 50"}));
    EXPECT_EQ(findings_of("limits"), (Texts{"made-sections 40", "made-piles 1119"}));
    EXPECT_EQ(findings_of("limits-revision-5"), Texts{"made-piles 1415"});
}

// What the reference shows as an example is one.
TEST(Examples, NothingToSayOfTheDecksOfTheReference) {
    const std::vector<std::string> decks =
        blocks_shown_in(std::filesystem::path(KORVAT_DOCS_DIR) / "deck.md", "korvat-deck");
    ASSERT_EQ(decks.size(), 2U); // one of each revision
    for (const std::string& deck : decks) {
        const check::CheckedDeck found =
            check::check_deck({"KORVAT.INP", "KORVAT.INP", {}, deck}, {});
        EXPECT_TRUE(found.made);
        EXPECT_EQ(check::findings_text(found), "");
    }
}

} // namespace
} // namespace korvat::test
