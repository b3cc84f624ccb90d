#include "input/input_copy.hpp"

#include <stdexcept>

namespace korvat {
namespace {

using fortran::ReadStatus;

bool is_comment(std::string_view line) {
    return line.front() == '*' || line.front() == 'C' || line.front() == 'c';
}

bool has_text(std::string_view line) {
    return line.find_first_not_of(" \t\r") != std::string_view::npos;
}

// Copies the lines; deck_end receives the number of the last line tried, the one that ended it.
ReadStatus copy_lines(Store& cmn, int NFR, int NFW) {
    fortran::Text<120> line;
    int& number = cmn.report.deck_end;
    for (number = 1;; ++number) {
        const ReadStatus status = cmn.runtime.read_line(NFR, line);
        if (status != ReadStatus::line) return status;
        if (line.first(3) == "END") return status;
        if (number > 1 && is_comment(line.view())) continue;
        cmn.runtime.write(NFW, "(a120)", line);
        cmn.report.deck_lines.push_back(number);
        if (has_text(line.view())) {
            cmn.report.text_lines.push_back(static_cast<int>(cmn.report.deck_lines.size()));
        }
    }
}

} // namespace

ReadStatus copy_without_comments(Store& cmn, int NFR, int NFW) {
    cmn.runtime.rewind(NFR);
    cmn.runtime.rewind(NFW);
    const ReadStatus status = copy_lines(cmn, NFR, NFW);
    const bool nothing_read = cmn.report.deck_end == 1 && status == ReadStatus::error;
    if (status == ReadStatus::end || nothing_read) --cmn.report.deck_end; // there is no such line
    if (!cmn.runtime.wrote_all(NFW)) throw std::runtime_error("the input could not be copied");
    return status;
}

} // namespace korvat
