// Text that any terminal and any reader of JSON can take.
#include "check/format.hpp"

#include "text/utf8.hpp"

namespace korvat::check {
namespace {

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
        const std::size_t length = text::character_length(text);
        const std::string_view character = text.substr(0, length);
        shown += length == 0 || is_control(character) ? std::string_view("?") : character;
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return shown;
}

} // namespace korvat::check
