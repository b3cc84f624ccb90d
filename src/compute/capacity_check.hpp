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

// Utilisation U of a tube: 1 at its capacity. D, t in L, EA in F, EI in F L2 (0: from D and t),
// E and fy in F/L2. `error` receives 0 or a check_error; the computation goes on where it can. A
// diameter of more than 120 walls gives U = 9.999 and a warning on unit 0.
void norchk(Store& cmn, double D, double t, double EA, double EI, double E, double fy,
            const SectionForces& forces, double& U, int& error);
void isochk(Store& cmn, double D, double t, double EA, double EI, double E, double fy,
            const SectionForces& forces, double& U, int& error);

} // namespace korvat
