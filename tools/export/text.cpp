#include "export/text.hpp"

#include "text/utf8.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace korvat::exporting {

std::string number_text(double value) {
    if (std::isnan(value)) return "nan"; // its sign means nothing
    std::array<char, 32> text{};         // the longest one has 24 characters
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return {text.data(), end};
}

std::string utf8_text(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t length = text::character_length(text);
        result += length == 0 ? std::string_view("\xEF\xBF\xBD") : text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

} // namespace korvat::exporting
