// Hands out the lines and the numeric records of an input deck, in order.
#include "deck_source.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <stdexcept>

namespace korvat::test {

namespace {

constexpr std::size_t copied_columns = 120;
constexpr std::size_t number_columns = 80;
constexpr std::size_t token_columns = 50;
constexpr std::size_t most_numbers = 40;
constexpr std::size_t joined_columns = 640;

std::vector<std::string> lines_of_deck(std::string_view content) {
    std::vector<std::string> lines;
    bool first = true;
    while (!content.empty()) {
        const std::size_t end = content.find('\n');
        std::string_view line = content.substr(0, end);
        content.remove_prefix(end == std::string_view::npos ? content.size() : end + 1);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        line = line.substr(0, copied_columns);
        if (line.substr(0, 3) == "END") return lines;
        const bool comment = !first && !line.empty() &&
                             std::string_view("*Cc").find(line[0]) != std::string_view::npos;
        first = false;
        if (!comment) lines.emplace_back(line);
    }
    throw std::runtime_error("the deck has no END line");
}

bool has_number_form(std::string_view token) {
    std::size_t i = 0;
    const auto skip_sign = [&] {
        if (i < token.size() && (token[i] == '+' || token[i] == '-')) ++i;
    };
    const auto skip_digits = [&] {
        const std::size_t from = i;
        while (i < token.size() && token[i] >= '0' && token[i] <= '9')
            ++i;
        return i - from;
    };
    skip_sign();
    std::size_t digits = skip_digits();
    if (i < token.size() && token[i] == '.') {
        ++i;
        digits += skip_digits();
    }
    if (digits == 0) return false;
    if (i == token.size()) return true;
    if (std::string_view("eEdD").find(token[i]) == std::string_view::npos) return false;
    ++i;
    skip_sign();
    return skip_digits() > 0 && i == token.size();
}

std::string_view without_tabs(std::string_view token) {
    constexpr std::string_view passed_over = "\t\r";
    token.remove_prefix(std::min(token.find_first_not_of(passed_over), token.size()));
    return token.substr(0, token.find_last_not_of(passed_over) + 1);
}

double number_of(std::string_view token) {
    std::string text(without_tabs(token));
    if (!has_number_form(text)) throw std::runtime_error("'" + text + "' is no number");
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == 'd' || c == 'D'; }, 'e');
    const double value = std::strtod(text.c_str(), nullptr);
    if (!std::isfinite(value)) throw std::runtime_error("'" + text + "' is too large");
    return value;
}

std::vector<std::string_view> tokens_of(std::string_view line) {
    constexpr std::string_view skipped("\0 ", 2);
    std::vector<std::string_view> tokens;
    for (;;) {
        const std::size_t from = line.find_first_not_of(skipped);
        if (from == std::string_view::npos) return tokens;
        line.remove_prefix(from);
        const std::size_t length = std::min(line.find(' '), line.size());
        tokens.push_back(line.substr(0, length).substr(0, token_columns));
        line.remove_prefix(length);
    }
}

// What is seen of the next line of a record: the rightmost of its columns that find room behind those
// of the lines before it.
std::string seen_of(const std::string& line, std::size_t columns_before) {
    std::string columns = line;
    columns.resize(number_columns, ' ');
    const std::size_t room = joined_columns - std::min(columns_before, joined_columns);
    return columns.substr(number_columns - std::min(room, number_columns));
}

// Takes the next value off the front of the text, with the comma directly behind it; empty when the
// text holds no further value.
std::string_view take_list_token(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    const std::size_t length = std::min(text.find_first_of(" \t,"), text.size());
    // A comma without a value before it stays a token, which is no number.
    const std::string_view token = text.substr(0, text.empty() || length > 0 ? length : 1);
    text.remove_prefix(token.size());
    if (length > 0 && !text.empty() && text.front() == ',') text.remove_prefix(1);
    return token;
}

bool has_integer_form(std::string_view token) {
    return token.find_first_not_of("+-0123456789") == std::string_view::npos;
}

} // namespace

bool is_blank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

int integer_of(double value) {
    const double rounded = std::floor(value + 0.5);
    if (std::abs(rounded) > 1.0e9) throw std::runtime_error("an integer item is out of reach");
    return static_cast<int>(rounded);
}

DeckSource::DeckSource(std::string_view content) : lines_(lines_of_deck(content)) {
    if (lines_.empty()) throw std::runtime_error("the deck has no lines");
}

void DeckSource::fail(const std::string& what) const {
    throw std::runtime_error("line " + std::to_string(next_) + " of the deck: " + what);
}

const std::string& DeckSource::line() {
    if (next_ == lines_.size()) fail("the deck ends too early");
    return lines_[next_++];
}

void DeckSource::section_start(const char* name, int headings) {
    if (!is_blank(line())) fail(std::string("no blank line before ") + name);
    for (int i = 0; i < headings; ++i)
        line();
}

std::vector<double> DeckSource::numbers(std::size_t count) {
    std::vector<double> values;
    std::size_t columns = 0;
    append(values, count, columns);
    fill(values, count, columns);
    return values;
}

std::vector<double> DeckSource::counted_numbers() {
    std::vector<double> values;
    std::size_t columns = 0;
    append(values, most_numbers, columns);
    const int following = values.size() > 1 ? integer_of(values[1]) : 0;
    if (following < -2) fail("the count of values is negative");
    const auto expected = static_cast<std::size_t>(following + 2);
    // The count -2 makes the record one of any number of values.
    if (expected > 0) fill(values, expected, columns);
    if (values.size() < 2) values.resize(2, 0.0);
    return values;
}

std::vector<double> DeckSource::list_values(std::size_t integers, std::size_t reals) {
    std::vector<double> values;
    std::string_view rest = line();
    while (values.size() < integers + reals) {
        const std::string_view token = take_list_token(rest);
        if (token.empty()) {
            rest = line();
            continue;
        }
        if (values.size() < integers && !has_integer_form(token)) {
            fail("'" + std::string(token) + "' is not written as an integer");
        }
        values.push_back(converted(token));
    }
    return values;
}

double DeckSource::converted(std::string_view token) const {
    try {
        return number_of(token);
    } catch (const std::runtime_error& error) {
        fail(error.what());
    }
}

void DeckSource::append(std::vector<double>& values, std::size_t most, std::size_t& columns) {
    const std::string text = seen_of(line(), columns);
    columns += text.find_last_not_of(' ') + 2; // one blank joins the lines
    const std::vector<std::string_view> tokens = tokens_of(text);
    if (tokens.empty()) fail("no numbers");
    for (std::size_t i = 0; i < std::min(most, tokens.size()); ++i)
        values.push_back(converted(tokens[i]));
}

void DeckSource::fill(std::vector<double>& values, std::size_t expected, std::size_t columns) {
    while (values.size() < expected)
        append(values, most_numbers - values.size(), columns);
    if (values.size() != expected) fail("the record has too many values");
}

} // namespace korvat::test
