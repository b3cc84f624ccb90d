// Text that any terminal and any reader of JSON can take.
#include "check/format.hpp"

namespace korvat::check {
namespace {

// The bytes of the character in UTF-8 that a text begins with; 0 where it begins with none.
std::size_t character_length(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned first = byte(0);
    if (first < 0x80) return 1;
    std::size_t length = 0;
    if (first >= 0xC2 && first <= 0xDF) length = 2;
    if (first >= 0xE0 && first <= 0xEF) length = 3;
    if (first >= 0xF0 && first <= 0xF4) length = 4;
    if (length == 0 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U) return 0;
    }
    const unsigned second = byte(1); // too long a form, half a pair, or beyond the last character
    if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F)) return 0;
    if ((first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F)) return 0;
    return length;
}

// Codes below the blank and their like from 80 to 9F hexadecimal, in UTF-8.
bool is_control(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    if (character.size() == 1) return (first < 0x20 && first != '\t') || first == 0x7F;
    return first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
}

} // namespace

std::string printable(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const std::size_t length = character_length(text);
        const std::string_view character = text.substr(0, length);
        shown += length == 0 || is_control(character) ? std::string_view("?") : character;
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return shown;
}

} // namespace korvat::check
