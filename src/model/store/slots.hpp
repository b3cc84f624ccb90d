// The slots of a CRSVAL record.
#pragma once

namespace korvat::slot {

inline constexpr int diameter = 1;
inline constexpr int wall = 2;
inline constexpr int area = 3;
inline constexpr int modulus = 4; // elastic section modulus
inline constexpr int axial = 5;   // EA
inline constexpr int shear = 6;   // GA
inline constexpr int bending = 7; // EI
inline constexpr int torsion = 8; // GJ
inline constexpr int wall_weight = 9;
inline constexpr int fluid_weight = 10;
inline constexpr int temperature_strain = 11;
inline constexpr int yield_stress = 12;
inline constexpr int elastic_modulus = 13;
inline constexpr int shear_modulus = 14;
inline constexpr int eccentricity = 15;
inline constexpr int axial_yield = 16;     // sum of A * sigy
inline constexpr int torsional_yield = 17; // sum of A * tauy * R, tauy = sigy / 2, R mean radius
inline constexpr int miscellaneous = 18;   // the first of three

} // namespace korvat::slot
