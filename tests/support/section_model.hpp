// Independent calculation of the cross-section values of a deck.
#pragma once

#include "deck_reader.hpp"
#include "deck_units.hpp"

#include <array>
#include <vector>

namespace korvat::test {

struct ModelSection {
    int material = 0; // 0: a composite
    // As given. The plot file shows these also for a composite, where both are zero.
    double diameter = 0.0;
    double wall = 0.0;
    std::array<double, 20> values{}; // slot 1 first
    int type = 0;
    int nonlinear = 0; // as given
    std::vector<int> sub_sections;
    std::vector<YieldPoint> points; // as given
};

// With the omitted ones; sub-sections of composites stand behind all others. The materials are in
// the units of the analysis. Throws std::runtime_error for a composite that breaks a rule.
std::vector<ModelSection> model_sections(const Deck& deck, const Units& units,
                                         const std::vector<MaterialRecord>& materials);

} // namespace korvat::test
