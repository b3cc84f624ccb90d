#include "report/units.hpp"

#include <cmath>

namespace korvat::report {
namespace {

constexpr double same_unit = 1.0e-3; // part of it: factors are given with a few digits

bool are_equal(double a, double b) {
    return std::abs(a - b) <= same_unit * b;
}

// "kN" of "kN and m".
std::string force_name(const check::UnitSystem& system) {
    return std::string(system.name.substr(0, system.name.find(' ')));
}

std::optional<std::string> force_of(double newtons) {
    for (const check::UnitSystem& system : check::unit_systems()) {
        if (are_equal(newtons, system.force)) return force_name(system);
    }
    return std::nullopt;
}

std::optional<std::string> length_of(double metres) {
    for (const check::UnitSystem& system : check::unit_systems()) {
        if (are_equal(metres, system.length)) return std::string(system.length_name);
    }
    return std::nullopt;
}

} // namespace

Units stored_units(const std::optional<check::UnitSystem>& deck, double force_factor,
                   double length_factor) {
    if (!deck) return {};
    return {force_of(deck->force / force_factor), length_of(deck->length / length_factor)};
}

std::string unit_text(std::string_view unit, const Units& units) {
    if (unit == "-") return "";
    std::string text;
    for (const char c : unit) {
        switch (c) {
        case 'F':
            text += units.force.value_or("F");
            break;
        case 'L':
            text += units.length.value_or("L");
            break;
        case '2':
            text += "²";
            break;
        case '3':
            text += "³";
            break;
        case ' ':
            text += "·";
            break;
        default:
            text += c;
        }
    }
    return text;
}

} // namespace korvat::report
