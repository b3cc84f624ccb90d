// Edits the items of one formatted write.
#pragma once

#include "fortran/character_sink.hpp"
#include "fortran/format_program.hpp"
#include "fortran/item.hpp"

#include <span>

namespace korvat::fortran {

// Edits the items under the FORMAT into `out`, and ends the record as `line_end` says. Raises
// std::logic_error for an item whose kind is not the one that its descriptor takes, and
// std::runtime_error for items that the FORMAT has no descriptor for; nothing is written then.
void edit_items(CharacterSink& out, const FormatProgram& program, std::span<const Item> items,
                std::string_view line_end);

} // namespace korvat::fortran
