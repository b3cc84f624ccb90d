// The FORMATs of the program, taken from its source when the tests are built.
#pragma once

#include <span>
#include <string_view>

namespace korvat::test {

struct SourceFormat {
    std::string_view file; // below src
    std::string_view text;
};

// Every FORMAT of the program, sorted by its text; its source is made by list_formats.py.
[[nodiscard]] std::span<const SourceFormat> source_formats();

} // namespace korvat::test
