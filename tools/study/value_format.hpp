// How a value is written into a deck.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvat::study {

// The part behind the colon of a named place: [WIDTH][.DIGITS][f|e|d].
struct ValueFormat {
    std::size_t width = 0; // 0: as wide as the value
    int digits = -1;       // behind the point; below 0: as many as it takes, up to 15 that count
    char kind = 0;         // f: 0.0508, e: 5.08E-2, d: a whole number; 0: the shorter one
};

// Raises StudyError where the text is no format.
[[nodiscard]] ValueFormat value_format(std::string_view text);

// The value, filled up with blanks in front. Raises StudyError where it is wider than the format, or not
// whole under d.
[[nodiscard]] std::string formatted(double value, const ValueFormat& format);

// The same for a text, which only the width touches. Raises StudyError where it is wider, or the format
// is one for numbers.
[[nodiscard]] std::string formatted(std::string_view text, const ValueFormat& format);

// A value with the digits that count: 1.739 for 1.7389999999999999.
[[nodiscard]] std::string plain(double value);

} // namespace korvat::study
