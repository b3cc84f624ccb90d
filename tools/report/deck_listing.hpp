// The check's findings, the deck and the log of its run.
#pragma once

#include "report/markup.hpp"
#include "report/report_data.hpp"

namespace korvat::report {

void write_findings(Markup& page, const ReportData& data); // the section `findings`
void write_deck(Markup& page, const ReportData& data);     // the section `deck`
void write_log(Markup& page, const ReportData& data);      // the section `log`

// "2 errors, 1 warning": of the findings.
[[nodiscard]] std::string counts_text(const check::CheckedDeck& deck);

} // namespace korvat::report
