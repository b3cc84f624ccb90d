// What a token of a deck is worth, judged without the runtime.
#include "number_oracle.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace korvat::test {
namespace {

constexpr std::string_view digits = "0123456789";
constexpr double tolerance = 1.0e-13;

// Nearer to 0, the powers of ten that the runtime divides by leave the range of a double.
constexpr double smallest_kept = 1.0e-290;
constexpr double largest_certain = 1.0e300;
constexpr int largest_certain_exponent = 300;

std::size_t count_digits(std::string_view text) {
    return std::min(text.find_first_not_of(digits), text.size());
}

int written_exponent(std::string_view token) {
    const std::size_t letter = token.find_first_of("eEdD");
    if (letter == std::string_view::npos) return 0;
    const long exponent = std::strtol(std::string(token.substr(letter + 1)).c_str(), nullptr, 10);
    return static_cast<int>(std::clamp(exponent, -9999L, 9999L));
}

} // namespace

bool has_form_of_number(std::string_view token) {
    if (token.starts_with('+') || token.starts_with('-')) token.remove_prefix(1);
    const std::size_t whole = count_digits(token);
    token.remove_prefix(whole);
    std::size_t decimals = 0;
    if (token.starts_with('.')) {
        token.remove_prefix(1);
        decimals = count_digits(token);
        token.remove_prefix(decimals);
    }
    if (whole + decimals == 0) return false;
    if (token.empty()) return true;
    if (std::string_view("eEdD").find(token.front()) == std::string_view::npos) return false;
    token.remove_prefix(1);
    if (token.starts_with('+') || token.starts_with('-')) token.remove_prefix(1);
    return !token.empty() && count_digits(token) == token.size();
}

std::string_view without_tabs(std::string_view token) {
    const std::size_t first = std::min(token.find_first_not_of("\t\r"), token.size());
    return token.substr(first, token.find_last_not_of("\t\r") + 1 - first);
}

JudgedNumber judged_number(std::string_view token) {
    using Verdict = JudgedNumber::Verdict;
    token = without_tabs(token);
    if (!has_form_of_number(token)) return {};
    std::string text(token);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == 'd' || c == 'D'; }, 'e');
    const double value = std::strtod(text.c_str(), nullptr);
    const double size = std::fabs(value);
    const bool is_inside = size <= largest_certain && (size >= smallest_kept || value == 0.0) &&
                           std::abs(written_exponent(token)) <= largest_certain_exponent;
    // A value beyond the range is a zero that stands for another number, or an infinity.
    if (is_inside) return {Verdict::number, value};
    return {std::isfinite(value) ? Verdict::either : Verdict::no_number, value};
}

bool may_stand_for(double found, double value) {
    if (!std::isfinite(found)) return false;
    if (std::fabs(value) < smallest_kept) return std::fabs(found) < smallest_kept;
    return std::fabs(found - value) <= tolerance * std::fabs(value);
}

} // namespace korvat::test
