// Lines of a deck as text: tokens, numbers, columns.
#pragma once

#include "check/finding.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::check {

struct Token {
    std::string_view text;
    std::size_t position = 0; // of its first byte in the line, from 0
};

// The lines of a file, without their line ends; none for an empty file.
[[nodiscard]] std::vector<std::string> lines_of(std::string_view bytes);

// Whether a file is written in UTF-16.
[[nodiscard]] bool is_utf16(const std::vector<std::string>& lines);

// A character that no text has; tabs, line ends, page feeds and the end mark of old editors are none.
[[nodiscard]] bool is_control(char c);

// Whether a file is a text that lines can be made out in: not UTF-16, and hardly any control characters.
[[nodiscard]] bool is_text(const std::vector<std::string>& lines);

// What stands between separators.
[[nodiscard]] std::vector<Token> tokens(std::string_view line, std::string_view separators = " ");

[[nodiscard]] bool is_blank(std::string_view line); // tabs count as blanks here

// A number in the form that the deck's records have.
[[nodiscard]] std::optional<double> number_of(std::string_view token);

// Whether a token was meant as a number: it begins like one and has no letter but an exponent's.
[[nodiscard]] bool looks_like_number(std::string_view token);

// Whether the first token of a line looks like a number.
[[nodiscard]] bool looks_like_record(std::string_view line);

// How many tokens of a line look like numbers, up to the first that does not.
[[nodiscard]] std::size_t width_of(std::string_view line, std::string_view separators = " ");

// The numbers at the beginning of a line, up to the first token that is none.
[[nodiscard]] std::vector<Token> leading_numbers(std::string_view line);

// The first number of a record that goes beyond a column. A remark in front of it makes it a remark too.
[[nodiscard]] std::optional<Token> number_beyond(std::string_view line, std::size_t width);

// The characters of a text in UTF-8; a byte that is none counts as one.
[[nodiscard]] int characters(std::string_view text);

// The place of a token in line `number`.
[[nodiscard]] Place place_of(std::string_view line, int number, const Token& token);

// The lower-case letters of a text for its capital ones, other characters as they are.
[[nodiscard]] std::string lower_case(std::string_view text);

// "1 record", "2 records".
[[nodiscard]] std::string counted(long count, std::string_view noun);

// A value as a message shows it: up to that many digits, "2.1E8".
[[nodiscard]] std::string text_of(double value, int digits = 6);
[[nodiscard]] std::string text_of(int value);

} // namespace korvat::check
