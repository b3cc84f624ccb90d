#include "input/linerd.hpp"

#include <stdexcept>

namespace korvat {
namespace {

constexpr int most_lines_shown = 12;
constexpr std::size_t shown_width = 70;

void write_heading(Store& cmn, int IOUT, Cause KIND) {
    switch (KIND.code()) {
    case Cause::format_error:
        cmn.runtime.write(IOUT, "(' Error occurred while reading the bottom line :',/,' ')");
        return;
    case Cause::end_of_file:
        cmn.runtime.write(IOUT, "(' An end-of-file was encountered at the bottom line :',/,' ')");
        return;
    case Cause::record_fault:
        cmn.runtime.write(IOUT, "(' The error was detected by SR/LINERD :',/,' ')");
        return;
    case Cause::bad_value:
        cmn.runtime.write(IOUT, "(' Non-accepted value(s) exist in the input :',/,' ')");
        return;
    case Cause::none:
        return;
    }
}

} // namespace

void linerd(Store& cmn, int NFR, int IOUT, int NLINE, Cause KIND) {
    cmn.runtime.rewind(NFR);
    const int skipped = NLINE > most_lines_shown ? NLINE - most_lines_shown : 0;
    for (int i = 0; i < skipped; ++i) {
        cmn.runtime.skip_line(NFR);
    }
    const int shown = NLINE - skipped;
    cmn.runtime.write(
        IOUT, "(/,' The ',i2,' last lines read from the temporary',' input file are shown below.')",
        shown);
    write_heading(cmn, IOUT, KIND);
    for (int number = skipped + 1; number <= NLINE; ++number) {
        fortran::Text<80> line;
        const fortran::ReadStatus status = cmn.runtime.read_line(NFR, line);
        if (status == fortran::ReadStatus::end) {
            cmn.runtime.write(IOUT, "(i5,' : ',a70)", number);
            return;
        }
        if (status == fortran::ReadStatus::error) { // not a line: an empty one would be a lie
            throw std::runtime_error("the copy of the input cannot be read again");
        }
        cmn.runtime.write(IOUT, "(i5,' : ',a70)", number,
                          fortran::characters(line.first(shown_width)));
    }
}

} // namespace korvat
