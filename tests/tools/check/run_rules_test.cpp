// What the run itself says, with its explanation.
#include "check/message_table.hpp"
#include "support/case.hpp"
#include "support/scratch_directory.hpp"
#include "tools/check/deck_text.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using Texts = std::vector<std::string>;

const Texts none;

TEST(RunRules, TheErrorWithItsMeaning) {
    const check::CheckedDeck deck = checked(good_deck().with_changed(17, "2.1E8", "0.0"));
    ASSERT_GE(deck.findings.size(), 1U);
    EXPECT_EQ(
        deck.findings[0],
        (check::Finding{
            .rule = "run-error",
            .level = check::Level::error,
            .place = {17, 8, 3},
            .message = "SR/READPI : MATERIAL ERROR MAT,IERR= 1 1 - E-modulus below 1.0E-10 in "
                       "stored units",
            .remedy = "Usual cause: A value is missing, so that the others have shifted; a modulus "
                      "in a unit that makes it nearly 0."}));
    EXPECT_FALSE(deck.made);
}

TEST(RunRules, AnErrorOfTheWholeModel) {
    EXPECT_EQ(
        found(good_deck().with_changed(27, "15.0", "14.0"), "run-error"),
        Texts{"36:0+0 SR/BUILD : PILE LENGTH ERROR NP,L1,L2= 2 24.0000 25.0000 - The sum of the "
              "segments of a pile differs from the distance from head to tip by more than 0.1 % of "
              "the sum"});
    EXPECT_EQ(found(good_deck(), "run-error"), none);
}

TEST(RunRules, AWarning) {
    EXPECT_EQ(
        found(good_deck().with_changed(12, "1", "3"), "run-warning"),
        Texts{"12:3+1 SR/READPI : JPRINT= 3 - The print level is not 0 to 2; the nearest allowed "
              "value is used"});
    EXPECT_EQ(found(good_deck().with_changed(12, "1", "2"), "run-warning"), none);
}

TEST(RunRules, WhatCouldNotBeLookedAt) {
    const DeckText deck = good_deck().with_changed(17, "2.1E8", "0.0");
    EXPECT_EQ(
        found(deck, "not-looked-at"),
        Texts{"0:0+0 not looked at, as the run ends with an error: what follows from the whole "
              "model"});
    EXPECT_EQ(
        found(deck.with(27, "  2     2     x     15.0        5"), "not-looked-at"),
        Texts{"0:0+0 not looked at, as the run ends with an error: pile segment types from line 27 "
              "on, and what follows from the whole model"});
    EXPECT_EQ(
        found(deck.with(42, "").with(43, ""), "not-looked-at"),
        Texts{"0:0+0 not looked at, as the run ends with an error: special pile node values, load "
              "vectors, and what follows from the whole model"});
    EXPECT_EQ(found(good_deck(), "not-looked-at"), none);
}

// The message as the first line of standard error has it, behind the number of its line: "korvat:
// KORVAT.INP:17: MESSAGE". Empty where it is none of the log.
std::string message_of(const std::filesystem::path& case_dir) {
    const std::filesystem::path path = case_dir / "expected" / "standard-error";
    if (!std::filesystem::exists(path)) return "";
    const std::string text = read_whole_file(path);
    const std::string line = text.substr(0, text.find('\n'));
    const std::string start = "korvat: KORVAT.INP:";
    if (!line.starts_with(start) || line.find("SR/") == std::string::npos) return "";
    const std::size_t at = line.find_first_not_of("0123456789", start.size());
    return line.substr(line.find_first_not_of(": ", at));
}

// What a whole run can say has a cause and a remedy.
TEST(RunRules, EachMessageOfTheCasesIsExplained) {
    int messages = 0;
    for (const std::filesystem::path& folder : case_folders(KORVAT_CASES_DIR)) {
        const std::string message = message_of(folder);
        if (message.empty()) continue;
        ++messages;
        bool is_explained = false;
        const std::string warning = "warning: ";
        const bool is_warning = message.starts_with(warning);
        const std::string shown = is_warning ? message.substr(warning.size()) : message;
        for (const char* const mark : {" **** ", " WARNING FROM "}) {
            const check::MessageEntry* const entry = check::entry_of(mark + shown);
            is_explained = is_explained || (entry != nullptr && !entry->meaning.empty() &&
                                            !entry->cause.empty() && !entry->remedy.empty());
        }
        EXPECT_TRUE(is_explained) << folder << ": " << message;
    }
    EXPECT_GT(messages, 400);
}

TEST(RunRules, AnEntryIsFoundByItsFixedTexts) {
    const auto heading = [](std::string_view message) {
        const check::MessageEntry* const entry = check::entry_of(message);
        return entry == nullptr ? "none" : std::string(entry->heading);
    };
    EXPECT_EQ(heading(" **** SR/READ : NO NUMBERS FOUND AT LOCATION =  301"), "NO NUMBERS FOUND");
    EXPECT_EQ(heading(" **** SR/READ : NO NUMBERS FOUND AT LOCATION =  301, ON A 'PHYSICAL "
                      "CONTINUATION\n                LINE.'"),
              "NO NUMBERS FOUND, continuation");
    EXPECT_EQ(heading(" **** SR/NOBODY : NO NUMBERS FOUND"), "none");
}

// The numbers stand in the order of their names.
TEST(RunRules, TheNumberOfAnErrorIsExplained) {
    const auto meaning = [](std::string_view message) {
        return check::meaning_of_number(*check::entry_of(message), message);
    };
    EXPECT_EQ(meaning(" **** SR/READPI : MATERIAL ERROR  MAT,IERR=    6    2"),
              "shear modulus below 1.0E-10");
    EXPECT_EQ(
        meaning(" **** SR/READPI : PILE TIP/FIX TABLE  NP1,NP2,ITIP,IFIX,IERR=\n    2    3    1    "
                "6    4"),
        "the tip code is above 3");
    EXPECT_EQ(meaning(" **** SR/READPI : NUMPIL PROBLEM  NUMPIL,MAX=  201  200"), "");
}

} // namespace
} // namespace korvat::test
