// The decks of the fault tests, and a directory that holds one of them and the files of earlier runs.
#include "workplace.hpp"

#include "../support/masks.hpp"
#include "../support/text.hpp"

namespace korvat::test {

std::string accepted_deck() {
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
  1       echo level

Material types
  N    E-modulus   shear mod.   yield      unit weight   temp. strain
       kN/m2       kN/m2        kN/m2      kN/m3         1/degree
  1    2.1E8       8.077E7      3.55E5     77.0          1.2E-5

Tubular cross sections
*  the first line of a composite section: zeros up to the fluid
  N type code mat  diam   wall    EA EI GA GJ  fluid  ecc  miscellaneous
  N sub  type code mat  diam  wall   EA EI GA GJ  fluid  ecc  miscellaneous
  1  2   0    0   0.     0.      0. 0. 0. 0.   0.    0.   0. 0. 0.
  1  1   1    0   1   1.000  0.030   0. 0. 0. 0.   0.0   0.   0. 0. 0.
  1  2   1    0   1   0.940  0.020   0. 0. 0. 0.  10.0   0.   0. 0. 0.
* code -1: yield curves are computed
  2  1  -1    1   1.000  0.030   0. 0. 0. 0.  10.0   0.   0. 0. 0.
* code 3: yield curves are given by 3 points below
  3  1   3    1   0.800  0.020   0. 0. 0. 0.  10.0   0.   0. 0. 0.
* section, point, elastic force and moment, plastic force and moment
  3  1    15600.      0.    17400.      0.
  3  2        0.   3310.        0.   4320.
  3  3   -15600.      0.   -17400.      0.

Pile segment types
  N   start  end    length   elements
  1     1     1     10.0        2
  2     2     2      9.0        2
  3     3     3      6.0        1

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
  2    2    1   3    4     20. 0. 0.   0. 0. 0.
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

std::string refused_deck() {
    return with_change(accepted_deck(), "  1    400.", "  4    400.");
}

std::string warned_deck() {
    return with_change(accepted_deck(), "-1    1   1.000  0.030", "-1    1   1.000  0.008");
}

Workplace::Workplace(const std::string& deck) {
    directory_.write_file("KORVAT.INP", deck);
}

void Workplace::add_earlier_files() const {
    for (const char* const name :
         {"KORVAT.MLG", "KORVAT.MLG.bak", "KORVAT.LIS", "KORVAT.LIS.bak", "PILEPLOT.TXT",
          "PILEPLOT.TXT.bak", "PILE.07", "LOAD.09", scratch_name}) {
        directory_.write_file(name, earlier_content(name));
    }
}

Outcome Workplace::run(const Surroundings& surroundings) const {
    return faulty_run(directory_.path(), surroundings);
}

std::string earlier_content(const std::string& name) {
    return "content of the earlier " + name + "\n";
}

std::map<std::string, std::string> masked(std::map<std::string, std::string> files) {
    for (auto& [name, content] : files) {
        if (name == "KORVAT.MLG") content = mask_log(content);
        if (name == "KORVAT.LIS") content = mask_listing(content);
    }
    return files;
}

} // namespace korvat::test
