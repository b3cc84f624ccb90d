// A small deck with generated yield curves, in units that are chosen by its factors.
#include "scaled_deck.hpp"

namespace korvat::test {

std::string scaled_deck(double force_factor, double length_factor) {
    const std::string factors =
        std::to_string(force_factor) + "\n" + std::to_string(length_factor) + "\n";
    return R"(Tubes with generated yield curves
KORVAT Version: 2009-09-01

heading
)" + factors +
           R"(1 pile
5 cross sections
2 materials
1 segment type
0
0
0

heading
heading
heading
1 2.1e8 8.0e7 355000 77.0 1.2e-5
2 2.1e8 8.0e7 500000 77.0 1.2e-5

heading
heading
heading
1 1 -1 1  1.0 0.040  0 0 0 0  0 0 0 0 0
2 1 -2 1  1.2 0.015  0 0 0 0  0 0 0 0 0
3 1 -1 1  1.2 0.0125 0 0 0 0  0 0 0 0 0
4 1 -1 2  1.2 0.0102 0 0 0 0  0 0 0 0 0
5 1 -2 2  1.2 0.0102 0 0 0 0  0 0 0 0 0

heading
heading
1 1 1 10.0 2

heading
heading
1 0 0  0 0 0  0 6 8
heading
1 1 1
heading
1 1 0 0

heading
heading
0 0 0 0 0  0 0 0 0 0 0
END
)";
}

} // namespace korvat::test
