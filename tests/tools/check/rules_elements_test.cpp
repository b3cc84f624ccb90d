// The rules on elements, each with a deck that it speaks of and one just beside it.
#include "rule_fixture.hpp"

namespace korvat::test {
namespace {

// The sound deck with other numbers of elements in its segment types.
std::string with_elements(std::string_view first, std::string_view second, std::string_view third) {
    const auto line = [](std::string_view text, std::string_view count) {
        return std::string(text) + std::string(count) + "\n";
    };
    std::string deck = changed(sound_deck, line("  1  1      1    12.0    ", "12"),
                               line("  1  1      1    12.0    ", first));
    deck = changed(deck, line("  2  1      3    12.0    ", "12"),
                   line("  2  1      3    12.0    ", second));
    return changed(deck, line("  3  3      3    13.0    ", "10"),
                   line("  3  3      3    13.0    ", third));
}

TEST(ElementRules, LongElements) {
    const std::string rule = "element-long";
    const std::string deck = with_elements("2", "12", "10");
    EXPECT_EQ(found_by(rule, deck),
              (Findings{warning(rule, {26, 26, 1},
                                "the elements of segment type 1 are 6 long, 6 times the diameter 1",
                                "Give the segment at least 3 elements.")}));
    EXPECT_EQ(found_by(rule, changed(deck, "  1  1    1.0 ", "  1  1    1.19 ")).size(), 1U);
    EXPECT_EQ(found_by(rule, changed(deck, "  1  1    1.0 ", "  1  1    1.2 ")), Findings{});
}

TEST(ElementRules, ShortElements) {
    const std::string rule = "element-short";
    EXPECT_EQ(found_by(rule, with_elements("121", "12", "10")),
              (Findings{warning(rule, {26, 26, 3},
                                "the elements of segment type 1 are 0.0991736 long, 0.0992 times "
                                "the diameter 1",
                                "Give the segment at most 120 elements.")}));
    EXPECT_EQ(found_by(rule, with_elements("120", "12", "10")), Findings{});
}

TEST(ElementRules, SegmentShorterThanATenthOfTheDiameter) {
    const std::string deck = changed(
        changed(with_elements("1", "12", "10"), "  1  1      1    12.0 ", "  1  1      1    0.05 "),
        "  2  1      3    12.0 ", "  2  1      3    23.95 ");
    const std::string raked = changed(deck, "  3  3      3    13.0 ", "  3  3      3    24.95 ");
    const Findings found = found_by("element-short", raked);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().remedy,
              "Join the segment with its neighbour, unless it is as short as that.");
}

TEST(ElementRules, OneElementForALongPile) {
    const std::string rule = "element-single";
    const auto with_count = [](const std::string& count) {
        std::string deck =
            changed(sound_deck, "  3  3      3    13.0    10", "  3  3      3    25.0    " + count);
        deck = changed(deck, "  4  2     1 3", "  4  1     3");
        return changed(deck, "  4   4   3   7   3 ", "  4   4   1   2   3 ");
    };
    EXPECT_EQ(found_by(rule, with_count("1")),
              (Findings{warning(rule, {39, 12, 1},
                                "pile 4 is 25 long, 25 times its diameter, and has one element",
                                "Give segment type 3 at least 5 elements.")}));
    EXPECT_EQ(found_by("element-long", with_count("1")), Findings{});
    EXPECT_EQ(found_by(rule, with_count("2")), Findings{});
    EXPECT_EQ(found_by("element-long", with_count("2")).size(), 1U);
}

TEST(ElementRules, Neighbours) {
    const std::string rule = "element-neighbours";
    EXPECT_EQ(found_by(rule, with_elements("12", "12", "4")),
              (Findings{warning(rule, {39, 14, 1},
                                "in pile 4 elements of 1 (segment type 1) meet elements of 3.25 "
                                "(segment type 3), a ratio of 3.25",
                                "Change the numbers of elements until neighbours differ by no more "
                                "than 3.")}));
    // 12 / 37 and 13 / 13: a ratio of 3.08; 12 / 36 and 13 / 13: 3
    EXPECT_EQ(found_by(rule, with_elements("37", "13", "13")).size(), 1U);
    EXPECT_EQ(found_by(rule, with_elements("36", "12", "13")), Findings{});
}

TEST(ElementRules, ManyElements) {
    const std::string rule = "elements-many";
    // 24 / 201 = 0.1194; elements of 0.5 m make 48
    EXPECT_EQ(found_by(rule, with_elements("100", "101", "100")),
              (Findings{note(rule, {38, 6, 1},
                             "pile 2 has 201 elements, on average 0.119 times the diameter long",
                             "Elements of half a diameter would do: they make 48.")}));
    EXPECT_EQ(found_by(rule, with_elements("100", "100", "100")), Findings{});
    // 24 / 201 is 0.249 times 0.48 and 0.254 times 0.47.
    const auto with_diameter = [](const std::string& diameter) {
        std::string slim = with_elements("100", "101", "100");
        for (const std::string section : {"  1  1    ", "  2  1    ", "  3  1    "})
            slim = changed(slim, section + "1.0 ", section + diameter + " ");
        return slim;
    };
    EXPECT_EQ(found_by(rule, with_diameter("0.48")).size(), 1U);
    EXPECT_EQ(found_by(rule, with_diameter("0.47")), Findings{});
}

TEST(ElementRules, StepThroughOtherSections) {
    const std::string rule = "step-through-others";
    const std::string remedy = "Number the sections so that those between the two fit, or use a "
                               "segment type for each.";
    EXPECT_EQ(found_by(rule, changed(sound_deck, "  2  1    1.0 ", "  2  1    1.2 ")),
              (Findings{warning(rule, {27, 13, 1},
                                "segment type 2 steps from section 1 to 3 by way of section 2, "
                                "whose diameter 1.2 is not between theirs, 1 and 1",
                                remedy)}));
    // EI of a wall of 31.7 mm is 5.12 % above that of 30 mm, of 31.63 mm 4.91 %.
    const std::string wall = "  2  1    1.0       ";
    EXPECT_EQ(found_by(rule, changed(sound_deck, wall + "0.025", wall + "0.0317")),
              (Findings{warning(rule, {27, 13, 1},
                                "segment type 2 steps from section 1 to 3 by way of section 2, "
                                "whose bending stiffness 2.37593E6 is not between theirs, "
                                "2.26012E6 and 1.55299E6",
                                remedy)}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, wall + "0.025", wall + "0.03163")), Findings{});
}

TEST(ElementRules, JumpOfStiffness) {
    const std::string rule = "stiffness-jump";
    const std::string wall = "  3  1    1.0       ";
    EXPECT_EQ(
        found_by(rule, changed(sound_deck, wall + "0.020", wall + "0.00274")),
        (Findings{warning(rule, {39, 14, 1},
                          "in pile 4 the bending stiffness changes from 2.26012E6 to "
                          "224108, a ratio of 10.1, where segment type 3 follows type 1",
                          "Check the sections of both, and the order of the segment types.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, wall + "0.020", wall + "0.0028")), Findings{});
}

} // namespace
} // namespace korvat::test
