// Reads lines and numeric records of the comment-free copy, counts them and reports faults.
#include "model/deck_reader.hpp"

#include "model/integer.hpp"

#include <algorithm>

namespace korvat {

int DeckReader::report_unreadable(fortran::ReadStatus status) {
    if (status == fortran::ReadStatus::end) {
        cmn.runtime.write(cmn.NF6, messages_.end_of_file, LOC);
        return cause::end_of_file;
    }
    cmn.runtime.write(cmn.NF6, messages_.format_error, LOC);
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
    cmn.runtime.write(cmn.NF6, messages_.record_fault, LOC);
    return cause::record_fault;
}

int DeckReader::integer(int i) const {
    return nearest_integer(VAR(i));
}

} // namespace korvat
