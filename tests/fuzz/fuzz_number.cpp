// Fuzz target: numbers out of fields and lines, against the C library's conversion.
#include "bytes.hpp"
#include "number_oracle.hpp"
#include "require.hpp"

#include "fortran/list_directed.hpp"
#include "fortran/number.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

using fortran::ListDirected;
using Verdict = JudgedNumber::Verdict;

void compare(const std::string& token, const JudgedNumber& judged, bool taken, double found) {
    if (judged.verdict == Verdict::number) require(taken, "refused number: " + token);
    if (judged.verdict == Verdict::no_number) require(!taken, "taken for a number: " + token);
    if (taken) require(may_stand_for(found, judged.value), "wrong value: " + token);
}

void check_field(const std::string& text) {
    const fortran::Text<50> field(text);
    const std::string token(fortran::trimmed(field.view()));
    const auto value = fortran::convert_number(field.view());
    compare(token, judged_number(token), value.has_value(), value.value_or(0.0));
}

// The value of a field of digits alone; -1 for any other.
int plain_digits(std::string_view field) {
    int value = 0;
    for (const char c : field) {
        if (c < '0' || c > '9') return -1;
        value = 10 * value + (c - '0');
    }
    return value;
}

void check_date(const std::string& text) {
    constexpr int unset = -7;
    std::array<int, 3> values{unset, unset, unset};
    const fortran::Text<80> line(text);
    const bool complete = fortran::read_integers(line.view(), "(16x,i4,1x,i2,1x,i2)", values);
    if (complete) {
        require(values[0] > -1000 && values[0] <= 9999, "year of four characters");
        require(values[1] > -10 && values[1] <= 99, "month of two characters");
        require(values[2] > -10 && values[2] <= 99, "day of two characters");
    }
    const std::string_view view = line.view();
    // A comma and a line end shift what stands behind them.
    if (view.substr(0, 26).find_first_of(",\r\n") != std::string_view::npos) return;
    const std::array<int, 3> plain{plain_digits(view.substr(16, 4)),
                                   plain_digits(view.substr(21, 2)),
                                   plain_digits(view.substr(24, 2))};
    if (std::ranges::count(plain, -1) == 0) require(complete && values == plain, "date: " + text);
    if (!complete && plain[0] != -1) require(values[0] == plain[0], "year before a fault: " + text);
}

// The tokens of list-directed lines: one comma directly behind a value belongs to it.
std::vector<std::string> tokens_of(const std::string& text) {
    constexpr std::string_view blanks = " \t\r\n";
    std::vector<std::string> tokens;
    std::size_t position = 0;
    while ((position = text.find_first_not_of(blanks, position)) != std::string::npos) {
        const std::size_t end = std::min(text.find_first_of(" \t\r\n,", position), text.size());
        tokens.push_back(text.substr(position, end - position));
        position = end < text.size() && text[end] == ',' ? end + 1 : end;
    }
    return tokens;
}

void check_integer(const std::string& token, ListDirected::Result result, int value) {
    std::string unsigned_part = token;
    if (token.starts_with('+') || token.starts_with('-')) unsigned_part.erase(0, 1);
    const bool is_integer = !unsigned_part.empty() &&
                            unsigned_part.find_first_not_of("0123456789") == std::string::npos;
    const double exact = is_integer ? std::strtod(token.c_str(), nullptr) : 0.0;
    const bool fits =
        exact >= std::numeric_limits<int>::min() && exact <= std::numeric_limits<int>::max();
    const bool taken = result == ListDirected::Result::value;
    require(taken == (is_integer && fits), "whole number: " + token);
    if (taken) require(static_cast<double>(value) == exact, "wrong whole number: " + token);
}

// Gives the lines of a text, cut as those of a deck are, and returns what has been given.
std::string give_lines(const std::string& text, ListDirected& list) {
    constexpr std::size_t width = 120;
    std::string given;
    std::size_t from = 0;
    while (from < text.size()) {
        const std::size_t end = std::min(text.find('\n', from), text.size());
        const std::string line = text.substr(from, std::min(end - from, width));
        list.add_line(line);
        given += line + '\n';
        from = end + 1;
    }
    return given;
}

// Bits of `kinds` choose between whole numbers and reals.
void check_list(const std::string& whole_text, unsigned kinds) {
    ListDirected list;
    const std::string text = give_lines(whole_text, list);
    for (const std::string& token : tokens_of(text)) {
        kinds = (kinds >> 1U) | ((kinds & 1U) << 7U);
        if ((kinds & 1U) == 1U) {
            int value = 0;
            const auto result = list.take(value);
            require(result != ListDirected::Result::end_of_text, "a value is left: " + text);
            check_integer(token, result, value);
        } else {
            double value = 0.0;
            const auto result = list.take(value);
            require(result != ListDirected::Result::end_of_text, "a value is left: " + text);
            compare(token, judged_number(token), result == ListDirected::Result::value, value);
        }
    }
    double value = 0.0;
    require(list.take(value) == ListDirected::Result::end_of_text, "nothing is left: " + text);
}

} // namespace
} // namespace korvat::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvat::test;
    Bytes bytes(data, size);
    const unsigned kinds = bytes.take_byte();
    const std::string text = bytes.take_rest();
    check_field(text);
    check_date(text);
    check_list(text, kinds);
    return 0;
}
