// The page docs/first-deck.md: its parts are one deck, and a run says what the page shows.
#include "../support/case.hpp"
#include "../support/document.hpp"
#include "../support/text.hpp"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {
namespace {

const std::filesystem::path documents = KORVAT_DOCS_DIR;

std::vector<std::string> shown(std::string_view kind) {
    return blocks_shown_in(documents / "first-deck.md", kind);
}

std::string deck_of_parts() {
    std::string deck;
    for (const std::string& part : shown("korvat-deck-part")) {
        deck += part;
    }
    return deck;
}

// A page shows lines without the blanks at their ends.
std::string without_trailing_blanks(std::string_view text) {
    std::string trimmed;
    for (const std::string& line : split_lines(text)) {
        trimmed += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return trimmed;
}

void expect_to_hold(const CaseResult& run, const std::string& file, std::string_view kind) {
    ASSERT_EQ(run.files.count(file), 1U);
    const std::string text = without_trailing_blanks(run.files.at(file));
    const std::vector<std::string> blocks = shown(kind);
    EXPECT_FALSE(blocks.empty()) << kind;
    for (const std::string& block : blocks) {
        EXPECT_NE(text.find(block), std::string::npos) << file << " does not hold\n" << block;
    }
}

CaseResult run_of(const std::string& deck) {
    return run_deck(KORVAT_PROGRAM, &deck);
}

TEST(FirstDeck, IsTheDeckOfTheReadme) {
    EXPECT_EQ(blocks_shown_in(documents / "../README.md", "korvat-deck"),
              std::vector<std::string>{deck_of_parts()});
}

TEST(FirstDeck, GivesTheLinesShown) {
    const CaseResult run = run_of(deck_of_parts());
    EXPECT_EQ(run.exit_code, 0);
    EXPECT_EQ(run.standard_error, "");
    expect_to_hold(run, "KORVAT.LIS", "korvat-listing");
    expect_to_hold(run, "KORVAT.MLG", "korvat-log");
}

TEST(FirstDeck, IsRefusedWithTheDepthForTheLength) {
    const CaseResult run = run_of(with_change(deck_of_parts(), "30.31", "30.00"));
    EXPECT_EQ(run.exit_code, 1);
    std::string error = run.standard_error;
    std::erase(error, '\r'); // of the line ends on Windows
    EXPECT_EQ(shown("korvat-error"), std::vector<std::string>{error});
}

// The page says so of a length with all its decimals.
TEST(FirstDeck, MeetsItsTipWithTheWholeLength) {
    const CaseResult run = run_of(with_change(deck_of_parts(), "30.31", "30.3113"));
    EXPECT_EQ(run.exit_code, 0);
    EXPECT_NE(run.files.at("KORVAT.LIS").find("\n  12     8.0000     6.0000    40.0000\n"),
              std::string::npos);
}

TEST(FirstDeck, HasACapPointAtTheEnd) {
    const std::vector<std::string> decks = shown("korvat-deck");
    ASSERT_EQ(decks.size(), 1U);
    const CaseResult run = run_of(decks.front());
    EXPECT_EQ(run.exit_code, 0);
    expect_to_hold(run, "KORVAT.LIS", "korvat-listing-cap");
    EXPECT_EQ(run.files.count("LOAD.09"), 1U);
}

} // namespace
} // namespace korvat::test
