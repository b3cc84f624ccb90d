// Decks of random pile groups, and what is known of every pile from the way it was made.
#pragma once

#include <array>
#include <random>
#include <string>
#include <vector>

namespace korvat::test {

struct RandomPile {
    int source = 0; // the pile that it is a copy or a mirror of; 0: it has segments of its own
    int mirror = 0; // 1: in y, 2: in x
    bool omitted = false;
    std::array<double, 3> head{}; // of a copy: the shift
    std::array<double, 3> tip{};
    std::vector<int> segments; // none: a dummy pile, unless it has a source
    int elements = 0;
    double segment_sum = 0.0;
};

struct RandomGroup {
    int first_pile = 0;
    int last_pile = 0;
    int original = 0; // the first pile of the group that this one mirrors; 0: it is no mirror
    int mirror = 0;
};

struct RandomDeck {
    std::string text; // revision 4
    std::vector<RandomPile> piles;
    std::vector<RandomGroup> groups;
};

// As many groups of 1 to 12 piles as surely fit into one deck: given piles with one to five
// segments, dummy piles, omitted piles, copies and mirrors; behind some small groups, their mirrors.
RandomDeck random_deck(std::mt19937& engine);

} // namespace korvat::test
