#include "input/get_revision.hpp"

#include "fortran/number.hpp"
#include "model/store/report_error.hpp"

#include <array>
#include <string>

namespace korvat {
namespace {

using fortran::ReadStatus;
using WorkLine = fortran::Text<80>;

constexpr int most_lines_searched = 10;
constexpr std::size_t key_width = 15;
constexpr int date_column = 17;

namespace fault {
constexpr int date_not_accepted = 2;
constexpr int no_revision_date = 3;
constexpr int end_of_file = 4;
} // namespace fault

struct Date {
    int year = 0;
    int month = 0;
    int day = 0;

    friend bool operator==(const Date&, const Date&) = default;
};

constexpr Date revision_4{2006, 6, 11};
constexpr Date revision_5{2009, 9, 1};

// A line reader that counts what it consumed.
struct Source {
    Store& cmn;
    int NF;
    int& NLINE;

    bool next(WorkLine& line) {
        if (cmn.runtime.read_line(NF, line) != ReadStatus::line) return false;
        ++NLINE;
        return true;
    }
};

void report_revision(Store& cmn, int IOUT, int IREV) {
    if (IREV == 4) {
        cmn.runtime.write(IOUT, "(/,' Input data is for revision 4 : 2006-06-11',/,' ')");
    } else {
        cmn.runtime.write(IOUT, "(/,' Input data is for revision 5 : 2009-09-01',/,' ')");
    }
}

void report_end_of_file(Store& cmn, int IOUT, int NF, int NLINE) {
    report_error(cmn, IOUT, {.line = NLINE + 1},
                 "(/,' **** Error message from SR/GetRevision: End-of-file at',' unit=',i3)", NF);
}

bool is_version_line(const WorkLine& line, const std::string& name) {
    const WorkLine key(name + " Version:");
    const WorkLine lower_key(name + " version:");
    return line.first(key_width) == key.first(key_width) ||
           line.first(key_width) == lower_key.first(key_width);
}

// Columns 17-20, 22-23 and 25-26. What was read before a failure is kept for the message.
bool read_date(const WorkLine& line, Date& date) {
    std::array<int, 3> values{};
    const bool complete = fortran::read_integers(line.view(), "(16x,i4,1x,i2,1x,i2)", values);
    date = {values[0], values[1], values[2]};
    return complete;
}

bool is_acceptable(const Date& date) {
    return date.year >= 1980 && date.year <= 2030 && date.month >= 1 && date.month <= 12 &&
           date.day >= 1 && date.day <= 31;
}

// Skips the leading lines that equal LABEL; the first that differs is consumed, not searched.
bool skip_leading_lines(Source& source, const Label& LABEL, WorkLine& first) {
    WorkLine line;
    if (!source.next(line)) return false;
    first = line;
    while (line == LABEL) {
        if (!source.next(line)) return false;
    }
    return true;
}

enum class Search { found, not_found, end_of_file };

Search search_version_line(Source& source, const std::string& name, WorkLine& line) {
    for (int i = 0; i < most_lines_searched; ++i) {
        if (!source.next(line)) return Search::end_of_file;
        if (is_version_line(line, name)) return Search::found;
    }
    return Search::not_found;
}

// The revision that a version line names; 0, IERR and a message when it names none.
int revision_of(Store& cmn, int IOUT, const WorkLine& line, int NLINE, int& IERR) {
    const DeckPlace place{.line = NLINE, .column = date_column};
    Date date;
    if (!read_date(line, date) || !is_acceptable(date)) {
        report_error(
            cmn, IOUT, place,
            "(/,' **** Error message from SR/GetRevision:',/,' Non-accepted date: Year-Month-Day=',i5.4,'-',i2.2,'-',i2.2,/,1x,a80)",
            date.year, date.month, date.day, line);
        IERR = fault::date_not_accepted;
        return 0;
    }
    if (date == revision_4) return 4;
    if (date == revision_5) return 5;
    report_error(
        cmn, IOUT, place,
        "(/,' **** Error message from SR/GetRevision:',/,' The given date is not a valid revision date',/,1x,a80,/,' Valid dates are:',/,' Revision 4, 2006-06-11',/,' Revision 5, 2009-09-01')",
        line);
    IERR = fault::no_revision_date;
    return 0;
}

} // namespace

void GetRevision(Store& cmn, int NF, int IOUT, Label& LABEL, int& IREV, Table1<int, 3>& IDATE,
                 int& NLINE, int& IERR, std::string_view NAME) {
    IERR = 0;
    IREV = 0;
    NLINE = 0;
    Source source{cmn, NF, NLINE};
    WorkLine first;
    WorkLine line;
    const std::string name(NAME);
    const Search search = skip_leading_lines(source, LABEL, first)
                              ? search_version_line(source, name, line)
                              : Search::end_of_file;
    LABEL = first;
    if (search == Search::end_of_file) {
        report_end_of_file(cmn, IOUT, NF, NLINE);
        IERR = fault::end_of_file;
        return;
    }
    if (search == Search::not_found) {
        cmn.runtime.rewind(NF);
        NLINE = 0;
        if (!source.next(line)) return; // it was read before
        IREV = 4;
        report_revision(cmn, IOUT, IREV);
        return;
    }
    IREV = revision_of(cmn, IOUT, line, NLINE, IERR);
    if (IREV == 0) return;
    if (IREV == 5) {
        IDATE(1) = revision_5.year;
        IDATE(2) = revision_5.month;
        IDATE(3) = revision_5.day;
    }
    report_revision(cmn, IOUT, IREV);
}

} // namespace korvat
