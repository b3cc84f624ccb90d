#include "fortran/list_directed.hpp"

#include "fortran/as_fem.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace korvat::fortran {
namespace {

constexpr std::string_view separators = " \t\r\n";
constexpr std::string_view digits = "0123456789";

// The runtime keeps powers of ten up to the 511th and looks beyond them without a check.
constexpr int highest_exponent = 400;
constexpr int highest_power = 511;

// What the runtime sees of an exponent: the written one and the power of the leading digit.
struct Exponent {
    int written = 0;
    int leading = 0;
};

int saturated_integer(std::string_view text) {
    int value = 0;
    for (const char c : text) {
        value = value > 9999 ? value : value * 10 + (c - '0');
    }
    return value;
}

// The power of ten of the first digit that is not 0; of all zeros, what the runtime counts.
int leading_power(std::string_view mantissa) {
    const int size = static_cast<int>(mantissa.size());
    const int point = static_cast<int>(std::min(mantissa.find('.'), mantissa.size()));
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) return point - size;
    const int position = static_cast<int>(first);
    return position < point ? point - position - 1 : point - position;
}

// The exponent of a token that begins like a number; the runtime judges the rest of its form.
Exponent exponent_of(std::string_view token) {
    Exponent exponent;
    if (!token.empty() && (token.front() == '+' || token.front() == '-')) token.remove_prefix(1);
    const std::size_t letter = token.find_first_of("eEdD");
    const std::string_view mantissa = token.substr(0, letter);
    exponent.leading = leading_power(mantissa);
    if (letter == std::string_view::npos) return exponent;
    std::string_view written = token.substr(letter + 1);
    const bool is_negative = written.starts_with('-');
    if (is_negative || written.starts_with('+')) written.remove_prefix(1);
    const int magnitude = saturated_integer(written.substr(0, written.find_first_not_of(digits)));
    exponent.written = is_negative ? -magnitude : magnitude;
    return exponent;
}

bool is_within_tables(std::string_view token) {
    const Exponent exponent = exponent_of(token);
    return std::abs(exponent.written) <= highest_exponent &&
           std::abs(exponent.written + exponent.leading) <= highest_power;
}

std::optional<double> converted(std::string_view token) {
    double value = 0.0;
    try {
        fem::read_loop loop(as_fem(token), fem::star);
        loop, value;
    } catch (const fem::io_err&) {
        return std::nullopt;
    } catch (const fem::read_end&) { // nothing but a sign or a point
        return std::nullopt;
    }
    if (!std::isfinite(value)) return std::nullopt;
    return value;
}

// The runtime collects the digits without a look at the range, so the range is judged here.
std::optional<int> converted_integer(std::string_view token) {
    std::string_view unsigned_part = token;
    if (token.starts_with('+') || token.starts_with('-')) unsigned_part.remove_prefix(1);
    if (unsigned_part.empty() ||
        unsigned_part.find_first_not_of(digits) != std::string_view::npos) {
        return std::nullopt;
    }
    if (token.starts_with('+')) token.remove_prefix(1);
    int value = 0;
    const auto result = std::from_chars(token.data(), token.data() + token.size(), value);
    if (result.ec != std::errc()) return std::nullopt;
    return value;
}

} // namespace

void ListDirected::add_line(std::string_view line) {
    text_ += line;
    text_ += '\n';
}

// The next value's text, which is empty before a comma; nothing at the end.
std::optional<std::string_view> ListDirected::next_token() {
    const std::size_t start = text_.find_first_not_of(separators, position_);
    if (start == std::string::npos) return std::nullopt;
    const std::size_t end = text_.find_first_of(" \t\r\n,", start); // a line end closes every line
    start_ = start;
    position_ = text_[end] == ',' ? end + 1 : end;
    return std::string_view(text_).substr(start, end - start);
}

ListDirected::Position ListDirected::last_position() const {
    const auto before = std::string_view(text_).substr(0, start_);
    const std::size_t line_end = before.rfind('\n');
    const std::size_t line_start = line_end == std::string_view::npos ? 0 : line_end + 1;
    return {.line = static_cast<int>(std::ranges::count(before, '\n')),
            .column = static_cast<int>(start_ - line_start) + 1};
}

ListDirected::Result ListDirected::take(int& value) {
    const auto token = next_token();
    if (!token) return Result::end_of_text;
    const auto number = converted_integer(*token);
    if (!number) return Result::bad_value;
    value = *number;
    return Result::value;
}

ListDirected::Result ListDirected::take(double& value) {
    const auto token = next_token();
    if (!token) return Result::end_of_text;
    if (!is_within_tables(*token)) return Result::bad_value;
    const auto number = converted(*token);
    if (!number) return Result::bad_value;
    value = *number;
    return Result::value;
}

} // namespace korvat::fortran
