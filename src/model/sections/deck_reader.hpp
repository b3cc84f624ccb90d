// Reads lines and numeric records of the comment-free copy, counts them and reports faults.
#pragma once

#include "input/linerd.hpp"
#include "input/read.hpp"
#include "model/sections/deck_records.hpp"
#include "model/store/report_error.hpp"
#include "model/store/store.hpp"

#include <string_view>

namespace korvat {

inline constexpr int no_fault = 0;

// The FORMATs, each for a location code, in which a routine reports that it cannot read on.
struct ReaderMessages {
    std::string_view end_of_file;
    std::string_view format_error;
    std::string_view record_fault; // read has written its own message before
};

// Reads from NF12, counting its lines in NLINE. Every function that returns a code returns no_fault,
// or a cause code after it has written the message of the fault to NF6.
class DeckReader {
public:
    DeckReader(Store& store, const ReaderMessages& messages) : cmn(store), messages_(messages) {}

    // Reads a text line of `Width` columns into LINE.
    template <std::size_t Width>
    [[nodiscard]] int read_text_line() {
        ++cmn.NLINE;
        fortran::Text<Width> line;
        const fortran::ReadStatus status = cmn.runtime.read_line(cmn.NF12, line);
        if (status != fortran::ReadStatus::line) return report_unreadable(status);
        cmn.LINE.assign(line.view());
        return no_fault;
    }

    // Reads the k-th record of its kind into VAR and sets LOC to its location code.
    [[nodiscard]] int read_record(deck::RecordId id, int k = 0);

    // Writes the error message of a check that failed at a place; returns its cause code.
    template <fortran::Writable... Items>
    [[nodiscard]] int reject(const DeckPlace& place, std::string_view format,
                             const Items&... items) {
        report_error(cmn, cmn.NF6, place, format, items...);
        return cause::bad_value;
    }

    // The line just read.
    [[nodiscard]] DeckPlace line_place() const { return {.line = cmn.NLINE}; }

    // Number i of the record just read; the line just read when it has no such number.
    [[nodiscard]] DeckPlace place(int i) const;

    // Reports why a line could not be read at the present location.
    [[nodiscard]] int report_unreadable(fortran::ReadStatus status);

    // Number i of the record just read, as the nearest integer.
    [[nodiscard]] int integer(int i) const;

    Store& cmn;
    int LOC = 0;   // location code of the record being read
    int NPHYS = 0; // physical lines of the record just read
    Values VAR;    // the record just read; keeps its numbers between records

private:
    [[nodiscard]] DeckPlace unread_place() const;

    const ReaderMessages& messages_;
};

} // namespace korvat
