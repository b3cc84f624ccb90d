// A deck of revision 5 for tests that change a line of it.
#pragma once

#include <string>

namespace korvat::test {

// Two piles with inserts under a cap point: a composite, computed and given yield curves, a load vector. It is
// right, and no rule of the checker finds anything in it. Line 18 has the material, lines 23 to 30 the cross
// sections and the points.
std::string sound_deck_5();

} // namespace korvat::test
