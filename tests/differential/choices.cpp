#include "differential/choices.hpp"

#include "fortran/format_program.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <stdexcept>

namespace korvat::test {
namespace {

using fortran::FormatStep;
using fortran::Item;

int below(Choices& choices, int count) {
    return static_cast<int>(choices.below(static_cast<std::uint64_t>(count)));
}

bool is_heads(Choices& choices) {
    return choices.below(2) == 0;
}

int between(Choices& choices, int low, int high) {
    return low + below(choices, high - low + 1);
}

std::string number(Choices& choices, int low, int high) {
    return std::to_string(between(choices, low, high));
}

std::string data_descriptor(Choices& choices) {
    switch (below(choices, 7)) {
    case 0:
        return "a";
    case 1:
        return "a" + number(choices, 1, 90);
    case 2:
        return "i" + number(choices, 1, 14);
    case 3:
        return "i" + number(choices, 1, 14) + "." + number(choices, 0, 14);
    case 4:
        return "e" + number(choices, 1, 30) + "." + number(choices, 0, 20);
    case 5:
        return "f" + number(choices, 1, 70) + "." + number(choices, 0, 30);
    default:
        return "f" + number(choices, 5, 14) + "." + number(choices, 0, 6);
    }
}

std::string literal(Choices& choices) {
    constexpr std::array<std::string_view, 6> texts = {"' '",  "'VAL=''x'','", "' **** SR/'",
                                                       "''''", "'   '",        "'-'"};
    return std::string(texts[static_cast<std::size_t>(below(choices, texts.size()))]);
}

std::string list(Choices& choices, int depth);

std::string element(Choices& choices, int depth) {
    switch (below(choices, 12)) {
    case 0:
        return literal(choices);
    case 1:
        return number(choices, 1, 12) + "x";
    case 2:
        return "/";
    case 3:
        return number(choices, 0, 4) + "p";
    case 4:
        return depth > 0 ? "(" + list(choices, depth - 1) + ")" : "1x";
    case 5:
        // Three at most: the longest FORMAT then has fewer steps than the door's limit.
        return depth > 0 ? number(choices, 1, 3) + "(" + list(choices, depth - 1) + ")" : "x";
    case 6:
        return number(choices, 2, 6) + data_descriptor(choices);
    case 7:
        return below(choices, 4) == 0 ? ":" : number(choices, 2, 4) + literal(choices);
    default:
        return data_descriptor(choices);
    }
}

std::string list(Choices& choices, int depth) {
    std::string text = element(choices, depth);
    for (int i = below(choices, 5); i > 0; --i) {
        text += "," + element(choices, depth);
    }
    return text;
}

double next_to(Choices& choices, double value) {
    for (int i = below(choices, 3); i > 0; --i) {
        value = std::nextafter(value, is_heads(choices) ? HUGE_VAL : -HUGE_VAL);
    }
    return value;
}

// A whole number and a half, divided by a power of two or of ten: a tie under some w.d.
double tie(Choices& choices) {
    const double whole = static_cast<double>(choices.any_bits() >> below(choices, 64)) + 0.5;
    if (is_heads(choices)) return std::ldexp(whole, -below(choices, 60));
    return whole / std::pow(10.0, below(choices, 20));
}

} // namespace

std::string chosen_format(Choices& choices) {
    return "(" + list(choices, 2) + ")";
}

double chosen_real(Choices& choices) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    double value = 0.0;
    switch (below(choices, 12)) {
    case 0:
        value = std::bit_cast<double>(choices.any_bits());
        break;
    case 1:
        value = std::pow(10.0, between(choices, -320, 308));
        break;
    case 2:
        value = std::ldexp(1.0, between(choices, -1074, 1023));
        break;
    case 3:
        value = std::bit_cast<double>(choices.any_bits() >> 12); // denormal
        break;
    case 4:
        value = below(choices, 40) == 0 ? infinity : 0.0;
        break;
    case 5:
    case 6:
        value = tie(choices);
        break;
    case 7:
        value = below(choices, 40) == 0 ? std::numeric_limits<double>::quiet_NaN() : 1.0;
        break;
    case 8:
        value = below(choices, 100000) / std::pow(10.0, below(choices, 8));
        break;
    default:
        value =
            std::ldexp(static_cast<double>(choices.any_bits() >> 11), between(choices, -75, -30));
    }
    if (below(choices, 4) == 0) value = next_to(choices, value);
    return is_heads(choices) ? value : -value;
}

std::string descriptor_letters(std::string_view format, std::size_t count) {
    const fortran::FormatProgram program(format);
    std::string letters;
    try {
        while (letters.size() < count) {
            constexpr std::string_view names = "aife";
            const auto kind = program.kind_of_item(letters.size());
            letters += names[static_cast<std::size_t>(kind) -
                             static_cast<std::size_t>(FormatStep::Kind::text)];
        }
    } catch (const std::runtime_error&) { // no descriptor for a further item
    }
    return letters;
}

Items chosen_items(Choices& choices, std::string_view kinds) {
    Items items;
    for (const char kind : kinds) {
        if (kind == 'i') {
            const auto any = static_cast<int>(static_cast<std::uint32_t>(choices.any_bits()));
            items.list.emplace_back(is_heads(choices) ? any : any >> below(choices, 32));
        } else if (kind == 'a') {
            std::string text(static_cast<std::size_t>(below(choices, 100)), ' ');
            for (char& c : text)
                c = static_cast<char>(below(choices, 30) == 0 ? below(choices, 256)
                                                              : ' ' + below(choices, 95));
            items.texts.push_back(std::move(text));
            const std::string& kept = items.texts.back();
            items.list.push_back(is_heads(choices) ? Item(fortran::characters(kept))
                                                   : Item(fortran::right_justified(kept)));
        } else {
            items.list.emplace_back(chosen_real(choices));
        }
    }
    return items;
}

std::string chosen_number_field(Choices& choices) {
    char text[64];
    switch (below(choices, 6)) {
    case 0:
        std::snprintf(text, sizeof text, "%.*e", below(choices, 20), chosen_real(choices));
        break;
    case 1:
        std::snprintf(text, sizeof text, "%.*g", between(choices, 1, 20), chosen_real(choices));
        break;
    case 2:
        std::snprintf(text, sizeof text, "%d", below(choices, 100000));
        break;
    default:
        std::snprintf(
            text, sizeof text, "%.*f", below(choices, 12),
            std::ldexp(static_cast<double>(choices.any_bits() >> 11), between(choices, -70, -20)));
    }
    std::string field(text);
    field.resize(std::min<std::size_t>(field.size(), 50));
    using namespace std::string_view_literals;
    constexpr std::string_view odd = "+-.eEdD,\t\rx0 1\0"sv;
    for (int i = below(choices, 8) == 0 ? between(choices, 1, 3) : 0; i > 0 && !field.empty();
         --i) {
        field[static_cast<std::size_t>(below(choices, static_cast<int>(field.size())))] =
            odd[static_cast<std::size_t>(below(choices, static_cast<int>(odd.size())))];
    }
    return field;
}

} // namespace korvat::test
