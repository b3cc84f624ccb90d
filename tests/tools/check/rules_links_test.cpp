// The rules on links and values, each with a deck that it speaks of and one just beside it.
#include "rule_fixture.hpp"

namespace korvat::test {
namespace {

const std::string first_fix = "  1   1    0    0\n";
const std::string second_fix = "  2   4    0    1\n";

std::string with_fixing(const std::string& records) {
    return changed(sound_deck, first_fix + second_fix, records);
}

TEST(LinkRules, FixedToItself) {
    const std::string rule = "fixed-to-itself";
    EXPECT_EQ(found_by(rule, with_fixing("  1   4    0    1\n")),
              (Findings{warning(rule, {41, 17, 1},
                                "piles 1 to 4 are fixed to pile 1: pile 1 is fixed to itself",
                                "Give pile 1 a record of its own with 0.")}));
    EXPECT_EQ(found_by(rule, sound_deck), Findings{});
}

TEST(LinkRules, FixedToAPileWithElements) {
    const std::string rule = "fixed-to-pile";
    const auto deck = [](const std::string& code, const std::string& target) {
        return with_fixing(first_fix + "  2   3    0    1\n  4   4    " + code + "    " + target +
                           "\n");
    };
    EXPECT_EQ(found_by(rule, deck("0", "3")),
              (Findings{warning(rule, {43, 17, 1},
                                "pile 4 is fixed to pile 3, which has 24 elements and is no dummy "
                                "pile",
                                "Fix them to a dummy pile; only for a negative tip code does the "
                                "program check it.")}));
    EXPECT_EQ(found_by(rule, deck("0", "1")), Findings{});
    EXPECT_EQ(found_in_refused(rule, deck("-1", "3")), Findings{});
}

TEST(LinkRules, FixedInACircle) {
    const std::string rule = "fixed-in-circle";
    const auto deck = [](const std::string& target_of_1) {
        std::string two_caps =
            with_fixing("  1   1    0    " + target_of_1 + "\n  2   4    0    1\n");
        two_caps = changed(two_caps, "  4  0   0    3.0  -2.0 0.0   10.0 -2.0 24.0",
                           "  4  0   0    3.0  -2.0 0.0   3.0  -2.0 0.0");
        two_caps = changed(two_caps, "  4  2     1 3\n", "  4  0\n");
        return changed(two_caps, "  4   4   3   7   3 ", "  4   4   1   1   2 ");
    };
    EXPECT_EQ(found_by(rule, deck("4")),
              (Findings{warning(rule, {41, 17, 1},
                                "the piles are fixed in a circle: pile 1 to pile 4 to pile 1",
                                "Fix one of them to none: give it 0.")}));
    EXPECT_EQ(found_by(rule, deck("0")), Findings{});
}

TEST(LinkRules, UnusedDummy) {
    const std::string rule = "dummy-unused";
    EXPECT_EQ(found_by(rule, with_fixing("  1   4    0    0\n")),
              (Findings{warning(rule, {32, 3, 1}, "no pile is fixed to the dummy pile 1",
                                "Fix its piles to it in the tip/fix table, or leave it out.")}));
    EXPECT_EQ(found_by(rule, with_fixing("  1   3    0    0\n  4   4    0    1\n")), Findings{});
    // A pile that lacks its segments is no dummy pile.
    const std::string with_tip =
        changed(with_fixing("  1   4    0    0\n"), "  1  0   0    0.0  0.0  -1.0  0.0  0.0  -1.0",
                "  1  0   0    0.0  0.0  -1.0  0.0  0.0   5.0");
    EXPECT_EQ(found_by(rule, with_tip), Findings{});
}

TEST(LinkRules, CopyFixedOtherwise) {
    const std::string rule = "copy-fixed-otherwise";
    const std::string remedy = "Fix it like its source: the fixing is not taken over from there.";
    const std::string message =
        "pile 3 is a mirror of pile 2 and fixed to none, its source to pile 1";
    EXPECT_EQ(
        found_by(rule, with_fixing(first_fix +
                                   "  2   2    0    1\n  3   3    0    0\n  4   4    0    1\n")),
        (Findings{warning(rule, {43, 17, 1}, message, remedy)}));
    EXPECT_EQ(found_by(rule, with_fixing(first_fix + "  2   2    0    1\n  4   4    0    1\n")),
              (Findings{warning(rule, {34, 3, 1}, message, remedy)}));
    EXPECT_EQ(found_by(rule, with_fixing(first_fix + "  2   3    0    1\n  4   4    0    0\n")),
              Findings{});
}

TEST(LinkRules, TipCodeOfACopy) {
    const std::string rule = "copy-tip-code";
    EXPECT_EQ(
        found_by(rule, with_fixing(first_fix + "  2   2    1    1\n  3   4    0    1\n")),
        (Findings{note(rule, {43, 12, 1},
                       "pile 3 is a mirror of pile 2 and has the tip code 0, its source 1",
                       "Give it the code of its source, if the tips are alike: it is not taken "
                       "over from there.")}));
    EXPECT_EQ(found_by(rule, with_fixing(first_fix + "  2   3    1    1\n  4   4    0    1\n")),
              Findings{});
}

TEST(LinkRules, NodesThatAreMissing) {
    const std::string rule = "node-missing";
    const auto to_node = [](const std::string& node) {
        return changed(sound_deck, "  2   3   1   5   4 ", "  2   3   1   " + node + "  4 ");
    };
    EXPECT_EQ(
        found_in_refused(rule, to_node("26")),
        (Findings{warning(rule, {47, 15, 2}, "the values go to node 26, but pile 2 has 25 nodes",
                          "End the range of nodes at 25, or give that pile a record of its "
                          "own.")}));
    EXPECT_EQ(found_by(rule, to_node("25")), Findings{});
    EXPECT_EQ(
        found_in_refused(rule, changed(sound_deck, "  1   1   1   1   1 ", "  1   1   1   2   1 ")),
        (Findings{warning(rule, {46, 15, 1}, "the values go to node 2, but pile 1 has one node",
                          "End the range of nodes at 1, or give that pile a record of its "
                          "own.")}));
}

const std::string springs = "  1   1   1   1   1     100.0 100.0 0.0  0.0 0.0 50.0\n";
const std::string no_springs = "  1   1   1   1   1     0.0 0.0 0.0  0.0 0.0 0.0\n";

TEST(LinkRules, SpringsOfZero) {
    const std::string rule = "spring-zero";
    EXPECT_EQ(found_by(rule, changed(sound_deck, springs, no_springs)),
              (Findings{warning(rule, {46, 25, 3}, "the springs of pile 1 are all 0",
                                "Give their stiffnesses, or leave the record out.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, "100.0 100.0 0.0  0.0 0.0 50.0",
                                     "0.0 0.0 0.0  0.0 0.0 0.1")),
              Findings{});
    // Zeros that take earlier values back are meant.
    EXPECT_EQ(found_by(rule, changed(sound_deck, springs, springs + no_springs)), Findings{});
}

TEST(LinkRules, NodeValuesOfZero) {
    const std::string rule = "node-value-zero";
    EXPECT_EQ(
        found_by(rule, changed(sound_deck, "     15.0 0.0", "     0.0  0.0")),
        (Findings{warning(rule, {47, 25, 3}, "the node values of code 4 of piles 2 to 3 are all 0",
                          "Give the values, or leave the record out.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, springs, no_springs)), Findings{});
}

TEST(LinkRules, ReplacedNodeValues) {
    const std::string rule = "node-value-replaced";
    const auto with_record = [](const std::string& record) {
        return changed(sound_deck, "  4   4   3   7   3 ", record + "  4   4   3   7   3 ");
    };
    EXPECT_EQ(found_by(rule, with_record("  2   2   5   8   4     10.0 0. 0.  0. 0. 0.\n")),
              (Findings{warning(rule, {48, 3, 1},
                                "the values of code 4 for pile 2, nodes 5 to 8 replace values of "
                                "line 47 where both apply",
                                "Give the sum if both are meant: they are not added.")}));
    for (const std::string record : {"  2   2   6   8   4     10.0 0. 0.  0. 0. 0.\n",
                                     "  4   4   5   8   4     10.0 0. 0.  0. 0. 0.\n",
                                     "  2   2   5   8   2     10.0 0. 0.  0. 0. 0.\n",
                                     "  2   2   5   8   4     0.   0. 0.  0. 0. 0.\n"})
        EXPECT_EQ(found_by(rule, with_record(record)), Findings{}) << record;
}

TEST(LinkRules, TemperatureOfAComposite) {
    const std::string rule = "composite-temperature";
    const std::string deck = changed(sound_deck_5(), "     1.8E-4 ", "     15.0   ");
    EXPECT_EQ(found_by(rule, deck),
              (Findings{warning(rule, word_of(deck, "  2    3    1   5    4 ", 6),
                                "element 1 of pile 2 is of composite section 1 and gets the "
                                "temperature strain 15: it takes the node values themselves",
                                "Give the nodes of composites the strain, such as 15 times "
                                "1.2E-5.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck_5(), "     1.8E-4 ", "     0.0101 ")).size(), 1U);
    EXPECT_EQ(found_by(rule, changed(sound_deck_5(), "     1.8E-4 ", "     0.01   ")), Findings{});
}

TEST(LinkRules, ValuesBehindATemperature) {
    const std::string rule = "temperature-ignored";
    EXPECT_EQ(found_by(rule, changed(sound_deck, "     15.0 0.0", "     15.0 5.0")),
              (Findings{warning(rule, {47, 30, 3}, "value 2 of a temperature, 5, is not used",
                                "Give the temperature as value 1 and zeros behind it; check the "
                                "code 4.")}));
    EXPECT_EQ(found_by(rule, sound_deck), Findings{});
}

TEST(LinkRules, LargeDisplacement) {
    const std::string rule = "displacement-large";
    const auto with_values = [](const std::string& values) {
        return changed(sound_deck, "     0.03 0.0 0.0  0.0 ", "     " + values + " ");
    };
    EXPECT_EQ(found_by(rule, with_values("5.1 0.0 0.0  0.0")),
              (Findings{warning(rule, {48, 25, 3},
                                "the soil displacement 5.1 of pile 4 is 5.1 times the largest "
                                "diameter of the piles",
                                "Give it in the length unit of the deck.")}));
    EXPECT_EQ(
        found_by(rule, with_values("5.0 0.0 0.0  0.6")),
        (Findings{warning(rule, {48, 38, 3}, "the rotation 0.6 of pile 4 is more than 0.5 radians",
                          "Give rotations in radians.")}));
    EXPECT_EQ(found_by(rule, with_values("5.0 0.0 0.0  0.5")), Findings{});
}

TEST(LinkRules, LoadOnAFreeDummy) {
    const std::string rule = "load-on-free-dummy";
    const std::string message =
        "the dummy pile 1 is loaded, but no pile is fixed to it and it has no springs";
    const std::string remedy = "Fix its piles to it, or load another pile.";
    const std::string free = changed(with_fixing("  1   4    0    0\n"), springs, no_springs);
    EXPECT_EQ(found_by(rule, free), (Findings{warning(rule, {55, 3, 1}, message, remedy)}));
    EXPECT_EQ(found_by(rule, with_fixing("  1   4    0    0\n")), Findings{}) << "springs hold it";
    EXPECT_EQ(found_by(rule, changed(sound_deck, springs, no_springs)), Findings{});
    const std::string force = "  1   1   1   1   2     5.0 0.0 0.0  0.0 0.0 0.0\n";
    const std::string by_node = changed(with_fixing("  1   4    0    0\n"), springs, force);
    EXPECT_EQ(found_by(rule, by_node).front(), warning(rule, {45, 3, 1}, message, remedy));
}

TEST(LinkRules, LoadOnAFreePile) {
    const std::string rule = "load-on-free-pile";
    const auto deck = [](const std::string& fixing) {
        return changed(with_fixing(fixing), "  1    400.0 ", "  4    400.0 ");
    };
    EXPECT_EQ(found_by(rule, deck(first_fix + "  2   3    0    1\n  4   4    0    0\n")),
              (Findings{note(rule, {57, 3, 1},
                             "pile 4 is loaded and fixed to no other pile: it takes its loads "
                             "alone",
                             "Check that its head is meant to be free.")}));
    EXPECT_EQ(found_by(rule, deck(first_fix + second_fix)), Findings{});
    EXPECT_EQ(found_by(rule, deck("  1   4    0    0\n")), Findings{}) << "nothing is joined";
}

const std::string load = "  1    400.0  0.0   50.0   0.0    -600.0 0.0\n";

TEST(LinkRules, LoadVectorOfZeros) {
    const std::string rule = "load-vector-zero";
    EXPECT_EQ(found_by(rule, changed(sound_deck, load, "  1  0. 0. 0. 0. 0. 0.\n")),
              (Findings{warning(rule, {53, 3, 1}, "all loads of vector 1 are 0",
                                "Give its loads, or leave the vector out.")}));
    EXPECT_EQ(
        found_by(rule, changed(sound_deck, "  1.5     load factor", "  0.0     load factor")),
        (Findings{warning(rule, {54, 3, 3}, "the load factor of vector 1 is 0: all its loads are 0",
                          "Give the factor; 1.0 takes the loads as they stand.")}));
    EXPECT_EQ(found_by(rule, changed(sound_deck, load, "  1  0. 0. 0. 0. 0. 0.1\n")), Findings{});
}

TEST(LinkRules, RepeatedLoad) {
    const std::string rule = "load-repeated";
    const auto with_second = [](const std::string& second) {
        return changed(changed(sound_deck, "  1       loaded piles", "  2       loaded piles"),
                       load, load + second);
    };
    EXPECT_EQ(
        found_by(rule, with_second(load)),
        (Findings{warning(rule, {57, 3, 1}, "vector 1 loads pile 1 twice with the same values",
                          "Take one record out, unless both are meant: both are written.")}));
    EXPECT_EQ(found_by(rule, with_second("  1    400.0  0.0   50.0   0.0    -600.0 0.1\n")),
              Findings{});
    EXPECT_EQ(found_by(rule, with_second("  2    400.0  0.0   50.0   0.0    -600.0 0.0\n")),
              Findings{});
}

} // namespace
} // namespace korvat::test
