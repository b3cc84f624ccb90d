// Writes the plot file: node coordinates of every pile.
#pragma once

#include "model/store/store.hpp"

namespace korvat {

// Writes PILEPLOT.TXT on NF14. Dummy piles are left out.
void write_plot_file(Store& cmn);

} // namespace korvat
