// Reads lines of the comment-free copy, counts them and reports faults: below every section reader.
#pragma once

#include "input/linerd.hpp"
#include "model/store/report_error.hpp"
#include "model/store/store.hpp"

#include <string_view>

namespace korvat {

inline constexpr int no_fault = 0;

// The FORMATs, each for a location code, in which a routine reports that it cannot read on.
struct ReaderMessages {
    std::string_view end_of_file;
    std::string_view format_error;
    std::string_view record_fault = {}; // read has written its own message before
};

// Reads from NF12, counting its lines in NLINE. Every function that returns a code returns no_fault,
// or a cause code after it has written the message of the fault to NF6.
class DeckLines {
public:
    DeckLines(Store& store, const ReaderMessages& messages) : cmn(store), messages_(messages) {}

    // Fetches the next line, of `Width` columns.
    template <std::size_t Width>
    [[nodiscard]] int fetch(fortran::Text<Width>& line) {
        ++cmn.NLINE;
        const fortran::ReadStatus status = cmn.runtime.read_line(cmn.NF12, line);
        return status == fortran::ReadStatus::line ? no_fault : report_unreadable(status);
    }

    // Reports why a line could not be read at the present location.
    [[nodiscard]] int report_unreadable(fortran::ReadStatus status);

    // Writes the error message of a check that failed at a place; returns its cause code.
    template <fortran::Writable... Items>
    [[nodiscard]] int reject(const DeckPlace& place, std::string_view format,
                             const Items&... items) {
        report_error(cmn, cmn.NF6, place, format, items...);
        return cause::bad_value;
    }

    // The line just read.
    [[nodiscard]] DeckPlace line_place() const { return {.line = cmn.NLINE}; }

    Store& cmn;
    int LOC = 0; // location code of what is being read

protected:
    [[nodiscard]] int report_format_error(const DeckPlace& place);
    [[nodiscard]] int report_record_fault();

private:
    const ReaderMessages& messages_;
};

} // namespace korvat
