// A group as JSON.
#pragma once

#include "group/group.hpp"

#include <string>

namespace korvat::exporting {

// One object on one line, in the form that docs/tools.md describes. Numbers read back as the same ones;
// where they are not finite, they are the texts "inf", "-inf" and "nan", as JSON has no such numbers.
[[nodiscard]] std::string group_json(const group::Group& group);

} // namespace korvat::exporting
