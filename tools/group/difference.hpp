// How two groups differ, in the field's terms.
#pragma once

#include "group/group.hpp"

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

namespace korvat::group {

// Two values differ when |a - b| > absolute + relative max(|a|, |b|). Infinities and values that are no
// numbers differ from all others, whatever the tolerance. Only reals have a tolerance: numbers of sections,
// codes, counts and labels do not.
struct Tolerance {
    double absolute = 0.0; // in the unit of each value
    double relative = 0.0;
};

enum class Subject { group, section, pile, load_vector };

// None where a group does not have it.
using Value = std::variant<std::monostate, int, double, std::string>;

// A value that differs. Of values that a pile has at each node or element, a load vector in each load and a
// section at each point, all that differ are one difference: the largest of them, of integers the first, and how many there are.
struct Difference {
    Subject subject = Subject::group;
    int number = 0;       // of the section, pile or load vector, from 1; 0 of the group
    std::string quantity; // such as "wall" or "tip x"; empty where the subject is in one group only
    std::string unit;     // in F and L; empty where there is none
    Value a;
    Value b;
    std::string
        place; // of the largest: "node", "element", "load" or "point"; empty for a single value
    int place_number = 0;  // from 1
    std::size_t count = 1; // how many differ

    bool operator==(const Difference&) const = default;
};

// Sections, piles and load vectors are matched by their numbers. Where two piles have the same number of
// elements, these and their nodes are matched by theirs; otherwise head, tip, length, the order of the sections, the totals of
// springs and forces and the largest soil displacements are compared. Load vectors with different numbers of
// loads are compared by their totals. What only revision 5 has is compared where both groups are of it.
// Empty when nothing differs.
[[nodiscard]] std::vector<Difference> differences(const Group& a, const Group& b,
                                                  const Tolerance& tolerance = {});

} // namespace korvat::group
