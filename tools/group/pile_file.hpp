// Reads PILE.07.
#pragma once

#include "group/group.hpp"
#include "group/records.hpp"

#include <optional>
#include <span>

namespace korvat::group {

// A group and, where its file is damaged, where and why: the group then has what stands before that, each
// pile whole; its sections have no types and tubes where the damage is before these, no curves where it is
// before the curves.
struct GroupReading {
    Group group;
    std::optional<Damage> damage;
};

// The bytes of a PILE.07 of either revision, which is known by the first record. Raises nothing.
[[nodiscard]] GroupReading read_pile(std::span<const char> file);

} // namespace korvat::group
