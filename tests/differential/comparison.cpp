#include "differential/comparison.hpp"

#include "differential/runtime_reference.hpp"
#include "fuzz/number_oracle.hpp"

#include "fortran/formatted_write.hpp"
#include "fortran/number.hpp"

#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>

namespace korvat::test {
namespace {

std::string door_written(std::string_view format, std::span<const fortran::Item> items) {
    fortran::TextSink sink;
    fortran::edit_items(sink, fortran::FormatProgram(format), items, "\n");
    return sink.text();
}

bool is_same(const std::optional<double>& read, double expected) {
    return read && std::bit_cast<std::uint64_t>(*read) == std::bit_cast<std::uint64_t>(expected);
}

bool has_form(std::string_view field) {
    return has_form_of_number(without_tabs(fortran::trimmed(field.substr(0, 50))));
}

} // namespace

std::string difference_in_writing(std::string_view format, std::span<const fortran::Item> items) {
    const std::string expected = runtime_written(format, items);
    const std::string written = door_written(format, items);
    if (written == expected) return "";
    return "FORMAT " + std::string(format) + "\nruntime:\n" + expected + "\ndoor:\n" + written;
}

ReadComparison compare_reading(std::string_view field) {
    const auto read = fortran::convert_number(field);
    if (!read && !has_form(field)) return {};
    const auto expected = runtime_read(field);
    const bool is_number = expected && std::isfinite(*expected);
    if (is_number ? is_same(read, *expected) : !read) return {read.has_value(), ""};
    return {read.has_value(), "field '" + std::string(field) + "'"};
}

} // namespace korvat::test
