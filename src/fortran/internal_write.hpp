// Internal writes: items edited into a text instead of a record.
#pragma once

#include "fortran/item.hpp"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace korvat::fortran {

// The items edited under `format` into a field of `width` characters, blank-padded; what does not
// fit is cut. Raises std::logic_error for an item that does not fit its descriptor.
[[nodiscard]] std::string edited_items(std::size_t width, std::string_view format,
                                       std::span<const Item> items);

template <Writable... Items>
[[nodiscard]] std::string edited(std::size_t width, std::string_view format,
                                 const Items&... items) {
    if constexpr (sizeof...(Items) == 0) {
        return edited_items(width, format, {});
    } else {
        const Item list[] = {Item(items)...};
        return edited_items(width, format, list);
    }
}

} // namespace korvat::fortran
