// The records of a deck as they can be made out of its sections, without the program's reader.
#pragma once

#include "check/layout.hpp"
#include "check/outline.hpp"

#include <vector>

namespace korvat::check {

// The records of a section, up to the first line that cannot be made out.
struct SectionRows {
    SectionId section = SectionId::control;
    std::vector<Row> rows;
    int stopped_at = 0; // number of that line; 0: the section is whole
};

// The sections of a layout, in deck order. Where a section does not have its headings, it has no rows
// and stops at its first line.
[[nodiscard]] std::vector<SectionRows> scan_rows(const Layout& layout);

} // namespace korvat::check
