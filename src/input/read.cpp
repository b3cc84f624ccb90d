#include "input/read.hpp"

#include "model/store/integer.hpp"
#include "model/store/report_error.hpp"

#include <algorithm>
#include <string>

namespace korvat {
namespace {

using fortran::characters;
using fortran::last_non_blank;
using fortran::ReadStatus;

constexpr int physical_width = 80;

// What one call works with.
struct Record {
    Store& cmn;
    int LOC;
    int INUNIT;
    int IOUNIT;
    Line& LINE;
    int& NVAR;
    int count_place;        // of the number that gives the count of those behind it; 0: none
    std::string line_above; // up to its last non-blank character, at least one
    int IS = 1;             // column of LINE at which the next physical line begins
    int NPHYS = 0;
    int NTOT = 0;  // numbers found so far
    int found = 0; // numbers of the last physical line
    RecordLines lines{};

    [[nodiscard]] LineColumns& line(int j) { return lines.at(static_cast<std::size_t>(j)); }
    [[nodiscard]] const LineColumns& line(int j) const {
        return lines.at(static_cast<std::size_t>(j));
    }
};

std::string shown_line_above(const Line& LINE) {
    const std::string_view above = LINE.first(physical_width);
    return std::string(above.substr(0, std::max<std::size_t>(last_non_blank(above), 1)));
}

// The lines of the record so far, between the line above and two blank lines.
void show_context(const Record& record) {
    fortran::Runtime& unit = record.cmn.runtime;
    const int out = record.IOUNIT;
    unit.write(
        out, "(6x,a)",
        characters("LINE ABOVE INPUT LINE AND INPUT LINE IS PRINTED BELOW WITH A '-' IN FRONT."));
    if (record.NPHYS > 1) {
        unit.write(out, "(6x,a)",
                   characters("'PHYSICAL CONTINUATION LINE' IS PRINTED WITH A '&' IN FRONT."));
    }
    unit.write(out, "(a,/)", characters(" " + std::string(79, '-')));
    unit.write(out, "(1x,a)", characters("- " + record.line_above));
    for (int j = 0; j < record.NPHYS; ++j) {
        const LineColumns& line = record.line(j);
        unit.write(out, "(1x,2a)", characters(j == 0 ? "- " : "& "),
                   characters(record.LINE.columns(static_cast<std::size_t>(line.first),
                                                  static_cast<std::size_t>(line.last))));
    }
    unit.write(out, "(/,/)");
}

template <typename... Items>
void report(const Record& record, const DeckPlace& place, std::string_view format,
            const Items&... items) {
    report_error(record.cmn, record.IOUNIT, place, format, items...);
    show_context(record);
}

// The physical line read last, or the one that could not be read when `ahead` is 1.
DeckPlace whole_line(const Record& record, int ahead = 0) {
    return {.line = record.cmn.NLINE + record.NPHYS - 1 + ahead};
}

void report_nothing_found(const Record& record) {
    if (record.NPHYS == 1) {
        report(record, whole_line(record),
               "(/,' **** SR/READ : NO NUMBERS FOUND AT LOCATION =',i5)", record.LOC);
    } else {
        report(
            record, whole_line(record),
            "(/,' **** SR/READ : NO NUMBERS FOUND AT LOCATION =',i5,', ON A ''PHYSICAL CONTINUATION',/,16x,'LINE.''')",
            record.LOC);
    }
}

// `culprit` is the number of the record that is none, or one too many.
void report_wrong_count(const Record& record, int culprit) {
    report(
        record, place_of_number(record.lines, record.LINE, record.cmn.NLINE, culprit),
        "(/,' **** SR/READ : NUMBER OF VARIABLES WHICH SHOULD BE ON ','LINE:',i5,',',/,'                WAS NOT EQUAL TO NUMBER OF INPUT ','VARIABLES FOUND:',i5,',',/,'                AT LOCATION = ',i5)",
        record.NVAR, record.NTOT, record.LOC);
}

// Fetches the next physical line into LINE from column IS on. What finds no room is lost on the left,
// as under the A edit of a text that is shorter than its field.
bool fetch_line(Record& record) {
    fortran::Text<physical_width> line;
    const ReadStatus status = record.cmn.runtime.read_line(record.INUNIT, line);
    if (status == ReadStatus::end) {
        report(record, whole_line(record, 1), "(/,' **** SR/READ : END-OF-FILE AT LOCATION = ',i5)",
               record.LOC);
        return false;
    }
    if (status == ReadStatus::error) {
        report(record, whole_line(record, 1), "(/,' **** SR/READ : FORMAT ERROR AT LOCATION =',i5)",
               record.LOC);
        return false;
    }
    const int IS = record.IS;
    const int unseen = std::max(IS + physical_width - 1 - limits::line_length, 0);
    const std::string_view seen = line.view().substr(static_cast<std::size_t>(unseen));
    record.LINE.assign_from(static_cast<std::size_t>(IS), seen, physical_width);
    const int last = IS - 1 + static_cast<int>(last_non_blank(seen));
    record.line(record.NPHYS) = {.first = IS, .last = std::max(last, IS), .unseen = unseen};
    ++record.NPHYS;
    return true;
}

// Takes the numbers of the line just fetched. False when one of them cannot be converted.
bool take_numbers(Record& record, Values& VAR) {
    const bool is_first = record.NPHYS == 1;
    int found = is_first && record.NVAR >= 1 ? record.NVAR : 0;
    int conversion = 0;
    const LineColumns& line = record.line(record.NPHYS - 1);
    getnum(record.LINE.columns(static_cast<std::size_t>(line.first),
                               static_cast<std::size_t>(line.last)),
           record.NTOT + 1, VAR, found, conversion);
    if (record.count_place != 0 && is_first) {
        record.NVAR = saturated_sum(nearest_integer(VAR(record.count_place)), record.count_place);
    }
    record.NTOT += found;
    record.found = found;
    return conversion == 0;
}

// Reads one more physical line. False after a fault, which has been reported.
bool read_physical_line(Record& record, Values& VAR) {
    if (!fetch_line(record)) return false;
    const int IE = record.line(record.NPHYS - 1).last;
    if (!take_numbers(record, VAR)) {
        report_wrong_count(record, record.NTOT + 1);
        return false;
    }
    if (record.found == 0) {
        report_nothing_found(record);
        return false;
    }
    record.IS = IE + 2;
    if (record.IS > limits::line_length) {
        report(
            record, whole_line(record),
            "(/,' **** SR/READ : LENGTH OF ONE LOGICAL INPUT LINE ','LONGER THAN:',i5,' CHARACTERS.',/,'                AT LOCATION = ',i5)",
            IE, record.LOC);
        return false;
    }
    return true;
}

// Reads lines until the count is reached. False after a fault, which has been reported.
bool read_lines(Record& record, Values& VAR) {
    do {
        if (!read_physical_line(record, VAR)) return false;
    } while (record.NTOT < record.NVAR);
    if (record.NVAR == 0) record.NVAR = record.NTOT;
    if (record.NVAR == record.NTOT) return true;
    // A count that is below its own place is itself at fault, not the number behind it.
    report_wrong_count(record, std::max(record.NVAR + 1, record.count_place));
    return false;
}

} // namespace

void read(Store& cmn, int& NVAR, int LOC, int INUNIT, int IOUNIT, int& NPHYS, Line& LINE,
          Values& VAR, int& IERR) {
    Record record{.cmn = cmn,
                  .LOC = LOC,
                  .INUNIT = INUNIT,
                  .IOUNIT = IOUNIT,
                  .LINE = LINE,
                  .NVAR = NVAR,
                  .count_place = NVAR < 0 ? -NVAR : 0,
                  .line_above = shown_line_above(LINE)};
    LINE.fill_blank();
    const bool succeeded = read_lines(record, VAR);
    cmn.report.record_lines = record.lines;
    NPHYS = record.NPHYS;
    IERR = succeeded ? 0 : 1;
}

DeckPlace place_of_number(const RecordLines& lines, const Line& LINE, int first_line, int i) {
    DeckPlace place{.line = first_line};
    const std::size_t position = position_of_number(LINE.view(), i);
    if (position == std::string_view::npos) return place;
    const int column = static_cast<int>(position) + 1;
    for (const LineColumns& line : lines) {
        if (column <= line.last) {
            place.column = column - line.first + 1 + line.unseen;
            return place;
        }
        ++place.line;
    }
    return {.line = first_line};
}

} // namespace korvat
