// Samples of the program's FORMATs: the items of one write and what it must give.
#pragma once

#include "fortran/item.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

struct FormatSample {
    std::string_view file;            // of src, without its folder
    std::string_view piece;           // of the FORMAT's text, found in no other FORMAT of the file
    std::vector<fortran::Item> items; // their texts must outlive the sample
    std::string written;
};
using FormatSamples = std::vector<FormatSample>;

[[nodiscard]] FormatSamples deck_format_samples();
[[nodiscard]] FormatSamples revision5_format_samples();
[[nodiscard]] FormatSamples run_format_samples();
[[nodiscard]] FormatSamples output_format_samples();

// The text of the one FORMAT of a file that has this piece; throws when none or several have it.
[[nodiscard]] std::string_view source_format(std::string_view file, std::string_view piece);

[[nodiscard]] inline std::string blanks(std::size_t count) {
    return std::string(count, ' ');
}

} // namespace korvat::test
