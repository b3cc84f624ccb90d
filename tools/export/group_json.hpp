// A group as JSON.
#pragma once

#include "group/group.hpp"

#include <string>
#include <vector>

namespace korvat::exporting {

// One object on one line, in the form that docs/tools.md describes. Numbers read back as the same ones;
// where they are not finite, they are the texts "inf", "-inf" and "nan", as JSON has no such numbers.
[[nodiscard]] std::string group_json(const group::Group& group);

// Load vectors alone, in the same form.
[[nodiscard]] std::string load_vectors_json(const std::vector<group::LoadVector>& vectors);

} // namespace korvat::exporting
