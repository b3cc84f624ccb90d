// Tables of values in the page.
#pragma once

#include "report/markup.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace korvat::report {

struct Column {
    std::string title;
    std::string unit = {}; // as it is shown; empty: none
    bool is_number = true;
};

// A value with up to six digits: "2.1E8".
[[nodiscard]] std::string short_text(double value);

// Writes a table row by row. A cell of a number has its value, to the last bit, as data-value.
class TableWriter {
public:
    TableWriter(Markup& page, const Attributes& attributes, std::string_view caption,
                const std::vector<Column>& columns);

    void begin_row(const Attributes& attributes = {}); // ends the row before
    void begin_totals();                               // rows from here on sum up
    void number(double value);
    void exact_number(double value); // shown with all its digits
    void integer(long value);
    void text(std::string_view text);
    void empty(int count = 1);
    void finish();

private:
    void end_row();

    Markup* page_;
    bool is_in_row_ = false;
};

} // namespace korvat::report
