#include "model/sections/deck_reader.hpp"

#include "model/store/integer.hpp"

#include <algorithm>
#include <utility>

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
    if (cmn.report.keeps_records) keep_record(id, k, count);
    return Cause::none;
}

void DeckReader::keep_record(deck::RecordId id, int k, int count) {
    GivenRecord record{.kind = static_cast<int>(id), .k = k, .first_line = first_line()};
    for (int i = 1; i <= count; ++i) {
        const DeckPlace at =
            place_of_number(cmn.report.record_lines, cmn.LINE, record.first_line, i);
        record.numbers.push_back({.value = VAR(i), .place = at});
    }
    cmn.report.records.push_back(std::move(record));
}

int DeckReader::first_line() const {
    return cmn.NLINE - std::max(NPHYS - 1, 0);
}

DeckPlace DeckReader::place(int i) const {
    if (i < 1) return line_place();
    const DeckPlace place = place_of_number(cmn.report.record_lines, cmn.LINE, first_line(), i);
    return place.column == 0 ? line_place() : place;
}

int DeckReader::integer(int i) const {
    return nearest_integer(VAR(i));
}

} // namespace korvat
