// A deck with named places, such as {wall}, {d+0.1} or {wall:10.4f}.
#pragma once

#include "study/expression.hpp"
#include "study/study_error.hpp"
#include "study/value_format.hpp"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace korvat::study {

// The values of one row of a table, as they stand in it, by the names of its columns.
using Row = std::map<std::string, std::string, std::less<>>;

class DeckTemplate {
public:
    // A brace that is doubled stands for itself. `shown` is the file's name in messages. Raises
    // StudyError, with file and line, where a place is not closed or holds no expression.
    DeckTemplate(std::string_view text, std::string shown);

    // The names that its places take, each once.
    [[nodiscard]] const std::vector<std::string>& names() const { return names_; }

    // The deck of a row. A place of a name alone takes the row's text as it stands, one with a format or an
    // operation a number. Raises StudyError, with file and line, where a value does not fit: into its
    // format, or, a number of a record or a label, into the columns that are read of its line.
    [[nodiscard]] std::string deck(const Row& row) const;

private:
    struct Place {
        std::string text; // as it stands between the braces
        Expression expression;
        ValueFormat format;
        bool has_format = false;
        int line = 0; // of the file, from 1
    };

    [[nodiscard]] Place place_of(std::string_view text, int line) const;
    [[nodiscard]] std::string filled(const Place& place, const Row& row) const;
    [[nodiscard]] std::string at(int line) const;
    void check_width(const std::string& deck) const;

    std::string shown_;
    std::vector<std::variant<std::string, Place>> parts_; // texts and places in their order
    std::vector<std::string> names_;
    std::set<int> filled_lines_;
};

} // namespace korvat::study
