// The piles that load vectors load.
#pragma once

#include "group/group.hpp"

#include <optional>
#include <string>

namespace korvat::exporting {

// The pile of that number; nullptr where there is none.
[[nodiscard]] const group::Pile* find_pile(const group::Group& group, int number);

// The first load on a pile that the group does not have, in words: the load vectors then belong to
// another group.
[[nodiscard]] std::optional<std::string> stray_load(const group::Group& group);

} // namespace korvat::exporting
