// A group and its load vectors as tables for a reader.
#pragma once

#include "group/group.hpp"

#include <string>
#include <vector>

namespace korvat::cli {

// Sections, curves, piles with nodes, node values and elements; each column has its unit. Without the load
// vectors.
[[nodiscard]] std::string group_text(const group::Group& group);

[[nodiscard]] std::string load_vectors_text(const std::vector<group::LoadVector>& vectors);

} // namespace korvat::cli
