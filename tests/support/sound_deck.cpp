#include "sound_deck.hpp"

namespace korvat::test {

std::string sound_deck_5() {
    return R"(Two piles with inserts under a cap point, kN and m
KORVAT Version: 2009-09-01

General values of the run
  1.0     force unit factor
  1.0     length unit factor
  3       piles
  3       cross sections
  1       material types
  3       pile segment types
  1       load vectors
  2       print level
  0       echo level

Material types
  N    E-modulus   shear mod.   yield      unit weight   temp. strain
       kN/m2       kN/m2        kN/m2      kN/m3         1/degree
  1    2.1E8       8.077E7      3.55E5     77.0          1.2E-5

Tubular cross sections
  N type code mat  diam   wall    EA EI GA GJ  fluid  ecc  miscellaneous
  N sub  type code mat  diam  wall   EA EI GA GJ  fluid  ecc  miscellaneous
  1  2   0    0   0.     0.      0. 0. 0. 0.   0.    0.   0. 0. 0.
  1  1   1    0   1   1.000  0.030   0. 0. 0. 0.   0.0   0.   0. 0. 0.
  1  2   1    0   1   0.940  0.020   0. 0. 0. 0.  10.0   0.   0. 0. 0.
  2  1  -1    1   1.000  0.030   0. 0. 0. 0.  10.0   0.   0. 0. 0.
  3  1   3    1   0.800  0.020   0. 0. 0. 0.  10.0   0.   0. 0. 0.
  3  1    15600.      0.    17400.      0.
  3  2        0.   3310.        0.   4320.
  3  3   -15600.      0.   -17400.      0.

Pile segment types
  N   start  end    length   elements
  1     1     1     10.0        5
  2     2     2      9.0        5
  3     3     3      6.0        3

Pile geometry
  NP  gen  sym    x-head   y-head  z-head    x-tip    y-tip   z-tip
  1    0    0       0.0      0.0    -1.0       0.0      0.0    -1.0
  2    0    0       3.0      0.0     0.0      10.0      0.0    24.0
  3    2    2       0.0      0.0     0.0       0.0      0.0     0.0
  NP  NSEG  segment types from head to tip
  1    0
  2    3    1 2 3
  NP1 NP2  tip  fix
  1    1    0    0
  2    3    0    1

Special pile node values
  NP1 NP2  ND1 ND2  code   six values
  2    3    1   5    4     1.8E-4 0. 0.   0. 0. 0.
  0    0    0   0    0     0. 0. 0. 0. 0. 0.

Load vectors
Mooring force on the cap point
  1       loaded piles
  1.5     load factor
  NP   Fx     Fy    Fz     Mx     My     Mz
  1    400.   0.    50.    0.   -600.    0.
END
)";
}

} // namespace korvat::test
