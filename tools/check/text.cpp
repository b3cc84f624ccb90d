#include "check/text.hpp"

#include "text/utf8.hpp"

#include "fortran/number.hpp"

#include <algorithm>
#include <array>
#include <charconv>

namespace korvat::check {
namespace {

constexpr std::string_view decimal_digits = "0123456789";

bool is_letter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

} // namespace

std::vector<std::string> lines_of(std::string_view bytes) {
    std::vector<std::string> lines;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        std::string_view line = bytes.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        lines.emplace_back(line);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    return lines;
}

bool is_utf16(const std::vector<std::string>& lines) {
    if (lines.empty()) return false;
    const std::string_view first = lines.front();
    if (first.starts_with("\xFF\xFE") || first.starts_with("\xFE\xFF")) return true;
    // Without a mark: every other byte of plain text is 0.
    constexpr std::size_t looked_at = 16;
    if (first.size() < looked_at) return false;
    const auto zeros = [&](std::size_t start) {
        std::size_t count = 0;
        for (std::size_t i = start; i < looked_at; i += 2) {
            count += first[i] == '\0' ? 1U : 0U;
        }
        return count;
    };
    constexpr std::size_t all = looked_at / 2;
    return (zeros(0) == all && zeros(1) == 0) || (zeros(1) == all && zeros(0) == 0);
}

bool is_control(char c) {
    constexpr std::string_view of_texts = "\t\r\f\x1A";
    const bool is_low = static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
    return is_low && of_texts.find(c) == std::string_view::npos;
}

bool is_text(const std::vector<std::string>& lines) {
    if (is_utf16(lines)) return false;
    constexpr std::size_t looked_at = 10'000; // bytes
    constexpr std::ptrdiff_t of_each = 100;   // no more than one of so many
    std::size_t bytes = 0;
    std::ptrdiff_t controls = 0;
    for (const std::string& line : lines) {
        if (bytes >= looked_at) break;
        const std::string_view part = std::string_view(line).substr(0, looked_at);
        bytes += part.size();
        controls += std::ranges::count_if(part, is_control);
    }
    return controls * of_each <= static_cast<std::ptrdiff_t>(bytes);
}

std::vector<Token> tokens(std::string_view line, std::string_view separators) {
    std::vector<Token> found;
    std::size_t start = line.find_first_not_of(separators);
    while (start != std::string_view::npos) {
        const std::size_t end = std::min(line.find_first_of(separators, start), line.size());
        found.push_back({line.substr(start, end - start), start});
        start = line.find_first_not_of(separators, end);
    }
    return found;
}

bool is_blank(std::string_view line) {
    return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

std::optional<double> number_of(std::string_view token) {
    return fortran::convert_number(token);
}

bool looks_like_number(std::string_view token) {
    token.remove_prefix(std::min(token.find_first_not_of(" \t"), token.size()));
    if (!token.empty() && (token.front() == '+' || token.front() == '-')) token.remove_prefix(1);
    if (!token.empty() && token.front() == '.') token.remove_prefix(1);
    if (token.empty() || decimal_digits.find(token.front()) == std::string_view::npos) return false;
    const auto is_strange = [](char c) {
        return is_letter(c) && std::string_view("eEdD").find(c) == std::string_view::npos;
    };
    return std::ranges::none_of(token, is_strange);
}

bool looks_like_record(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t,;"), line.size()));
    return looks_like_number(line.substr(0, line.find_first_of(" \t")));
}

std::size_t width_of(std::string_view line, std::string_view separators) {
    const std::vector<Token> all = tokens(line, separators);
    const auto is_none = [](const Token& token) { return !looks_like_number(token.text); };
    return static_cast<std::size_t>(std::ranges::find_if(all, is_none) - all.begin());
}

std::vector<Token> leading_numbers(std::string_view line) {
    std::vector<Token> all = tokens(line);
    const auto is_none = [](const Token& token) { return !number_of(token.text); };
    all.erase(std::ranges::find_if(all, is_none), all.end());
    return all;
}

std::optional<Token> number_beyond(std::string_view line, std::size_t width) {
    if (line.size() <= width) return std::nullopt;
    for (const Token& token : tokens(line, " \t,")) {
        if (!looks_like_number(token.text)) return std::nullopt;
        if (token.position + token.text.size() > width) return token;
    }
    return std::nullopt;
}

int characters(std::string_view text) {
    const auto count =
        std::ranges::count_if(text, [](char c) { return !text::is_continuation(c); });
    return static_cast<int>(count);
}

Place place_of(std::string_view line, int number, const Token& token) {
    return {.line = number,
            .column = characters(line.substr(0, token.position)) + 1,
            .length = std::max(characters(token.text), 1)};
}

std::string lower_case(std::string_view text) {
    std::string lower(text);
    const auto lowered = [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    };
    std::ranges::transform(lower, lower.begin(), lowered);
    return lower;
}

std::string counted(long count, std::string_view noun) {
    std::string text = std::to_string(count) + " " + std::string(noun);
    if (count != 1) text += 's';
    return text;
}

std::string text_of(double value, int digits) {
    std::array<char, 32> buffer{};
    const double shown = value == 0.0 ? 0.0 : value; // without the sign of a zero
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), shown,
                                   std::chars_format::general, digits);
    std::string text(buffer.data(), end.ptr);
    const std::size_t exponent = text.find('e');
    if (exponent == std::string::npos) return text;
    const bool is_negative = text[exponent + 1] == '-';
    const std::size_t first = text.find_first_not_of('0', exponent + 2);
    return text.substr(0, exponent) + (is_negative ? "E-" : "E") + text.substr(first);
}

std::string text_of(int value) {
    return std::to_string(value);
}

} // namespace korvat::check
