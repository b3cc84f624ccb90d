#include "export/loaded_piles.hpp"

#include <algorithm>

namespace korvat::exporting {

const group::Pile* find_pile(const group::Group& group, int number) {
    const auto found = std::find_if(group.piles.begin(), group.piles.end(),
                                    [&](const group::Pile& p) { return p.number == number; });
    return found == group.piles.end() ? nullptr : &*found;
}

std::optional<std::string> stray_load(const group::Group& group) {
    for (std::size_t i = 0; i < group.load_vectors.size(); ++i) {
        for (const group::Load& load : group.load_vectors[i].loads) {
            if (find_pile(group, load.pile) == nullptr) {
                return "load vector " + std::to_string(i + 1) + " loads pile " +
                       std::to_string(load.pile) + ", which the group does not have";
            }
        }
    }
    return std::nullopt;
}

} // namespace korvat::exporting
