// The temporary copy of the input without its comment lines.
#include "input/input_copy.hpp"

namespace korvat {
namespace {

bool is_comment(std::string_view line) {
    return line.front() == '*' || line.front() == 'C' || line.front() == 'c';
}

} // namespace

fortran::ReadStatus copy_without_comments(Store& cmn, int NFR, int NFW) {
    cmn.runtime.rewind(NFR);
    cmn.runtime.rewind(NFW);
    fortran::Text<120> line;
    for (bool is_first = true;; is_first = false) {
        const fortran::ReadStatus status = cmn.runtime.read_line(NFR, line);
        if (status != fortran::ReadStatus::line) return status;
        if (line.first(3) == "END") return status;
        if (!is_first && is_comment(line.view())) continue;
        cmn.runtime.write(NFW, "(a120)", line);
    }
}

} // namespace korvat
