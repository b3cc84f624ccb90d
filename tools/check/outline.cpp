#include "check/outline.hpp"

#include <algorithm>

namespace korvat::check {

std::vector<const Row*> Outline::rows(deck::RecordId id) const {
    std::vector<const Row*> found;
    for (const Row& row : rows_) {
        if (row.id == id) found.push_back(&row);
    }
    return found;
}

const Row* Outline::numbered(deck::RecordId id, int number) const {
    const auto is_wanted = [&](const Row& row) {
        return row.id == id && !row.numbers.empty() && row.numbers.front().value == number;
    };
    const auto found = std::ranges::find_if(rows_, is_wanted);
    return found == rows_.end() ? nullptr : &*found;
}

Place place_of(const Row* row, std::size_t i) {
    if (row == nullptr) return {};
    return i >= 1 && i <= row->numbers.size() ? row->numbers[i - 1].place : row->place;
}

} // namespace korvat::check
