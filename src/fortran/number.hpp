// Internal reads: numbers out of fixed-length texts, as the runtime converts them.
#pragma once

#include "fortran/text.hpp"

#include <optional>
#include <span>
#include <string_view>

namespace korvat::fortran {

// Converts a left-justified field as under the format "(f50.0)": what passes its 50 characters is not
// seen. The field must be one number from its first to its last non-blank character: an optional sign, digits with at most one point (at
// least one digit), and optionally an exponent: e, E, d or D, an optional sign, digits. Tabs and
// carriage returns before and after the number are passed over. Anything else, and a number that is
// too large for a double, gives nothing.
//
// The runtime's conversion is not correctly rounded; every number of a deck goes through it.
[[nodiscard]] std::optional<double> convert_number(std::string_view field);

// Reads integers from `text` with `format` into `values`, in order. False when one cannot be
// read; the values before it are stored, it and those after it are left as they were.
[[nodiscard]] bool read_integers(std::string_view text, std::string_view format,
                                 std::span<int> values);

} // namespace korvat::fortran
