// Reads lines of the comment-free copy, counts them and reports faults: below every section reader.
#pragma once

#include "input/cause.hpp"
#include "model/store/report_error.hpp"
#include "model/store/store.hpp"

#include <string_view>

namespace korvat {

// The FORMATs, each for a location code, in which a routine reports that it cannot read on.
struct ReaderMessages {
    std::string_view end_of_file;
    std::string_view format_error;
    std::string_view record_fault = {}; // read has written its own message before
};

// Reads from NF12, counting its lines in NLINE. Every function that returns a cause returns none, or
// another after it has written the message of the fault to NF6.
class DeckLines {
public:
    DeckLines(Store& store, const ReaderMessages& messages) : cmn(store), messages_(messages) {}

    // Fetches the next line, of `Width` columns.
    template <std::size_t Width>
    Cause fetch(fortran::Text<Width>& line) {
        ++cmn.NLINE;
        const fortran::ReadStatus status = cmn.runtime.read_line(cmn.NF12, line);
        if (status != fortran::ReadStatus::line) return report_unreadable(status);
        return Cause::none;
    }

    // Reports why a line could not be read at the present location.
    Cause report_unreadable(fortran::ReadStatus status);

    // Writes the error message of a check that failed at a place; returns its cause.
    template <fortran::Writable... Items>
    Cause reject(const DeckPlace& place, std::string_view format, const Items&... items) {
        report_error(cmn, cmn.NF6, place, format, items...);
        return Cause::bad_value;
    }

    // The line just read.
    [[nodiscard]] DeckPlace line_place() const { return {.line = cmn.NLINE}; }

    Store& cmn;
    int LOC = 0; // location code of what is being read

protected:
    Cause report_format_error(const DeckPlace& place);
    Cause report_record_fault();

private:
    const ReaderMessages& messages_;
};

} // namespace korvat
