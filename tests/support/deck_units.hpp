// Factors from the units of a deck to those of the analysis.
#pragma once

namespace korvat::test {

struct Units {
    double force = 1.0;
    double length = 1.0;

    using Extended = long double;
    Extended stress() const { return Extended(force) / (Extended(length) * length); }
    Extended weight() const { return stress() / length; }
    Extended stiffness() const { return Extended(force) * length * length; }
};

// A factor that is not positive stands for 1.
inline Units units_of(double force_factor, double length_factor) {
    constexpr double smallest = 1.0e-10;
    return {smallest > force_factor ? 1.0 : force_factor,
            smallest > length_factor ? 1.0 : length_factor};
}

inline double scaled(double value, Units::Extended factor) {
    return static_cast<double>(value * factor);
}

} // namespace korvat::test
