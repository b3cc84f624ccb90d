#include "model/sections/deck_lines.hpp"

namespace korvat {
namespace {

// The line that could not be read; where the input was not even copied, the one that ended it.
DeckPlace unread_place(const Store& cmn) {
    const int behind_copy = static_cast<int>(cmn.report.deck_lines.size()) + 1;
    return {.line = cmn.NLINE == 0 ? behind_copy : cmn.NLINE};
}

} // namespace

Cause DeckLines::report_unreadable(fortran::ReadStatus status) {
    if (status != fortran::ReadStatus::end) return report_format_error(unread_place(cmn));
    report_error(cmn, cmn.NF6, unread_place(cmn), messages_.end_of_file, LOC);
    return Cause::end_of_file;
}

Cause DeckLines::report_format_error(const DeckPlace& place) {
    report_error(cmn, cmn.NF6, place, messages_.format_error, LOC);
    return Cause::format_error;
}

Cause DeckLines::report_record_fault() {
    report_error(cmn, cmn.NF6, line_place(), messages_.record_fault, LOC);
    return Cause::record_fault;
}

} // namespace korvat
