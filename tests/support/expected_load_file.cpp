// The records of the load file that a deck with load vectors must give.
#include "pile_model.hpp"

#include "deck_units.hpp"

namespace korvat::test {

ExpectedFile expected_load_file(const Deck& deck) {
    const Units units = units_of(deck.force_factor, deck.length_factor);
    ExpectedFile file;
    for (const LoadVector& vector : deck.load_vectors) {
        file.push_back({"label of a load vector", 0, 0.0, {"label"}, {vector.label}, {}});
        file.push_back({"count of a load vector",
                        0,
                        0.0,
                        {"number of loaded piles"},
                        {static_cast<std::int32_t>(vector.loads.size())},
                        {}});
        const Units::Extended force = Units::Extended(vector.factor) * units.force;
        for (const PileLoad& load : vector.loads) {
            ExpectedRecord record = {
                "load",      load.pile, 0.0, {"pile number", "Fx", "Fy", "Fz", "Mx", "My", "Mz"},
                {load.pile}, {}};
            for (std::size_t i = 0; i < load.components.size(); ++i) {
                const Units::Extended factor = i < 3 ? force : force * units.length;
                record.items.emplace_back(scaled(load.components[i], factor));
            }
            file.push_back(record);
        }
    }
    return file;
}

} // namespace korvat::test
