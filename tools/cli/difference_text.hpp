// Differences of two groups for a reader, and for a program.
#pragma once

#include "group/difference.hpp"

#include <string>
#include <vector>

namespace korvat::cli {

// A line for each difference: "section 3: wall 0.05 -> 0.045". Numbers have six digits, or as many more as
// it takes to tell them apart.
[[nodiscard]] std::string differences_text(const std::vector<group::Difference>& differences);

// One object on one line, in the form that docs/tools.md describes.
[[nodiscard]] std::string differences_json(const std::vector<group::Difference>& differences,
                                           const group::Tolerance& tolerance);

} // namespace korvat::cli
