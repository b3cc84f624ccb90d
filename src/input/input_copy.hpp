// The temporary copy of the input without its comment lines.
#pragma once

#include "model/store/store.hpp"

namespace korvat {

// Copies NFR to NFW, both from their first line, up to a line that begins with END. A line that
// begins with '*', 'C' or 'c' is dropped, but never the first line of the file. Sets deck_lines and
// deck_end of the report. Returns line when END was found, else what ended the reading. Raises
// std::runtime_error when the copy could not be written whole.
[[nodiscard]] fortran::ReadStatus copy_without_comments(Store& cmn, int NFR, int NFW);

} // namespace korvat
