// The two capacity checks of a tubular section under axial force and bending.
#pragma once

#include "model/store/store.hpp"

#include <array>

namespace korvat {

// Forces on a section: the axial force, positive in compression, is the third, the two bending
// moments are the fourth and fifth; the others are not used.
using SectionForces = std::array<double, 6>;

inline constexpr std::size_t axial_force = 2; // places in SectionForces
inline constexpr std::size_t bending_2 = 3;
inline constexpr std::size_t bending_3 = 4;

// Error codes of a check.
namespace check_error {
inline constexpr int diameter = 1;
inline constexpr int wall = 2;
inline constexpr int elastic_modulus = 3;
inline constexpr int yield_stress = 4;
inline constexpr int bending_stiffness = 6; // EI above that of the solid section
inline constexpr int thin_modified_wall = 7;
inline constexpr int thick_modified_wall = 8;
} // namespace check_error

// A tube to be checked.
struct CheckedTube {
    double D = 0.0;  // outer diameter, L
    double t = 0.0;  // wall, L
    double EA = 0.0; // axial stiffness, F; 0: from D and t
    double EI = 0.0; // bending stiffness, F L2; 0: from D and t
    double E = 0.0;  // elastic modulus, F/L2
    double fy = 0.0; // yield stress, F/L2
};

struct Utilisation {
    double U = 0.0; // 1 at the capacity
    int error = 0;  // a check_error; with some of them there is a U all the same
};

// A diameter of more than 120 walls gives U = 9.999 and a warning on unit 0.
[[nodiscard]] Utilisation norchk(Store& cmn, const CheckedTube& tube, const SectionForces& forces);
[[nodiscard]] Utilisation isochk(Store& cmn, const CheckedTube& tube, const SectionForces& forces);

} // namespace korvat
