// Values that no pile has in the units of the deck.
#include "check/deck_view.hpp"
#include "check/substances.hpp"
#include "check/tell.hpp"
#include "check/text.hpp"
#include "check/thresholds.hpp"

#include <algorithm>
#include <cmath>

namespace korvat::check {
namespace {

constexpr double gravity = 9.80665; // m/s2

struct Unit {
    std::string_view name;
    double size = 1.0; // in N or m
};

constexpr Unit force_units[] = {{"N", 1.0},         {"kN", 1.0e3},      {"MN", 1.0e6},
                                {"lbf", 4.4482216}, {"kip", 4448.2216}, {"kgf", 9.80665},
                                {"tf", 9806.65}};
constexpr Unit length_units[] = {
    {"m", 1.0}, {"mm", 1.0e-3}, {"cm", 1.0e-2}, {"ft", 0.3048}, {"inch", 0.0254}};

constexpr Unit density_units[] = {{"t/m3", 1.0e3},   {"kg/m3", 1.0},      {"t/mm3", 1.0e12},
                                  {"kg/mm3", 1.0e9}, {"lb/ft3", 16.0185}, {"lb/inch3", 27679.9}};

std::string text(std::string_view view) {
    return std::string(view);
}

const Unit* unit_of_size(std::span<const Unit> units, double size) {
    const auto is_same = [&](const Unit& unit) {
        return std::abs(size / unit.size - 1.0) < threshold::same_unit;
    };
    const auto found = std::ranges::find_if(units, is_same);
    return found == units.end() ? nullptr : &*found;
}

void look_at_positive_factors(const Subject& subject, const Rule& rule, Findings& findings) {
    constexpr double counts_as_1 = 1.0e-10;
    const auto look = [&](deck::RecordId id, const std::string& name) {
        for (const Row* const row : subject.outline.rows(id)) {
            if (row->numbers.empty() || row->numbers.front().value > counts_as_1) continue;
            tell(findings, rule, place_of(row, 1),
                 "the " + name + " factor " + text_of(row->numbers.front().value) +
                     " is not above zero and counts as 1.0",
                 "Write 1.0, or the factor that is meant.");
        }
    };
    look(deck::RecordId::force_factor, "force");
    look(deck::RecordId::length_factor, "length");
}

// The unit in which the deck's numbers are stored is that of the deck over the factor.
void look_at_factor(const Subject& subject, const Rule& rule, Findings& findings, deck::RecordId id,
                    double factor, const std::string& name, const Unit& deck_unit,
                    std::span<const Unit> units) {
    if (unit_of_size(units, deck_unit.size / factor) != nullptr) return;
    const auto rows = subject.outline.rows(id);
    const Unit* const meant = unit_of_size(units, deck_unit.size * factor);
    const std::string from = text(deck_unit.name);
    tell(findings, rule, place_of(rows.empty() ? nullptr : rows.front(), 1),
         "the " + name + " factor " + text_of(factor) +
             " turns the numbers of the deck, which are in " + from + ", into units of " +
             text_of(1.0 / factor) + " " + from,
         meant != nullptr
             ? "Give " + text_of(1.0 / factor) + ", which turns " + from + " into " +
                   text(meant->name) + "."
             : "Give 1.0, or the factor from " + from + " to the unit that is wanted.");
}

void look_at_force_factor(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto units = deck_units(subject);
    if (!units) return;
    const Unit* const unit = unit_of_size(force_units, units->force);
    look_at_factor(subject, rule, findings, deck::RecordId::force_factor, force_factor(subject),
                   "force", *unit, force_units);
}

void look_at_length_factor(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto units = deck_units(subject);
    if (!units) return;
    look_at_factor(subject, rule, findings, deck::RecordId::length_factor, length_factor(subject),
                   "length", {units->length_name, units->length}, length_units);
}

// "kN and m, N and m, ... or tf and m".
std::string all_unit_systems() {
    std::string list;
    const auto systems = unit_systems();
    for (std::size_t i = 0; i < systems.size(); ++i) {
        const std::string_view before = i + 1 == systems.size() ? " or " : ", ";
        if (i > 0) list.append(before);
        list.append(systems[i].name);
    }
    return list;
}

void look_at_unit_system(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto list = materials(subject);
    if (list.empty() || deck_units(subject)) return;
    tell(
        findings, rule, place_of(list.front().row, 2),
        "the E-modulus " + text_of(list.front().modulus) + " of material " +
            text_of(list.front().number) +
            " is that of no steel, concrete, aluminium or timber in " + all_unit_systems(),
        "Give modulus, yield stress and unit weight in the force and length units of the deck; the "
        "other rules on units have not looked at this deck.");
}

// "; in N and mm it is", where a substance has the value in other units.
std::string elsewhere(double value, double (UnitSystem::*unit)() const, const Range& range) {
    for (const UnitSystem& units : unit_systems()) {
        if (range.holds(value * (units.*unit)())) return "; in " + text(units.name) + " it is";
    }
    return {};
}

// "; in N and mm it is that of steel", where there are such units.
std::string of_another(double value, double (UnitSystem::*unit)() const, Range Substance::*range) {
    for (const UnitSystem& units : unit_systems()) {
        for (const Substance& substance : substances()) {
            if (!(substance.*range).holds(value * (units.*unit)())) continue;
            return "; in " + text(units.name) + " it is that of " + text(substance.name);
        }
    }
    return {};
}

void look_at_moduli(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto units = deck_units(subject);
    if (!units) return;
    for (const MaterialView& material : materials(subject)) {
        if (!with_modulus(material.modulus * units->stress()).empty()) continue;
        tell(findings, rule, place_of(material.row, 2),
             "the E-modulus " + text_of(material.modulus) + " of material " +
                 text_of(material.number) + " is that of no pile material in " + text(units->name) +
                 ", the units of the other values" +
                 of_another(material.modulus, &UnitSystem::stress, &Substance::modulus),
             "Give the modulus in the units of the deck.");
    }
}

// Calls `look` for each material whose modulus tells what it is.
template <typename Look>
void each_known_material(const Subject& subject, const Look& look) {
    const auto units = deck_units(subject);
    if (!units) return;
    for (const MaterialView& material : materials(subject)) {
        const auto candidates = with_modulus(material.modulus * units->stress());
        if (!candidates.empty()) look(*units, material, candidates);
    }
}

using Candidates = std::vector<const Substance*>;

bool any_holds(const Candidates& candidates, Range Substance::*range, double value) {
    return std::ranges::any_of(candidates,
                               [&](const Substance* s) { return (s->*range).holds(value); });
}

void look_at_yield_stresses(const Subject& subject, const Rule& rule, Findings& findings) {
    each_known_material(subject, [&](const UnitSystem& units, const MaterialView& material,
                                     const Candidates& candidates) {
        const double stress = material.yield_stress;
        if (stress == 0.0 || any_holds(candidates, &Substance::yield, stress * units.stress()))
            return;
        const Substance& substance = *candidates.front();
        const std::string name = text(substance.name);
        const std::string where = elsewhere(stress, &UnitSystem::stress, substance.yield);
        tell(findings, rule, place_of(material.row, 4),
             "the yield stress " + text_of(stress) + " of material " + text_of(material.number) +
                 " is not that of " + name + " in " + text(units.name) + where,
             "Give it in the units of the modulus: " + name + " has " +
                 text_of(substance.yield.least / units.stress(), 3) + " to " +
                 text_of(substance.yield.largest / units.stress(), 3) + ".");
    });
}

// The unit in which a number is the density of a substance; null where it is none.
const Unit* density_unit(double value, const Candidates& candidates) {
    const auto is_density = [&](const Unit& unit) {
        return any_holds(candidates, &Substance::density, value * unit.size);
    };
    const auto found = std::ranges::find_if(density_units, is_density);
    return found == std::end(density_units) ? nullptr : &*found;
}

bool is_sound_weight(const UnitSystem& units, const MaterialView& material,
                     const Candidates& candidates) {
    return material.weight == 0.0 ||
           any_holds(candidates, &Substance::weight, material.weight * units.unit_weight());
}

void look_at_weights(const Subject& subject, const Rule& rule, Findings& findings) {
    each_known_material(subject, [&](const UnitSystem& units, const MaterialView& material,
                                     const Candidates& candidates) {
        if (is_sound_weight(units, material, candidates)) return;
        if (density_unit(material.weight, candidates) != nullptr) return;
        const Substance& substance = *candidates.front();
        const std::string name = text(substance.name);
        tell(findings, rule, place_of(material.row, 5),
             "the unit weight " + text_of(material.weight) + " of material " +
                 text_of(material.number) + " is not that of " + name + " in " + text(units.name) +
                 elsewhere(material.weight, &UnitSystem::unit_weight, substance.weight),
             "Give it in the units of the modulus: " + name + ", dry or under water, has " +
                 text_of(substance.weight.least / units.unit_weight(), 3) + " to " +
                 text_of(substance.weight.largest / units.unit_weight(), 3) + ".");
    });
}

void look_at_densities(const Subject& subject, const Rule& rule, Findings& findings) {
    each_known_material(subject, [&](const UnitSystem& units, const MaterialView& material,
                                     const Candidates& candidates) {
        if (is_sound_weight(units, material, candidates)) return;
        const Unit* const unit = density_unit(material.weight, candidates);
        if (unit == nullptr) return;
        tell(findings, rule, place_of(material.row, 5),
             "the unit weight " + text_of(material.weight) + " of material " +
                 text_of(material.number) + " looks like a density in " + text(unit->name),
             "Give the density times gravity: " +
                 text_of(material.weight * unit->size * gravity / units.unit_weight(), 3) + " in " +
                 text(units.name) + ".");
    });
}

// "; it looks like mm", where a size fits in m or mm and not in the unit of the deck.
std::string other_length(double value, const Range& range, std::string_view deck_unit) {
    constexpr Unit looked_for[] = {{"m", 1.0}, {"mm", 1.0e-3}};
    for (const Unit& unit : looked_for) {
        if (unit.name == deck_unit || !range.holds(value * unit.size)) continue;
        return "; it looks like " + text(unit.name);
    }
    return {};
}

constexpr Range diameters{threshold::least_diameter, threshold::largest_diameter};
constexpr Range walls{threshold::least_steel_wall, threshold::largest_steel_wall};
constexpr Range slendernesses{threshold::least_slenderness, threshold::largest_slenderness};
constexpr Range lengths{threshold::least_length, threshold::largest_length};

void look_at_diameters(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto units = deck_units(subject);
    if (!units) return;
    for (const TubeView& tube : tubes(subject)) {
        if (diameters.holds(tube.diameter * units->length)) continue;
        tell(findings, rule, tube.diameter_place(),
             "the diameter " + text_of(tube.diameter) + " of " + name_of(tube) + " is " +
                 text_of(tube.diameter * units->length, 3) + " m in " + text(units->name) +
                 other_length(tube.diameter, diameters, units->length_name),
             "Give it in the length unit of the deck, " + text(units->length_name) + ".");
    }
}

void look_at_walls(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto units = deck_units(subject);
    if (!units) return;
    const MetalTubes metal_tubes(subject);
    for (const TubeView& tube : tubes(subject)) {
        // Of other tubes the rules on diameter and D/t speak.
        if (!diameters.holds(tube.diameter * units->length)) continue;
        if (tube.wall <= 0.0 || !slendernesses.holds(tube.diameter / tube.wall)) continue;
        if (!metal_tubes.holds(tube)) continue;
        if (walls.holds(tube.wall * units->length)) continue;
        tell(findings, rule, tube.wall_place(),
             "the wall " + text_of(tube.wall) + " of " + name_of(tube) + " is " +
                 text_of(tube.wall * units->length * 1.0e3, 3) + " mm in " + text(units->name) +
                 "; a metal tube has " + text_of(walls.least * 1.0e3) + " to " +
                 text_of(walls.largest * 1.0e3) + " mm",
             "Give it in the length unit of the deck, " + text(units->length_name) + ".");
    }
}

void look_at_lengths(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto units = deck_units(subject);
    if (!units) return;
    const auto lists = segment_lists(subject);
    for (const PileView& pile : piles(subject)) {
        const auto has_segments = [&](const SegmentListView& list) {
            return list.pile == pile.number && !list.types.empty();
        };
        if (!pile.is_given() || std::ranges::none_of(lists, has_segments)) continue;
        const double length = std::hypot(pile.tip[0] - pile.head[0], pile.tip[1] - pile.head[1],
                                         pile.tip[2] - pile.head[2]);
        if (lengths.holds(length * units->length)) continue;
        tell(findings, rule, place_of(pile.row, 9),
             "pile " + text_of(pile.number) + " is " + text_of(length) +
                 " long from head to tip, " + text_of(length * units->length, 3) + " m in " +
                 text(units->name) + other_length(length, lengths, units->length_name),
             "Give head and tip in the length unit of the deck, " + text(units->length_name) + ".");
    }
}

void look_at_fluids(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto units = deck_units(subject);
    if (!units) return;
    const Range fluids{threshold::least_fluid_weight, threshold::largest_fluid_weight};
    for (const TubeView& tube : tubes(subject)) {
        if (tube.fluid == 0.0 || fluids.holds(tube.fluid * units->unit_weight())) continue;
        tell(findings, rule, tube.fluid_place(),
             "the unit weight " + text_of(tube.fluid) + " of the fluid in " + name_of(tube) +
                 " is " + text_of(tube.fluid * units->unit_weight() * 1.0e-3, 3) + " kN/m3 in " +
                 text(units->name),
             "Give a unit weight in the units of the deck: water has " +
                 text_of(1000.0 * gravity / units->unit_weight(), 3) + ".");
    }
}

void look_at_temperature_strains(const Subject& subject, const Rule& rule, Findings& findings) {
    const Range strains{threshold::least_temperature_strain, threshold::largest_temperature_strain};
    for (const MaterialView& material : materials(subject)) {
        const bool is_told =
            material.strain > threshold::warned_temperature_strain; // by the program
        if (is_told || material.strain == 0.0 || strains.holds(material.strain)) continue;
        tell(
            findings, rule, place_of(material.row, 6),
            "the temperature strain " + text_of(material.strain) + " of material " +
                text_of(material.number) + " is not that of a pile material for one degree",
            "Give the strain for one degree: steel has 1.2E-5 for one degree Celsius, 6.5E-6 for one "
            "Fahrenheit.");
    }
}

constexpr Rule rules[] = {
    {"factor-not-positive", Level::warning, "unit factors that count as 1.0",
     look_at_positive_factors},
    {"force-factor", Level::warning, "a force factor that leads to no unit of force",
     look_at_force_factor},
    {"length-factor", Level::warning, "a length factor that leads to no unit of length",
     look_at_length_factor},
    {"unit-system", Level::warning, "materials that fit no system of units", look_at_unit_system},
    {"modulus-unusual", Level::warning, "an E-modulus of no pile material", look_at_moduli},
    {"yield-unusual", Level::warning, "a yield stress that does not fit the material",
     look_at_yield_stresses},
    {"weight-unusual", Level::warning, "a unit weight that does not fit the material",
     look_at_weights},
    {"density-as-weight", Level::warning, "a density where a unit weight belongs",
     look_at_densities},
    {"diameter-unusual", Level::warning, "a diameter that no pile has", look_at_diameters},
    {"wall-unusual", Level::warning, "a wall that no metal tube has", look_at_walls},
    {"length-unusual", Level::warning, "a length that no pile has", look_at_lengths},
    {"fluid-weight-unusual", Level::warning, "a unit weight that no fluid has", look_at_fluids},
    {"temperature-strain-unusual", Level::warning, "a temperature strain of no pile material",
     look_at_temperature_strains},
};

} // namespace

std::span<const Rule> unit_rules() {
    return rules;
}

} // namespace korvat::check
