// Plan, elevations and the strips of the pile types, as SVG.
#pragma once

#include "report/markup.hpp"
#include "report/report_data.hpp"

namespace korvat::report {

// The section `drawings` of the page.
void write_drawings(Markup& page, const ReportData& data);

// A figure for each pile type: sections and wall thickness over the distance from the head.
void write_strips(Markup& page, const ReportData& data);

// Numbers with their runs: "1-3, 7".
[[nodiscard]] std::string number_list(const std::vector<int>& numbers, std::size_t most_runs);

} // namespace korvat::report
