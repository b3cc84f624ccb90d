// The report: one HTML file that needs nothing but a browser.
#pragma once

#include "report/report_data.hpp"

#include <string>

namespace korvat::report {

struct PageOptions {
    bool has_view = true; // in three dimensions
};

// The page has everything inside: no request leaves it, and its policy allows none. No text of a deck can
// become markup or script.
[[nodiscard]] std::string page(const ReportData& data, const PageOptions& options);

} // namespace korvat::report
