// A small deck with generated yield curves, in units that are chosen by its factors.
#pragma once

#include <string>

namespace korvat::test {

// Revision 5, one pile, five tubes: section 1 stocky, with code -1; sections 2 and 3 slender, with
// codes -2 and -1; sections 4 and 5 slender and of a high yield stress, with codes -1 and -2: no
// strength of theirs is the yield stress, and the material factor of norchk varies along the curve.
// The records are in kN and m; the factors set the units of the analysis: 1000 and 1000 for N and mm.
std::string scaled_deck(double force_factor, double length_factor);

} // namespace korvat::test
