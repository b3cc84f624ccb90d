#include "fortran/write_items.hpp"

#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <string>

namespace korvat::fortran {
namespace {

// The runtime edits a real under f in a buffer of 64 bytes, its terminator included.
constexpr int longest_f_text = 63;

// The runtime has limits beyond which it writes outside its tables: of the length of the text under
// f, and of the value under e.
bool can_be_printed(double value, const EditDescriptor& edit) {
    if (!std::isfinite(value)) return false;
    if (edit.letter != 'f') return true;
    const bool is_short = std::fabs(value) < 1.0e15 && edit.width < 32 && edit.digits < 32;
    return is_short ||
           std::snprintf(nullptr, 0, "%*.*f", edit.width, edit.digits, value) <= longest_f_text;
}

bool agrees(const Item& item, const EditDescriptor& edit) {
    switch (item.kind()) {
    case Item::Kind::integer:
        return edit.letter == 'i';
    case Item::Kind::real:
        return edit.letter == 'f' || edit.letter == 'e';
    case Item::Kind::text:
    case Item::Kind::right_text:
        return edit.letter == 'a';
    }
    return false;
}

// What the runtime prints under f, where its C library has a sign for nan; not every library has.
std::string not_finite_text(double value, std::size_t width) {
    std::string text = std::signbit(value) ? "-" : "";
    text += std::isnan(value) ? "nan" : "inf";
    if (text.size() < width) text.insert(0, width - text.size(), ' ');
    return text;
}

void put_real(fem::write_loop& loop, double value, const EditDescriptor& edit) {
    if (can_be_printed(value, edit)) {
        loop, value;
        return;
    }
    const auto width = static_cast<std::size_t>(edit.width);
    const bool is_named = edit.letter == 'f' && !std::isfinite(value);
    const std::string text = is_named ? not_finite_text(value, width) : std::string(width, '*');
    loop, as_fem(text); // a text under a real's descriptor is written as it is
}

void put(fem::write_loop& loop, const Item& item, const EditDescriptor& edit) {
    switch (item.kind()) {
    case Item::Kind::integer:
        loop, item.integer();
        return;
    case Item::Kind::real:
        put_real(loop, item.real(), edit);
        return;
    case Item::Kind::text:
        loop, as_fem(item.text());
        return;
    case Item::Kind::right_text:
        loop, std::string(item.text()).c_str();
        return;
    }
}

} // namespace

void require_kinds(std::span<const Item> items, std::span<const EditDescriptor> edits,
                   std::string_view format) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (agrees(items[i], edits[i])) continue;
        throw std::logic_error("item " + std::to_string(i + 1) + " does not fit its descriptor '" +
                               std::string(1, edits[i].letter) + "' in FORMAT " +
                               std::string(format));
    }
}

void put_items(fem::write_loop& loop, std::span<const Item> items,
               std::span<const EditDescriptor> edits) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        put(loop, items[i], edits[i]);
    }
}

} // namespace korvat::fortran
