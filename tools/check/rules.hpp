// All rules of the checker.
#pragma once

#include "check/rule.hpp"

#include <vector>

namespace korvat::check {

// In the order of their groups; no two have the same name.
[[nodiscard]] std::vector<Rule> all_rules();

} // namespace korvat::check
