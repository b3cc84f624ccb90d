// Prints the whole input file with line numbers between two column rulers.
#pragma once

#include "model/store/store.hpp"

#include <string_view>

namespace korvat {

// Echoes the raw unit NFR, comments and all, to NFW under a heading with the program's NAME.
// Leaves NFR rewound, also after a read error, which it reports on unit 0.
void echo(Store& cmn, int NFR, int NFW, std::string_view NAME);

} // namespace korvat
