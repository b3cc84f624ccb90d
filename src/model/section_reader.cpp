// What the readers of the deck's sections share: the current location, lines, records, blank lines.
#include "model/section_reader.hpp"

#include "model/integer.hpp"

#include <algorithm>
#include <string>

namespace korvat {
namespace {

constexpr std::size_t text_width = 120;

} // namespace

int SectionReader::report_unreadable(fortran::ReadStatus status) {
    if (status == fortran::ReadStatus::end) {
        cmn.runtime.write(cmn.NF6, "(/,' **** SR/READPI : END-OF-FILE AT LOCATION = ',i5)", LOC);
        return cause::end_of_file;
    }
    cmn.runtime.write(cmn.NF6, "(/,' **** SR/READPI : FORMAT ERROR AT LOCATION =',i5)", LOC);
    return cause::format_error;
}

int SectionReader::read_text_line() {
    ++cmn.NLINE;
    fortran::Text<text_width> line;
    const fortran::ReadStatus status = cmn.runtime.read_line(cmn.NF12, line);
    if (status != fortran::ReadStatus::line) return report_unreadable(status);
    cmn.LINE.assign(line.view());
    return no_fault;
}

int SectionReader::skip_heading() {
    return read_text_line();
}

int SectionReader::skip_headings(int count) {
    for (int i = 0; i < count; ++i) {
        if (const int fault = skip_heading(); fault != no_fault) return fault;
    }
    return no_fault;
}

int SectionReader::require_blank_line(std::string_view section) {
    if (const int fault = read_text_line(); fault != no_fault) return fault;
    if (cmn.LINE.is_blank()) return no_fault;
    const std::string format = "(/,a44,'\"" + std::string(section) + "\"',/,1x,a80)";
    return reject(format, fortran::characters(" **** SR/READPI : NO BLANK LINE AT START OF "),
                  fortran::characters(cmn.LINE.first(80)));
}

int SectionReader::read_record(deck::RecordId id, int k) {
    const deck::Record& record = deck::record(id);
    LOC = deck::location_of(record, k);
    int count = record.count;
    int fault = 0;
    ++cmn.NLINE;
    read(cmn, count, LOC, cmn.NF12, cmn.NF6, NPHYS, cmn.LINE, VAR, fault);
    cmn.NLINE += std::max(NPHYS - 1, 0); // the continuation lines
    if (fault == 0) return no_fault;
    cmn.runtime.write(cmn.NF6, "(/,' **** SR/READPI : ERROR FROM SR/LINERD AT LOCATION = ',i5)",
                      LOC);
    return cause::record_fault;
}

int SectionReader::integer(int i) const {
    return nearest_integer(VAR(i));
}

} // namespace korvat
