// Reads LOAD.09.
#pragma once

#include "group/group.hpp"
#include "group/records.hpp"

#include <optional>
#include <span>
#include <vector>

namespace korvat::group {

// Load vectors and, where the file is damaged, where and why: the vectors then are those before it, the
// last of them with the loads that could be read.
struct LoadReading {
    std::vector<LoadVector> vectors;
    std::optional<Damage> damage;
};

// The bytes of a LOAD.09. Raises nothing.
[[nodiscard]] LoadReading read_load(std::span<const char> file);

} // namespace korvat::group
