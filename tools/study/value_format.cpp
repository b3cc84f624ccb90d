#include "study/value_format.hpp"

#include "study/study_error.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace korvat::study {
namespace {

constexpr int most_digits = 17;
constexpr std::size_t most_width = 120; // columns of the widest record

[[noreturn]] void refuse(std::string_view text) {
    throw StudyError(
        "':" + std::string(text) +
        "' is no format: it has the form WIDTH.DIGITS and one of f, e and d, each of which "
        "may be missing");
}

// A number at the beginning of a text, which loses it; `none` where there is none.
int taken_number(std::string_view& text, int none) {
    int number = none;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) return none;
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    return number;
}

// The exponent as engineers write it: 2.1e+08 as 2.1E8.
std::string with_plain_exponent(std::string_view text) {
    const std::size_t e = text.find('e');
    if (e == std::string_view::npos) return std::string(text);
    std::string_view exponent = text.substr(e + 1);
    const std::string sign = exponent.starts_with('-') ? "-" : "";
    exponent.remove_prefix(std::min(exponent.find_first_not_of("+-0"), exponent.size()));
    return std::string(text.substr(0, e)) + 'E' + sign +
           (exponent.empty() ? "0" : std::string(exponent));
}

std::string written(double value, std::chars_format form, int digits) {
    std::array<char, 400> text{}; // the largest number without exponent has 309 digits
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, form, digits).ptr;
    return with_plain_exponent({text.data(), end});
}

// The fewest digits that give the value as far as 15 digits do.
std::string shortest(double value, std::chars_format form) {
    std::array<char, 400> text{};
    double rounded = 0.0;
    const std::string fifteen = written(value, std::chars_format::general, 15);
    std::from_chars(fifteen.data(), fifteen.data() + fifteen.size(), rounded);
    const auto end = std::to_chars(text.data(), text.data() + text.size(), rounded, form).ptr;
    return with_plain_exponent({text.data(), end});
}

std::string whole(double value) {
    if (value != std::round(value) || std::abs(value) > 1.0e15) {
        throw StudyError(plain(value) + " is no whole number, as its format d wants");
    }
    return written(value, std::chars_format::fixed, 0);
}

std::string filled(std::string text, std::size_t width) {
    if (width == 0) return text;
    if (text.size() > width) {
        throw StudyError("'" + text + "' is wider than the " + std::to_string(width) +
                         " columns of its format");
    }
    return std::string(width - text.size(), ' ') + text;
}

std::string without_width(double value, const ValueFormat& format) {
    switch (format.kind) {
    case 'd':
        return whole(value);
    case 'f':
        return format.digits < 0 ? shortest(value, std::chars_format::fixed)
                                 : written(value, std::chars_format::fixed, format.digits);
    case 'e':
        return format.digits < 0 ? shortest(value, std::chars_format::scientific)
                                 : written(value, std::chars_format::scientific, format.digits);
    default:
        return format.digits < 0 ? plain(value)
                                 : written(value, std::chars_format::fixed, format.digits);
    }
}

} // namespace

ValueFormat value_format(std::string_view text) {
    std::string_view rest = text;
    ValueFormat format;
    const int width = taken_number(rest, 0);
    if (width < 0 || width > static_cast<int>(most_width)) refuse(text);
    format.width = static_cast<std::size_t>(width);
    if (rest.starts_with('.')) {
        rest.remove_prefix(1);
        format.digits = taken_number(rest, -1);
        if (format.digits < 0 || format.digits > most_digits) refuse(text);
    }
    if (rest.size() == 1 && std::string_view("fed").find(rest.front()) != std::string_view::npos) {
        format.kind = rest.front();
        rest.remove_prefix(1);
    }
    const bool is_empty = format.width == 0 && format.digits < 0 && format.kind == 0;
    if (!rest.empty() || is_empty || (format.kind == 'd' && format.digits >= 0)) refuse(text);
    return format;
}

std::string formatted(double value, const ValueFormat& format) {
    return filled(without_width(value == 0.0 ? 0.0 : value, format), format.width);
}

std::string formatted(std::string_view text, const ValueFormat& format) {
    if (format.kind != 0 || format.digits >= 0) {
        throw StudyError("'" + std::string(text) + "' is no number, as its format wants");
    }
    return filled(std::string(text), format.width);
}

std::string plain(double value) {
    return shortest(value, std::chars_format::general);
}

} // namespace korvat::study
