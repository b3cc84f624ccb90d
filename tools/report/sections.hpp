// The cross sections: tables, N-M diagrams, tubes of composites.
#pragma once

#include "report/markup.hpp"
#include "report/report_data.hpp"

namespace korvat::report {

// The section `sections` of the page.
void write_sections(Markup& page, const ReportData& data);

} // namespace korvat::report
