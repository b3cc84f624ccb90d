// List-directed reads: numbers out of lines of text, each line fetched only when it is needed.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korvat::fortran {

// The lines of one record, and the place up to which its values have been taken. Blanks, tabs and
// line ends separate values, and so does one comma directly behind a value. Blank lines are passed
// over, values go on over following lines, and what follows the last value taken is dropped.
class ListDirected {
public:
    enum class Result {
        value,       // one was taken
        end_of_text, // every line given has been used up: give the next one and try again
        bad_value    // not a number of the kind asked for; a point or an exponent in an integer,
                     // r*c, a slash and an empty value are no numbers
    };

    // Where a value begins: its line by the order in which the lines were given, from 0, and its
    // column, from 1.
    struct Position {
        int line = 0;
        int column = 1;
    };

    void add_line(std::string_view line);

    // An integer within the 32-bit range.
    [[nodiscard]] Result take(int& value);

    // A real, by the runtime's conversion, which is not correctly rounded. An exponent beyond
    // -400..400 and a value too large for a double are bad.
    [[nodiscard]] Result take(double& value);

    // Of the value that was asked for last; of an empty value, the comma.
    [[nodiscard]] Position last_position() const;

private:
    std::optional<std::string_view> next_token();

    std::string text_;
    std::size_t position_ = 0; // up to which the text has been used
    std::size_t start_ = 0;    // of the last token
};

} // namespace korvat::fortran
