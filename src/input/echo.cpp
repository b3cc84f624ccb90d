#include "input/echo.hpp"

#include <string>

namespace korvat {
namespace {

// The unit variable of the read-error message is never set; it stays 0.
constexpr int unset_unit = 0;

void write_heading(Store& cmn, int NFW, std::string_view NAME) {
    // '1' in the first column is the printer's carriage control for a new page.
    const std::string format =
        "('1',/,10x,'ECHO PRINT OF INPUT DATA TO PROGRAM \"" + std::string(NAME) + "\"')";
    cmn.runtime.write(NFW, format);
}

// Numbers the columns 1 to 80 of the echoed text, which starts in print column 11.
void write_ruler(Store& cmn, int NFW) {
    cmn.runtime.write(NFW,
                      "(/,10x,9('0'),10('1'),10('2'),10('3'),10('4'),10('5'),10('6'),10('7'),'8')");
    cmn.runtime.write(NFW, "(10x,8('1234567890'),/)");
}

} // namespace

void echo(Store& cmn, int NFR, int NFW, std::string_view NAME) {
    cmn.runtime.rewind(NFR);
    write_heading(cmn, NFW, NAME);
    write_ruler(cmn, NFW);
    for (int NOW = 1;; ++NOW) {
        fortran::Text<80> line;
        const fortran::ReadStatus status = cmn.runtime.read_line(NFR, line);
        if (status == fortran::ReadStatus::error) {
            cmn.runtime.write(unset_unit, "(/,' **** ERROR IN SR/ECHO  NFR,NFW,NOW=',3i5)", NFR,
                              NFW, NOW);
        }
        if (status != fortran::ReadStatus::line) break;
        cmn.runtime.write(NFW, "(i5,'----',1x,a80)", NOW, line);
    }
    cmn.runtime.rewind(NFR);
    write_ruler(cmn, NFW);
}

} // namespace korvat
