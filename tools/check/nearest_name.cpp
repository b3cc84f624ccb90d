#include "check/nearest_name.hpp"

#include <algorithm>
#include <vector>

namespace korvat::check {

std::size_t spelling_distance(std::string_view a, std::string_view b) {
    // Row i of the table: distances of the first i letters of a to each beginning of b.
    std::vector<std::size_t> before_last;
    std::vector<std::size_t> last;
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        before_last = std::move(last);
        last = std::move(row);
        row.assign(b.size() + 1, i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t change = a[i - 1] == b[j - 1] ? 0 : 1;
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + change});
            const bool are_swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (are_swapped) row[j] = std::min(row[j], before_last[j - 2] + 1);
        }
    }
    return row.back();
}

std::optional<std::string> nearest_name(std::string_view written,
                                        std::span<const std::string> names) {
    const std::string* nearest = nullptr;
    std::size_t least = 0;
    for (const std::string& name : names) {
        const bool is_beginning = written.size() >= 2 && name.starts_with(written);
        const std::size_t distance = is_beginning ? 1 : spelling_distance(written, name);
        if (distance > std::max<std::size_t>(1, name.size() / 3)) continue;
        if (nearest != nullptr && distance >= least) continue;
        nearest = &name;
        least = distance;
    }
    if (nearest == nullptr) return std::nullopt;
    return *nearest;
}

} // namespace korvat::check
