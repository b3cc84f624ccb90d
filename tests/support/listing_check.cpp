// The check sums that a listing prints, against the coordinates of the analysis file.
#include "listing_check.hpp"

#include "text.hpp"

#include <algorithm>
#include <cstddef>

namespace korvat::test {

namespace {

constexpr std::string_view heading = " CHECK SUMS FOR PILE NODE COORDINATES";
// Sums of a few hundred coordinates lose no more than this, and it moves no printed decimal unless
// the sum lies on the border between two.
constexpr double margin = 1.0e-9;

void compare_line(const std::vector<std::string>& lines, std::size_t index, const std::string& text,
                  double sum, std::vector<std::string>& differences) {
    const std::string found = index < lines.size() ? lines[index] : "(no such line)";
    const std::vector<std::string> forms = printed_forms(sum, 13, 4, margin);
    const bool agrees = std::any_of(forms.begin(), forms.end(),
                                    [&](const std::string& form) { return found == text + form; });
    if (agrees) return;
    differences.push_back("line " + std::to_string(index + 1) + " of the listing\n  found    [" +
                          found + "]\n  expected [" + text + forms.front() + "]");
}

void compare_sums(const std::vector<std::string>& lines, std::size_t first,
                  const std::string& title, const std::array<double, 3>& sums,
                  std::vector<std::string>& differences) {
    const std::string indent(title.size(), ' ');
    compare_line(lines, first, title + "SUM-X =", sums[0], differences);
    compare_line(lines, first + 1, indent + "SUM-Y =", sums[1], differences);
    compare_line(lines, first + 2, indent + "SUM-Z =", sums[2], differences);
}

} // namespace

std::vector<std::string> check_sum_differences(std::string_view listing, const PileFile& file) {
    const std::vector<std::string> lines = split_lines(listing);
    const auto count = std::count(lines.begin(), lines.end(), heading);
    if (count != 1) {
        return {"the heading of the check sums stands " + std::to_string(count) +
                " times in the listing"};
    }
    const auto line = std::find(lines.begin(), lines.end(), heading);
    const auto first = static_cast<std::size_t>(line - lines.begin());
    const CoordinateSums sums = coordinate_sums(file, 1, static_cast<int>(file.piles.size()));
    std::vector<std::string> differences;
    // The heading is underlined; an empty line comes before each block.
    compare_sums(lines, first + 3, " PILE HEADS :         ", sums.heads, differences);
    compare_sums(lines, first + 7, " PILE TIPS :          ", sums.tips, differences);
    return differences;
}

} // namespace korvat::test
