// Decks with named places.
#include "study/deck_template.hpp"

#include "support/scratch_directory.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using study::DeckTemplate;
using study::Row;
using study::StudyError;

std::string filled(const std::string& text, const Row& row) {
    try {
        return DeckTemplate(text, "t.inp").deck(row);
    } catch (const StudyError& error) {
        return error.what();
    }
}

// The jacket, a deck of revision 4, with one text for another.
std::string jacket_with(const std::string& text, const std::string& other) {
    std::string deck =
        read_whole_file(std::filesystem::path(KORVAT_EXAMPLES_DIR) / "jacket" / "KORVAT.INP");
    const std::size_t at = deck.find(text);
    EXPECT_NE(at, std::string::npos);
    return deck.replace(at, text.size(), other);
}

TEST(StudyTemplate, PutsValuesIntoTheirPlaces) {
    EXPECT_EQ(filled("wall {wall}, inside {d-2*wall:8.3f}\n", {{"wall", "0.050"}, {"d", "1.5"}}),
              "wall 0.050, inside    1.400\n"); // the text of the table, and a number
    EXPECT_EQ(filled("{name:6}|\n", {{"name", "clay"}}), "  clay|\n");
    EXPECT_EQ(filled("{{a}} {a}\n", {{"a", "1"}}), "{a} 1\n");
    EXPECT_EQ(filled("no place\n", {}), "no place\n");
    EXPECT_EQ(filled("{a}{a}", {{"a", "1"}}), "11");
}

TEST(StudyTemplate, NamesWhatItsPlacesTake) {
    EXPECT_EQ(DeckTemplate("{b} {a+b}\n{c:4}", "t.inp").names(),
              (std::vector<std::string>{"b", "a", "c"}));
}

TEST(StudyTemplate, RefusesPlacesThatAreNone) {
    EXPECT_EQ(filled("a\n{b\n}", {}),
              "t.inp:2: a brace is not closed on its line; write {{ for one");
    EXPECT_EQ(filled("a\nb}\n", {}),
              "t.inp:2: a brace is closed that is not open; write }} for one");
    EXPECT_EQ(filled("{a{b}}", {}), "t.inp:1: a brace is not closed on its line; write {{ for one");
    EXPECT_EQ(filled("{}", {}),
              "t.inp:1: '' is no expression: a name or a number is missing at its end");
    EXPECT_EQ(filled("\n\n{a:q}", {}).substr(0, 26), "t.inp:3: ':q' is no format");
}

TEST(StudyTemplate, RefusesValuesThatAreNone) {
    EXPECT_EQ(filled("x\n{a+1}", {{"a", "clay"}}),
              "t.inp:2: {a+1}: a is 'clay', which is no number");
    EXPECT_EQ(filled("{a:4.1f}", {{"a", "1000"}}),
              "t.inp:1: {a:4.1f}: '1000.0' is wider than the 4 columns of its format");
    EXPECT_EQ(filled("{a}", {{"a", "two\nlines"}}), "t.inp:1: {a}: the value has several lines");
    EXPECT_EQ(filled("{a*1}", {{"a", "0,05"}}), "t.inp:1: {a*1}: a is '0,05', which is no number");
}

TEST(StudyTemplate, RefusesNumbersBeyondTheColumnsThatAreRead) {
    const std::string section = "  1   1    1.524     0.050    0.   0.   0.   0.   10.05";
    // The fluid's weight ends in column 80 with 28 digits, in 81 with 29.
    const std::string deck =
        jacket_with(section, "  1   1    1.524     0.050    0.   0.   0.   0.   {w}");
    const std::size_t column =
        std::string("  1   1    1.524     0.050    0.   0.   0.   0.   ").size();
    const std::string fitting = "10." + std::string(80 - column - 3, '0');
    EXPECT_EQ(filled(deck, {{"w", fitting}}).substr(0, 15), "Jacket platform");
    EXPECT_EQ(filled(deck, {{"w", fitting + "0"}}),
              "t.inp:24: '" + fitting +
                  "0' ends in column 81, beyond the last one that is read of this line");
    // Behind a remark nothing is read.
    EXPECT_EQ(
        filled(jacket_with(section, section + "  remark {w}"), {{"w", fitting}}).substr(0, 15),
        "Jacket platform");
    // A comment may be as long as it likes, the label has 80 characters.
    EXPECT_EQ(
        filled(jacket_with("* G = E", "* {w} G = E"), {{"w", std::string(90, '1')}}).substr(0, 6),
        "Jacket");
    EXPECT_EQ(filled(jacket_with("Jacket platform", "{w}"), {{"w", std::string(50, 'x')}}),
              "t.inp:1: 'm' ends in column 94, beyond the last one that is read of this line");
}

} // namespace
} // namespace korvat::test
