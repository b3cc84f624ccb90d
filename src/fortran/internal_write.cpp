#include "fortran/internal_write.hpp"

#include "fortran/formatted_write.hpp"

namespace korvat::fortran {

std::string edited_items(std::size_t width, std::string_view format, std::span<const Item> items) {
    TextSink field;
    edit_items(field, FormatProgram(format), items, "");
    std::string text = field.text();
    text.resize(width, ' ');
    return text;
}

} // namespace korvat::fortran
