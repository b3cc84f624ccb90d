// Random FORMATs, items and number fields for the comparison with the runtime.
#pragma once

#include "fortran/item.hpp"

#include <deque>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

using Random = std::mt19937_64;

// A FORMAT of the grammar that the program uses: literals, blanks, slashes, colons, scale factors,
// groups, repeat counts and the descriptors a, i, f and e.
[[nodiscard]] std::string random_format(Random& random);

// A real that is likely to be edited or rounded wrongly: ties under every number of decimals, their
// neighbours, powers of two and of ten, denormals, zeros, what is not finite, and any bits.
[[nodiscard]] double random_real(Random& random);

// Items for a FORMAT, each of the kind that its descriptor takes: fewer or more than there are
// descriptors, or none. The texts stay where they are.
struct RandomItems {
    std::vector<fortran::Item> list;
    std::deque<std::string> texts;
};
[[nodiscard]] RandomItems random_items(Random& random, std::string_view kinds);

// The letters of the descriptors that `count` items go under; "" for a FORMAT without any.
[[nodiscard]] std::string descriptor_letters(std::string_view format, std::size_t count);

// A field of up to 50 characters that is a number, or is not quite one.
[[nodiscard]] std::string random_number_field(Random& random);

} // namespace korvat::test
