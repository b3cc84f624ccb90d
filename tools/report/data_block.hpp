// The data of the page for its script, and for other programs: docs/report-data.md describes them.
#pragma once

#include "report/report_data.hpp"

#include <string>

namespace korvat::report {

// One JSON object without the character "<", so that it cannot end the element around it. Without geometry
// it has no nodes, no elements and no other group.
[[nodiscard]] std::string data_block(const ReportData& data, bool has_geometry);

} // namespace korvat::report
