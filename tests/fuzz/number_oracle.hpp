// What a token of a deck is worth, judged without the runtime.
#pragma once

#include <string_view>

namespace korvat::test {

struct JudgedNumber {
    enum class Verdict {
        number,
        no_number,
        either // at the ends of the range, where the runtime's conversion decides
    };
    Verdict verdict = Verdict::no_number;
    double value = 0.0; // correctly rounded
};

// An optional sign, digits with at most one point, and optionally an exponent of e, E, d or D, an
// optional sign and digits: from the first to the last character.
[[nodiscard]] bool has_form_of_number(std::string_view token);

// Without the tabs and carriage returns around it, which do not count.
[[nodiscard]] std::string_view without_tabs(std::string_view token);

[[nodiscard]] JudgedNumber judged_number(std::string_view token);

// Whether `found` is what the runtime may make of a number that is worth `value`: it keeps some 16
// digits, and loses numbers next to 0.
[[nodiscard]] bool may_stand_for(double found, double value);

} // namespace korvat::test
