// Hands out the lines and the numeric records of an input deck, in order.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

bool is_blank(std::string_view text);

// Rounded half up; throws std::runtime_error for what no integer item of a deck can be.
int integer_of(double value);

// All functions throw std::runtime_error, which says where and why, for what cannot be read.
class DeckSource {
public:
    // Without comment lines, and without END and what follows it.
    explicit DeckSource(std::string_view content);

    [[noreturn]] void fail(const std::string& what) const;

    const std::string& line();
    const std::string& first_line() const { return lines_.front(); }
    void go_to(std::size_t line) { next_ = line; }

    // A line that must be blank, and heading lines that are not looked at.
    void section_start(const char* name, int headings);

    // A record of a known number of values: what follows them on the first line is not looked at.
    std::vector<double> numbers(std::size_t count);
    double number() { return numbers(1)[0]; }

    // A record whose second value says how many values follow it.
    std::vector<double> counted_numbers();

    // A record in the other way of writing: values are separated by blanks, tabs, line ends or one
    // comma directly behind a value; what follows the last one on its line is not looked at. The
    // integers come first and must be written as such.
    std::vector<double> list_values(std::size_t integers, std::size_t reals);

private:
    // `columns` are those that the lines of the record have used so far.
    void append(std::vector<double>& values, std::size_t most, std::size_t& columns);
    void fill(std::vector<double>& values, std::size_t expected, std::size_t columns);
    double converted(std::string_view token) const;

    std::vector<std::string> lines_;
    std::size_t next_ = 0;
};

} // namespace korvat::test
