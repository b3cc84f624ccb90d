// The tables of piles, node values, load vectors, sums and differences.
#pragma once

#include "report/markup.hpp"
#include "report/report_data.hpp"

namespace korvat::report {

void write_piles(Markup& page, const ReportData& data);       // the section `piles`
void write_node_values(Markup& page, const ReportData& data); // the section `node-values`
void write_loads(Markup& page, const ReportData& data);       // the section `loads`
void write_sums(Markup& page, const ReportData& data);        // the section `sums`
void write_comparison(Markup& page,
                      const ReportData& data); // the section `comparison`, where asked for

} // namespace korvat::report
