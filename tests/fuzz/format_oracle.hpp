// What a formatted write must give, worked out from the FORMAT without the runtime.
#pragma once

#include "fortran/item.hpp"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

// One step of a FORMAT with its repeat counts written out.
struct FormatStep {
    char kind;       // ' text, x blanks, / line end, p scale factor; a, i, f, e take an item
    int width = 0;   // of an item (0: none given); count of the blanks; the scale factor
    int digits = -1; // behind the point; -1: none given
    std::string text{};

    [[nodiscard]] bool takes_an_item() const { return kind >= 'a' && kind <= 'i'; }
};

struct ParsedFormat {
    std::vector<FormatStep> steps;
    std::size_t reversion = 0; // the step with which another pass begins

    // The items that one pass takes.
    [[nodiscard]] std::size_t item_count() const;

    // The steps that the first `count` items go under, in further passes too.
    [[nodiscard]] std::vector<FormatStep> item_steps(std::size_t count) const;
};

// Ends the process when the FORMAT has another form than those of the program.
[[nodiscard]] ParsedFormat parsed_format(std::string_view format);

// Ends the process unless `written` is what the items give; both without the last line end.
void check_written(const ParsedFormat& format, std::span<const fortran::Item> items,
                   std::string_view written);

} // namespace korvat::test
