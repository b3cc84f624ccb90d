#include "cli/table.hpp"

#include "export/text.hpp"

#include <algorithm>
#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <utility>

namespace korvat::cli {

Table::Table(std::vector<std::string> titles, std::vector<std::string> units) {
    rows_.push_back(std::move(titles));
    if (!units.empty()) add(std::move(units));
}

void Table::add(std::vector<std::string> row) {
    assert(row.size() == rows_.front().size());
    rows_.push_back(std::move(row));
}

std::string Table::text() const {
    std::vector<std::size_t> widths(rows_.front().size());
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    std::string text;
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < row.size(); ++i)
            text.append(2 + widths[i] - row[i].size(), ' ').append(row[i]);
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

std::string shown_number(double value, int digits) {
    if (std::isnan(value)) return "nan";
    std::array<char, 64> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::general, digits);
    return {text.data(), end.ptr};
}

std::string shown_text(std::string_view text) {
    constexpr std::string_view hexadecimal = "0123456789ABCDEF";
    constexpr unsigned char last_control = 0x1F;
    constexpr unsigned char delete_character = 0x7F;
    constexpr unsigned char control_lead = 0xC2; // of U+0080 to U+009F, controls too
    constexpr unsigned char first_of_characters = 0xA0;
    const std::string utf8 = exporting::utf8_text(text);
    std::string shown;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        auto byte = static_cast<unsigned char>(utf8[i]);
        const bool is_long_control = byte == control_lead && i + 1 < utf8.size() &&
                                     static_cast<unsigned char>(utf8[i + 1]) < first_of_characters;
        if (is_long_control) byte = static_cast<unsigned char>(utf8[++i]);
        if (byte <= last_control || byte == delete_character || is_long_control) {
            shown += "\\x";
            shown += hexadecimal[byte / 16];
            shown += hexadecimal[byte % 16];
        } else {
            shown += utf8[i];
        }
    }
    return shown;
}

std::string counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

} // namespace korvat::cli
