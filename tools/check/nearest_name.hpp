// The name that a misspelt one probably meant.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace korvat::check {

// How many letters must be put in, left out, changed or swapped with their neighbour to make `b` of `a`.
[[nodiscard]] std::size_t spelling_distance(std::string_view a, std::string_view b);

// The first of the nearest names; none where even that one differs in more than a third of its letters
// and does not begin with what was written.
[[nodiscard]] std::optional<std::string> nearest_name(std::string_view written,
                                                      std::span<const std::string> names);

} // namespace korvat::check
