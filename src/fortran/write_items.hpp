// Items of a formatted write on their way into the runtime.
#pragma once

#include "fortran/edit_descriptors.hpp"
#include "fortran/fem_runtime.hpp"
#include "fortran/item.hpp"

#include <span>
#include <string_view>

namespace korvat::fortran {

[[nodiscard]] inline fem::str_cref as_fem(std::string_view text) {
    return {text.data(), static_cast<int>(text.size())};
}

// Raises std::logic_error when an item's kind is not the one its descriptor takes: the runtime
// would lose the width without a word.
void require_kinds(std::span<const Item> items, std::span<const EditDescriptor> edits,
                   std::string_view format);

// Hands the items to a write that has just begun.
void put_items(fem::write_loop& loop, std::span<const Item> items,
               std::span<const EditDescriptor> edits);

} // namespace korvat::fortran
