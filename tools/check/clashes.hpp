// Piles that are nearer to each other than their walls allow.
#pragma once

#include "check/clearance.hpp"

#include <array>
#include <vector>

namespace korvat::check {

using Point = std::array<double, 3>;

// Of any pile, a dummy one too.
[[nodiscard]] Point head_of(const group::Pile& pile);
[[nodiscard]] Point tip_of(const group::Pile& pile);

// Whether ends of two piles with elements are one point beside the sizes of the piles.
[[nodiscard]] bool heads_coincide(const group::Pile& a, const group::Pile& b);
[[nodiscard]] bool tips_coincide(const group::Pile& a, const group::Pile& b);

struct Clash {
    int first_pile = 0; // the lower number
    int second_pile = 0;
    Clearance clearance; // its gap is below 0
};

// In the order of the numbers. Piles with the same head and tip are none: they are one pile given twice.
// Nor are those that start from one head and part.
[[nodiscard]] std::vector<Clash> clashes(const group::Group& group);

// Calls `look` for each two piles with elements, in the order of their numbers.
template <typename Look>
void each_pair(const group::Group& group, const Look& look) {
    const auto& piles = group.piles;
    for (std::size_t i = 0; i < piles.size(); ++i) {
        for (std::size_t j = i + 1; j < piles.size(); ++j) {
            if (!piles[i].is_dummy() && !piles[j].is_dummy()) look(piles[i], piles[j]);
        }
    }
}

} // namespace korvat::check
