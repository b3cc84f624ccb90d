// The items that a formatted write may carry; every other type is refused by the compiler.
#pragma once

#include "fortran/text.hpp"

#include <concepts>
#include <string_view>

namespace korvat::fortran {

// A text item of just these characters. Under `aw` it is cut to w or blank-padded on the right;
// under `a` it is written whole. The characters must outlive the write statement.
struct Characters {
    std::string_view text;
};

[[nodiscard]] constexpr Characters characters(std::string_view text) {
    return {text};
}

// A text item that `aw` right-justifies instead of left-justifying.
struct RightJustified {
    std::string_view text;
};

[[nodiscard]] constexpr RightJustified right_justified(std::string_view text) {
    return {text};
}

template <typename T>
inline constexpr bool is_fixed_text = false;
template <std::size_t N>
inline constexpr bool is_fixed_text<Text<N>> = true;

// The runtime drops a std::string silently and mistakes bool and float, so only these go through.
template <typename T>
concept Writable = std::same_as<T, int> || std::same_as<T, double> || std::same_as<T, Characters> ||
    std::same_as<T, RightJustified> || is_fixed_text<T>;

// One item on its way to a unit.
class Item {
public:
    enum class Kind { integer, real, text, right_text };

    Item(int value) : kind_(Kind::integer), integer_(value) {}
    Item(double value) : kind_(Kind::real), real_(value) {}
    Item(Characters value) : Item(Kind::text, value.text) {}
    Item(RightJustified value) : Item(Kind::right_text, value.text) {}
    template <std::size_t N>
    Item(const Text<N>& value) : Item(Kind::text, value.view()) {}
    template <typename T>
    Item(const T&) = delete;

    [[nodiscard]] Kind kind() const { return kind_; }
    [[nodiscard]] int integer() const { return integer_; }
    [[nodiscard]] double real() const { return real_; }
    [[nodiscard]] std::string_view text() const { return {text_, length_}; }

private:
    Item(Kind kind, std::string_view text)
        : kind_(kind), text_(text.data()), length_(text.size()) {}

    Kind kind_;
    union { // as the kind says
        int integer_;
        double real_;
        const char* text_;
    };
    std::size_t length_ = 0; // of a text
};

} // namespace korvat::fortran
