// All rules of the checker by their groups and names.
#pragma once

#include "check/rule.hpp"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::check {

// In the order in which they are looked at. The first three groups say why a run fails.
[[nodiscard]] std::vector<std::span<const Rule>> rule_groups();

[[nodiscard]] std::vector<const Rule*> all_rules();

[[nodiscard]] const Rule* rule_named(std::string_view name); // null where there is none

// What to say of a name that no rule has, with the one that was probably meant.
[[nodiscard]] std::string unknown_rule(std::string_view name);

} // namespace korvat::check
