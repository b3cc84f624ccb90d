#include "model/sections/section_reader.hpp"

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

int SectionReader::skip_heading() {
    return read_text_line<text_width>();
}

int SectionReader::skip_headings(int count) {
    for (int i = 0; i < count; ++i) {
        if (const int fault = skip_heading(); fault != no_fault) return fault;
    }
    return no_fault;
}

int SectionReader::require_blank_line(std::string_view section) {
    if (const int fault = read_text_line<text_width>(); fault != no_fault) return fault;
    if (cmn.LINE.is_blank()) return no_fault;
    const std::string format = "(/,a44,'\"" + std::string(section) + "\"',/,1x,a80)";
    return reject(line_place(), format,
                  fortran::characters(" **** SR/READPI : NO BLANK LINE AT START OF "),
                  fortran::characters(cmn.LINE.first(80)));
}

} // namespace korvat
