#include "differential/random_formats.hpp"

#include "fortran/format_program.hpp"

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace korvat::test {
namespace {

using fortran::FormatStep;
using fortran::Item;

int below(Random& random, int limit) {
    return static_cast<int>(random() % static_cast<std::uint64_t>(limit));
}

int between(Random& random, int low, int high) {
    return low + below(random, high - low + 1);
}

std::string number(Random& random, int low, int high) {
    return std::to_string(between(random, low, high));
}

std::string data_descriptor(Random& random) {
    switch (below(random, 7)) {
    case 0:
        return "a";
    case 1:
        return "a" + number(random, 1, 90);
    case 2:
        return "i" + number(random, 1, 14);
    case 3:
        return "i" + number(random, 1, 14) + "." + number(random, 0, 14);
    case 4:
        return "e" + number(random, 1, 30) + "." + number(random, 0, 20);
    case 5:
        return "f" + number(random, 1, 70) + "." + number(random, 0, 30);
    default:
        return "f" + number(random, 5, 14) + "." + number(random, 0, 6);
    }
}

std::string literal(Random& random) {
    constexpr std::array<std::string_view, 6> texts = {"' '",  "'VAL=''x'','", "' **** SR/'",
                                                       "''''", "'   '",        "'-'"};
    return std::string(texts[static_cast<std::size_t>(below(random, texts.size()))]);
}

std::string list(Random& random, int depth);

std::string element(Random& random, int depth) {
    switch (below(random, 12)) {
    case 0:
        return literal(random);
    case 1:
        return number(random, 1, 12) + "x";
    case 2:
        return "/";
    case 3:
        return number(random, 0, 4) + "p";
    case 4:
        return depth > 0 ? "(" + list(random, depth - 1) + ")" : "1x";
    case 5:
        return depth > 0 ? number(random, 1, 4) + "(" + list(random, depth - 1) + ")" : "x";
    case 6:
        return number(random, 2, 6) + data_descriptor(random);
    case 7:
        return below(random, 4) == 0 ? ":" : number(random, 2, 4) + literal(random);
    default:
        return data_descriptor(random);
    }
}

std::string list(Random& random, int depth) {
    std::string text = element(random, depth);
    for (int i = below(random, 5); i > 0; --i) {
        text += "," + element(random, depth);
    }
    return text;
}

double next_to(Random& random, double value) {
    for (int i = below(random, 3); i > 0; --i) {
        value = std::nextafter(value, random() % 2 == 0 ? HUGE_VAL : -HUGE_VAL);
    }
    return value;
}

// A whole number and a half, divided by a power of two or of ten: a tie under some w.d.
double tie(Random& random) {
    const double whole = static_cast<double>(random() >> below(random, 64)) + 0.5;
    if (random() % 2 == 0) return std::ldexp(whole, -below(random, 60));
    return whole / std::pow(10.0, below(random, 20));
}

} // namespace

std::string random_format(Random& random) {
    return "(" + list(random, 2) + ")";
}

double random_real(Random& random) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    double value = 0.0;
    switch (below(random, 12)) {
    case 0:
        value = std::bit_cast<double>(random());
        break;
    case 1:
        value = std::pow(10.0, between(random, -320, 308));
        break;
    case 2:
        value = std::ldexp(1.0, between(random, -1074, 1023));
        break;
    case 3:
        value = std::bit_cast<double>(random() >> 12); // denormal
        break;
    case 4:
        value = below(random, 40) == 0 ? infinity : 0.0;
        break;
    case 5:
    case 6:
        value = tie(random);
        break;
    case 7:
        value = below(random, 40) == 0 ? std::numeric_limits<double>::quiet_NaN() : 1.0;
        break;
    case 8:
        value = below(random, 100000) / std::pow(10.0, below(random, 8));
        break;
    default:
        value = std::ldexp(static_cast<double>(random() >> 11), between(random, -75, -30));
    }
    if (random() % 4 == 0) value = next_to(random, value);
    return random() % 2 == 0 ? value : -value;
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

RandomItems random_items(Random& random, std::string_view kinds) {
    RandomItems items;
    for (const char kind : kinds) {
        if (kind == 'i') {
            const auto any = static_cast<int>(static_cast<std::uint32_t>(random()));
            items.list.emplace_back(random() % 2 == 0 ? any : any >> below(random, 32));
        } else if (kind == 'a') {
            std::string text(static_cast<std::size_t>(below(random, 100)), ' ');
            for (char& c : text)
                c = static_cast<char>(below(random, 30) == 0 ? below(random, 256)
                                                             : ' ' + below(random, 95));
            items.texts.push_back(std::move(text));
            const std::string& kept = items.texts.back();
            items.list.push_back(random() % 2 == 0 ? Item(fortran::characters(kept))
                                                   : Item(fortran::right_justified(kept)));
        } else {
            items.list.emplace_back(random_real(random));
        }
    }
    return items;
}

std::string random_number_field(Random& random) {
    char text[64];
    switch (below(random, 6)) {
    case 0:
        std::snprintf(text, sizeof text, "%.*e", below(random, 20), random_real(random));
        break;
    case 1:
        std::snprintf(text, sizeof text, "%.*g", between(random, 1, 20), random_real(random));
        break;
    case 2:
        std::snprintf(text, sizeof text, "%d", below(random, 100000));
        break;
    default:
        std::snprintf(text, sizeof text, "%.*f", below(random, 12),
                      std::ldexp(static_cast<double>(random() >> 11), between(random, -70, -20)));
    }
    std::string field(text);
    field.resize(std::min<std::size_t>(field.size(), 50));
    constexpr std::string_view odd = "+-.eEdD,\t\rx0 1\0";
    for (int i = below(random, 8) == 0 ? between(random, 1, 3) : 0; i > 0 && !field.empty(); --i) {
        field[static_cast<std::size_t>(below(random, static_cast<int>(field.size())))] =
            odd[static_cast<std::size_t>(below(random, static_cast<int>(odd.size())))];
    }
    return field;
}

} // namespace korvat::test
