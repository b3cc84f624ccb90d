#include "text/utf8.hpp"

#include <algorithm>
#include <array>

namespace korvat::text {
namespace {

struct Range {
    unsigned char first;
    unsigned char last;

    [[nodiscard]] bool has(char c) const {
        const auto byte = static_cast<unsigned char>(c);
        return first <= byte && byte <= last;
    }
};

// Characters by their first byte: what the second may be, and how many bytes there are. The second
// byte excludes overlong forms, surrogates and what lies behind the last plane.
struct Form {
    Range first;
    Range second;
    std::size_t length;
};

constexpr Range following{0x80, 0xBF};
constexpr std::array forms{
    Form{{0x00, 0x7F}, following, 1},    Form{{0xC2, 0xDF}, following, 2},
    Form{{0xE0, 0xE0}, {0xA0, 0xBF}, 3}, Form{{0xE1, 0xEC}, following, 3},
    Form{{0xED, 0xED}, {0x80, 0x9F}, 3}, Form{{0xEE, 0xEF}, following, 3},
    Form{{0xF0, 0xF0}, {0x90, 0xBF}, 4}, Form{{0xF1, 0xF3}, following, 4},
    Form{{0xF4, 0xF4}, {0x80, 0x8F}, 4},
};

} // namespace

std::size_t character_length(std::string_view text) {
    const auto* const form = std::find_if(forms.begin(), forms.end(),
                                          [&](const Form& f) { return f.first.has(text.front()); });
    if (form == forms.end() || text.size() < form->length) return 0;
    if (form->length > 1 && !form->second.has(text[1])) return 0;
    for (std::size_t i = 2; i < form->length; ++i) {
        if (!following.has(text[i])) return 0;
    }
    return form->length;
}

} // namespace korvat::text
