// Reads lines and numeric records of the comment-free copy, counts them and reports faults.
#include "model/sections/deck_reader.hpp"

#include "model/store/integer.hpp"

#include <algorithm>

namespace korvat {

// The line that could not be read; where the input was not even copied, the one that ended it.
DeckPlace DeckReader::unread_place() const {
    const int behind_copy = static_cast<int>(cmn.report.deck_lines.size()) + 1;
    return {.line = cmn.NLINE == 0 ? behind_copy : cmn.NLINE};
}

int DeckReader::report_unreadable(fortran::ReadStatus status) {
    if (status == fortran::ReadStatus::end) {
        report_error(cmn, cmn.NF6, unread_place(), messages_.end_of_file, LOC);
        return cause::end_of_file;
    }
    report_error(cmn, cmn.NF6, unread_place(), messages_.format_error, LOC);
    return cause::format_error;
}

int DeckReader::read_record(deck::RecordId id, int k) {
    const deck::Record& record = deck::record(id);
    LOC = deck::location_of(record, k);
    int count = record.count;
    int fault = 0;
    ++cmn.NLINE;
    read(cmn, count, LOC, cmn.NF12, cmn.NF6, NPHYS, cmn.LINE, VAR, fault);
    cmn.NLINE += std::max(NPHYS - 1, 0); // the continuation lines
    if (fault == 0) return no_fault;
    report_error(cmn, cmn.NF6, line_place(), messages_.record_fault, LOC);
    return cause::record_fault;
}

DeckPlace DeckReader::place(int i) const {
    const DeckPlace place =
        place_of_number(cmn.report.record_lines, cmn.LINE, cmn.NLINE - std::max(NPHYS - 1, 0), i);
    return place.column == 0 ? line_place() : place;
}

int DeckReader::integer(int i) const {
    return nearest_integer(VAR(i));
}

} // namespace korvat
