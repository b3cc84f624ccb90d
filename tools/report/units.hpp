// The units of the page's values.
#pragma once

#include "check/substances.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace korvat::report {

// Of force and length; none where they cannot be made out, and values are as given.
struct Units {
    std::optional<std::string> force;
    std::optional<std::string> length;
};

// The units behind the factors: those of the deck's numbers, divided by the factors, where that is a unit
// of a common name.
[[nodiscard]] Units stored_units(const std::optional<check::UnitSystem>& deck, double force_factor,
                                 double length_factor);

// A unit in F and L, such as "F/L2", in words of these units: "kN/m²". Empty for "-".
[[nodiscard]] std::string unit_text(std::string_view unit, const Units& units);

} // namespace korvat::report
