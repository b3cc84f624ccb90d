// Characters in UTF-8.
#pragma once

#include <cstddef>
#include <string_view>

namespace korvat::text {

// The bytes of the character that a text begins with; 0 where it begins with none: overlong forms, halves of
// pairs and what lies behind the last plane are none. The text is not empty.
[[nodiscard]] std::size_t character_length(std::string_view text);

// Whether a byte is one behind the first of a character.
[[nodiscard]] constexpr bool is_continuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

} // namespace korvat::text
