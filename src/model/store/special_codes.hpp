// The codes of special pile node value records, as ISPCOD holds them.
#pragma once

namespace korvat::special_code {

inline constexpr int spring_stiffness = 1;
inline constexpr int force = 2;
inline constexpr int displacement = 3;
inline constexpr int temperature = 4;

} // namespace korvat::special_code
