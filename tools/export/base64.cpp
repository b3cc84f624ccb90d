#include "export/base64.hpp"

namespace korvat::exporting {

std::string base64(std::string_view bytes) {
    constexpr std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::string_view three = bytes.substr(i, 3);
        unsigned bits = 0;
        for (std::size_t k = 0; k < 3; ++k)
            bits = bits << 8U | (k < three.size() ? static_cast<unsigned char>(three[k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            text += k <= three.size() ? digits[bits >> (18U - 6U * k) & 63U] : '=';
    }
    return text;
}

} // namespace korvat::exporting
