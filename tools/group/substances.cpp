#include "group/substances.hpp"

#include <algorithm>

namespace korvat::group {
namespace {

constexpr double foot = 0.3048;
constexpr double inch = 0.0254;
constexpr double kip = 4448.2216;

constexpr UnitSystem all_systems[] = {
    {"kN and m", "m", 1.0e3, 1.0},      {"N and m", "m", 1.0, 1.0},
    {"N and mm", "mm", 1.0, 1.0e-3},    {"MN and m", "m", 1.0e6, 1.0},
    {"kip and ft", "ft", kip, foot},    {"kip and inch", "inch", kip, inch},
    {"kN and mm", "mm", 1.0e3, 1.0e-3}, {"kN and cm", "cm", 1.0e3, 1.0e-2},
    {"tf and m", "m", 9806.65, 1.0},
};

// Steel includes ductile iron, concrete includes grout.
constexpr Substance all_substances[] = {
    {"steel",
     {1.55e11, 2.25e11},
     {6.0e4, 8.2e4},
     {7.0e3, 8.1e3},
     {1.5e8, 1.1e9},
     {0.24, 0.36},
     true},
    {"aluminium",
     {6.3e10, 7.6e10},
     {1.5e4, 2.9e4},
     {2.6e3, 2.9e3},
     {5.0e7, 6.0e8},
     {0.28, 0.38},
     true},
    {"concrete",
     {1.4e10, 6.0e10},
     {1.0e4, 2.7e4},
     {1.8e3, 2.7e3},
     {3.0e6, 2.5e8},
     {0.08, 0.32},
     false},
    {"timber", {5.0e9, 1.8e10}, {1.0e3, 1.3e4}, {3.5e2, 1.2e3}, {3.0e6, 1.5e8}, {}, false},
};

// How much the kinds of values count.
constexpr double modulus_votes = 3.0;
constexpr double weight_votes = 2.0;
constexpr double yield_votes = 2.0;
constexpr double diameter_votes = 3.0;
constexpr double length_votes = 1.0;

bool is_modulus(double pascals) {
    return !with_modulus(pascals).empty();
}

// Whether a value is that of a substance: of one with the modulus, where there is one, else of any.
bool is_value(Range Substance::*range, double value, double modulus) {
    const bool is_known = is_modulus(modulus);
    return std::ranges::any_of(all_substances, [&](const Substance& s) {
        return (!is_known || s.modulus.holds(modulus)) && (s.*range).holds(value);
    });
}

bool is_weight(const UnitSystem& units, const Material& m) {
    return is_value(&Substance::weight, m.weight * units.unit_weight(), m.modulus * units.stress());
}

bool is_yield(const UnitSystem& units, const Material& m) {
    return is_value(&Substance::yield, m.yield_stress * units.stress(), m.modulus * units.stress());
}

// The part of the values for which a condition holds; 1 for none.
template <typename Values, typename Condition>
double part(const Values& values, const Condition& holds) {
    if (values.empty()) return 1.0;
    return static_cast<double>(std::ranges::count_if(values, holds)) /
           static_cast<double>(values.size());
}

double votes(const UnitSystem& units, const Evidence& given) {
    // A value that is not given speaks for no units and against none.
    const auto has_modulus = [&](const Material& m) {
        return is_modulus(m.modulus * units.stress());
    };
    const auto has_weight = [&](const Material& m) {
        return m.weight == 0.0 || is_weight(units, m);
    };
    const auto has_yield = [&](const Material& m) {
        return m.yield_stress == 0.0 || is_yield(units, m);
    };
    const auto has_diameter = [&](double d) { return pile_diameters.holds(d * units.length); };
    const auto has_length = [&](double l) { return pile_lengths.holds(l * units.length); };
    return modulus_votes * part(given.materials, has_modulus) +
           weight_votes * part(given.materials, has_weight) +
           yield_votes * part(given.materials, has_yield) +
           diameter_votes * part(given.diameters, has_diameter) +
           length_votes * part(given.lengths, has_length);
}

// Whether a material can be made out in these units: by its modulus, or by weight and yield stress.
bool knows(const UnitSystem& units, const Material& m) {
    return is_modulus(m.modulus * units.stress()) || (is_weight(units, m) && is_yield(units, m));
}

} // namespace

std::span<const UnitSystem> unit_systems() {
    return all_systems;
}

std::span<const Substance> substances() {
    return all_substances;
}

std::vector<const Substance*> with_modulus(double modulus) {
    std::vector<const Substance*> found;
    for (const Substance& substance : all_substances) {
        if (substance.modulus.holds(modulus)) found.push_back(&substance);
    }
    return found;
}

std::optional<UnitSystem> likely_units(const Evidence& evidence) {
    const UnitSystem* best = nullptr;
    double most = 0.0;
    for (const UnitSystem& units : all_systems) {
        if (const double found = votes(units, evidence); found > most) {
            most = found;
            best = &units;
        }
    }
    const auto is_known = [&](const Material& m) { return knows(*best, m); };
    if (best == nullptr || std::ranges::none_of(evidence.materials, is_known)) return std::nullopt;
    return *best;
}

} // namespace korvat::group
