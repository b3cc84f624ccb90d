// Cases by their names, and files of every kind.
#include "check/checker.hpp"
#include "check/deck_file.hpp"
#include "support/scratch_directory.hpp"
#include "tools/check/deck_text.hpp"

#include <gtest/gtest.h>
#include <iostream>
#include <sstream>

namespace korvat::test {
namespace {

std::string refusal(const std::string& name) {
    try {
        static_cast<void>(check::read_deck(name));
    } catch (const check::CannotRead& error) {
        return error.what();
    }
    return "none";
}

TEST(DeckFile, ADirectoryWithADeck) {
    const ScratchDirectory directory;
    directory.write_file("KORVAT.INP", "a\r\nb");
    const check::DeckFile deck = check::read_deck(directory.path().generic_string());
    EXPECT_EQ(deck.shown, (directory.path() / "KORVAT.INP").generic_string());
    EXPECT_EQ(deck.name, "KORVAT.INP");
    EXPECT_EQ(deck.beside, directory.path());
    EXPECT_EQ(deck.bytes, "a\r\nb");
}

TEST(DeckFile, ADirectoryWithADeckInOtherLetters) {
    const ScratchDirectory directory;
    directory.write_file("Korvat.inp", "c");
    EXPECT_EQ(check::read_deck(directory.path().generic_string()).name, "Korvat.inp");
}

TEST(DeckFile, ADeckInTheRightLettersIsPreferredOnPosix) {
    const ScratchDirectory directory;
    directory.write_file("KORVAT.INP", "a");
    directory.write_file("Korvat.inp", "b");
    EXPECT_EQ(check::read_deck(directory.path().generic_string()).bytes, "a");
}

TEST(DeckFile, AFileOfAnyName) {
    const ScratchDirectory directory;
    directory.write_file("jacket.txt", "deck");
    const std::string name = (directory.path() / "jacket.txt").generic_string();
    const check::DeckFile deck = check::read_deck(name);
    EXPECT_EQ(deck.shown, name);
    EXPECT_EQ(deck.name, "jacket.txt");
    EXPECT_EQ(deck.bytes, "deck");
}

TEST(DeckFile, StandardInput) {
    std::istringstream input("deck\n");
    std::streambuf* const before = std::cin.rdbuf(input.rdbuf());
    const check::DeckFile deck = check::read_deck("-");
    std::cin.rdbuf(before);
    std::cin.clear();
    EXPECT_EQ(deck.shown, "<stdin>");
    EXPECT_EQ(deck.name, "");
    EXPECT_TRUE(deck.beside.empty());
    EXPECT_EQ(deck.bytes, "deck\n");
}

TEST(DeckFile, WhatCannotBeRead) {
    const ScratchDirectory directory;
    const std::string path = directory.path().generic_string();
    EXPECT_EQ(refusal(path), path + ": no KORVAT.INP in this directory");
    EXPECT_EQ(refusal(path + "/none").substr(0, path.size() + 7), path + "/none: ");
}

// A file of holes takes no room on the disk.
TEST(DeckFile, AFileThatIsTooLarge) {
    const ScratchDirectory directory;
    directory.write_file("zeros", "");
    const std::filesystem::path path = directory.path() / "zeros";
    std::filesystem::resize_file(path, 1'000'000'000);
    EXPECT_EQ(refusal(path.generic_string()),
              path.generic_string() + ": larger than 16 MB, more than is looked at");
}

// Whatever the bytes are: an error of the run, and nothing worse.
TEST(DeckFile, AnyBytesAreLookedAt) {
    std::string all;
    for (int code = 0; code < 256; ++code) {
        all += static_cast<char>(code);
    }
    const std::string good = good_deck().text();
    for (const std::string& bytes :
         {std::string(), std::string("\n"), std::string("END"), std::string(100'000, '\0'), all,
          all + "\nEND\n", std::string(100'000, '\n'), std::string(100'000, '1') + "\nEND\n",
          good + all, good.substr(0, good.size() / 2)}) {
        const check::CheckedDeck deck = check::check_deck({"deck", "deck", {}, bytes}, {});
        ASSERT_FALSE(deck.findings.empty());
        EXPECT_EQ(deck.made.has_value(), bytes.starts_with(good)) << bytes.size();
    }
}

// The deck cut behind each of its bytes.
TEST(DeckFile, ADeckCutAnywhereIsLookedAt) {
    for (const std::string& good : {good_deck().text(), good_deck_5().text()}) {
        const std::size_t end = good.rfind("END");
        for (std::size_t length = 0; length < end + 3; length += 7) {
            const check::CheckedDeck deck =
                check::check_deck({"deck", "deck", {}, good.substr(0, length)}, {});
            EXPECT_FALSE(deck.made) << length;
            EXPECT_EQ(deck.findings.front().rule, "run-error") << length;
            const check::CheckedDeck ended =
                check::check_deck({"deck", "deck", {}, good.substr(0, length) + "\nEND\n"}, {});
            EXPECT_FALSE(ended.made && length + 60 < end) << length;
        }
    }
}

TEST(DeckFile, TheSummaryCountsWhatTheRunMade) {
    const check::CheckedDeck deck = checked(good_deck_5());
    ASSERT_TRUE(deck.made);
    EXPECT_EQ(deck.made->piles, 3U);
    EXPECT_EQ(deck.made->elements, 26U); // two piles of 5 + 5 + 3
    EXPECT_EQ(deck.made->sections, 5U);  // three, and two tubes
}

} // namespace
} // namespace korvat::test
