// The door's editing and reading of numbers beside the runtime's own.
#pragma once

#include "fortran/item.hpp"

#include <span>
#include <string>
#include <string_view>

namespace korvat::test {

// Both texts where the door writes another one than the runtime; "" where they are equal.
[[nodiscard]] std::string difference_in_writing(std::string_view format,
                                                std::span<const fortran::Item> items);

struct ReadComparison {
    bool is_number = false; // for the door
    std::string difference; // "" where there is none
};

// What the door takes for a number, the runtime must take for the same one, to the last bit. The
// door refuses what has not the form of a number; whatever else it refuses, the runtime must refuse
// or read as an infinity.
[[nodiscard]] ReadComparison compare_reading(std::string_view field);

} // namespace korvat::test
