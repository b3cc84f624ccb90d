#include "model/sections/deck_reader.hpp"

#include "model/store/integer.hpp"

#include <algorithm>

namespace korvat {

Cause DeckReader::read_record(deck::RecordId id, int k) {
    const deck::Record& record = deck::record(id);
    LOC = deck::location_of(record, k);
    int count = record.count;
    int fault = 0;
    ++cmn.NLINE;
    read(cmn, count, LOC, cmn.NF12, cmn.NF6, NPHYS, cmn.LINE, VAR, fault);
    cmn.NLINE += std::max(NPHYS - 1, 0); // the continuation lines
    if (fault != 0) return report_record_fault();
    return Cause::none;
}

DeckPlace DeckReader::place(int i) const {
    if (i < 1) return line_place();
    const int first_line = cmn.NLINE - std::max(NPHYS - 1, 0);
    const DeckPlace place = place_of_number(cmn.report.record_lines, cmn.LINE, first_line, i);
    return place.column == 0 ? line_place() : place;
}

int DeckReader::integer(int i) const {
    return nearest_integer(VAR(i));
}

} // namespace korvat
