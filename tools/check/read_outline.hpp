// The outline of a deck: what the program's reader has taken, and behind its first error what can still
// be made out.
#pragma once

#include "check/layout.hpp"
#include "check/outline.hpp"
#include "model/store/report.hpp"

#include <string>
#include <vector>

namespace korvat::check {

// The line of the deck file for one of the comment-free copy; 0 when there is none.
[[nodiscard]] int file_line(const Report& report, int line);

// A place of the copy as one of the deck file: the length is that of the number or word that stands
// there.
[[nodiscard]] Place file_place(const Report& report, const std::vector<std::string>& lines,
                               const DeckPlace& place);

// The last line of the file that the reader has come to.
[[nodiscard]] int last_line_read(const Report& report, int NLINE);

// The section that a kind of record stands in.
[[nodiscard]] SectionId section_of(deck::RecordId id);

// The section that the reader was in when it stopped: that of the last record it has taken, or the one
// behind the end record of the node values.
[[nodiscard]] SectionId section_reached(const Report& report);

// The records that a run has kept, and those that stand behind the last line it has read.
[[nodiscard]] Outline read_outline(const Report& report, int NLINE,
                                   const std::vector<std::string>& lines, const Layout& layout);

} // namespace korvat::check
