#include "model/sections/section_reader.hpp"

#include "fortran/stop.hpp"

#include <string>

namespace korvat {
namespace {

constexpr std::size_t text_width = 120;

constexpr ReaderMessages readpi_messages = {
    .end_of_file = "(/,' **** SR/READPI : END-OF-FILE AT LOCATION = ',i5)",
    .format_error = "(/,' **** SR/READPI : FORMAT ERROR AT LOCATION =',i5)",
    .record_fault = "(/,' **** SR/READPI : ERROR FROM SR/LINERD AT LOCATION = ',i5)"};

} // namespace

SectionReader::SectionReader(Store& store) : DeckReader(store, readpi_messages) {}

void SectionReader::terminate() {
    cmn.runtime.write(cmn.NF6, "(/,' **** Error termination of KORVAT')");
    fortran::stop();
}

Cause SectionReader::skip_heading() {
    return read_text_line<text_width>();
}

Cause SectionReader::skip_headings(int count) {
    for (int i = 0; i < count; ++i) {
        if (const Cause fault = skip_heading()) return fault;
    }
    return Cause::none;
}

Cause SectionReader::require_blank_line(std::string_view section) {
    if (const Cause fault = read_text_line<text_width>()) return fault;
    if (cmn.LINE.is_blank()) return Cause::none;
    const std::string format = "(/,a44,'\"" + std::string(section) + "\"',/,1x,a80)";
    return reject(line_place(), format,
                  fortran::characters(" **** SR/READPI : NO BLANK LINE AT START OF "),
                  fortran::characters(cmn.LINE.first(80)));
}

} // namespace korvat
