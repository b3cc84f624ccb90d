// Drawings of cross sections: N-M diagrams, and the tubes of composites.
#pragma once

#include "report/markup.hpp"
#include "report/report_data.hpp"

namespace korvat::report {

// A figure for each section with yield curves, and one for each composite.
void write_section_figures(Markup& page, const ReportData& data);

} // namespace korvat::report
