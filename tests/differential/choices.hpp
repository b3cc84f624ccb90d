// FORMATs, items and number fields for the comparison with the runtime, made by choices.
#pragma once

#include "fortran/item.hpp"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

// Where the choices come from: a random generator, or the bytes of a fuzzer.
class Choices {
public:
    virtual ~Choices() = default;

    // A number from 0 to count - 1.
    virtual std::uint64_t below(std::uint64_t count) = 0;

    virtual std::uint64_t any_bits() = 0;
};

// A FORMAT of the grammar that the program uses: literals, blanks, slashes, colons, scale factors,
// groups, repeat counts and the descriptors a, i, f and e.
[[nodiscard]] std::string chosen_format(Choices& choices);

// A real that is likely to be edited or rounded wrongly: ties under every number of decimals, their
// neighbours, powers of two and of ten, denormals, zeros, what is not finite, and any bits.
[[nodiscard]] double chosen_real(Choices& choices);

// Items for a FORMAT, each of the kind that its descriptor takes: fewer or more than there are
// descriptors, or none. The texts stay where they are.
struct Items {
    std::vector<fortran::Item> list;
    std::deque<std::string> texts;
};
[[nodiscard]] Items chosen_items(Choices& choices, std::string_view kinds);

// The letters (a, i, f, e) of the descriptors that `count` items go under; "" for a FORMAT without any.
[[nodiscard]] std::string descriptor_letters(std::string_view format, std::size_t count);

// A field of up to 50 characters that is a number, or is not quite one.
[[nodiscard]] std::string chosen_number_field(Choices& choices);

} // namespace korvat::test
