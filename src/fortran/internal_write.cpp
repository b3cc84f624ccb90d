#include "fortran/internal_write.hpp"

#include "fortran/write_items.hpp"

namespace korvat::fortran {

std::string edited_items(std::size_t width, std::string_view format, std::span<const Item> items) {
    EditDescriptors descriptors;
    const auto edits = descriptors.of(format, items.size());
    require_kinds(items, edits, format);
    std::string field(width, ' ');
    {
        fem::write_loop loop(fem::str_ref(field.data(), static_cast<int>(width)), as_fem(format));
        put_items(loop, items, edits);
    }
    return field;
}

} // namespace korvat::fortran
