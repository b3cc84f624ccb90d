// Findings as compilers have them.
#include "check/format.hpp"

#include "check/text.hpp"
#include "text/utf8.hpp"

#include <algorithm>

namespace korvat::check {
namespace {

constexpr std::size_t columns_shown = 120; // of a line: no more are read

struct Palette {
    std::string_view place, error, warning, note, caret, end;
};

constexpr Palette no_colours{};
constexpr Palette terminal_colours{.place = "\x1B[1m",
                                   .error = "\x1B[1;31m",
                                   .warning = "\x1B[1;35m",
                                   .note = "\x1B[1;36m",
                                   .caret = "\x1B[1;32m",
                                   .end = "\x1B[0m"};

std::string_view colour_of(const Palette& palette, Level level) {
    switch (level) {
    case Level::error:
        return palette.error;
    case Level::warning:
        return palette.warning;
    case Level::note:
        return palette.note;
    }
    return {};
}

std::string coloured(std::string_view colour, const Palette& palette, const std::string& text) {
    if (colour.empty()) return text;
    return std::string(colour) + text + std::string(palette.end);
}

std::string shown_place(const std::string& file, const Place& place) {
    std::string text = printable(file) + ":";
    if (place.line > 0) text += std::to_string(place.line) + ":";
    if (place.column > 0) text += std::to_string(place.column) + ":";
    return text;
}

// The first characters of a text; what is no UTF-8 has been replaced.
std::string first_characters(std::string_view text, std::size_t count) {
    std::string first;
    for (const char c : text) {
        if (!text::is_continuation(c) && count-- == 0) break;
        first += c;
    }
    return first;
}

// A caret under the first character of a place and a mark under each other one, whatever the width of
// the tabs in front is.
std::string marks(std::string_view line, const Place& place) {
    std::string text;
    int column = 1;
    for (std::size_t i = 0; column < place.column; ++i) {
        const char c = i < line.size() ? line[i] : ' ';
        if (text::is_continuation(c)) continue;
        text += c == '\t' ? '\t' : ' ';
        ++column;
    }
    text += '^';
    const int shown = static_cast<int>(columns_shown);
    const int last = std::min(place.column + place.length - 1, shown);
    text.append(static_cast<std::size_t>(std::max(last - place.column, 0)), '~');
    return text;
}

std::string shown_line(const CheckedDeck& deck, const Place& place, const Palette& palette) {
    const auto index = static_cast<std::size_t>(place.line) - 1;
    if (place.line < 1 || index >= deck.lines.size()) return "";
    std::string line = first_characters(
        printable(std::string_view(deck.lines[index]).substr(0, 4 * columns_shown)), columns_shown);
    line.erase(line.find_last_not_of(' ') + 1);
    if (line.empty()) return ""; // nothing to be seen
    std::string text = "  " + line + "\n";
    if (place.column > 0 && place.column <= static_cast<int>(columns_shown)) {
        text += "  " + coloured(palette.caret, palette, marks(line, place)) + "\n";
    }
    return text;
}

std::string as_text(const CheckedDeck& deck, const Finding& finding, const Palette& palette) {
    std::string text =
        coloured(palette.place, palette, shown_place(deck.file, finding.place)) + " " +
        coloured(colour_of(palette, finding.level), palette, name_of(finding.level) + ":") + " " +
        printable(finding.message) + " [" + finding.rule + "]\n";
    text += shown_line(deck, finding.place, palette);
    if (!finding.remedy.empty()) text += "  " + printable(finding.remedy) + "\n";
    return text;
}

std::string findings_text(const CheckedDeck& deck, const Palette& palette) {
    std::string text;
    for (const Finding& finding : deck.findings) {
        text += as_text(deck, finding, palette);
    }
    return text;
}

std::string summary(const CheckedDeck& deck) {
    const auto number = [](std::size_t count, std::string_view noun) {
        return counted(static_cast<long>(count), noun);
    };
    std::string text = "the run ends with an error: ";
    if (deck.made) {
        text = number(deck.made->piles, "pile") + ", " + number(deck.made->elements, "element") +
               ", " + number(deck.made->sections, "section") + ": ";
    }
    text += counted(count(deck, Level::error), "error") + ", " +
            counted(count(deck, Level::warning), "warning");
    const long notes = count(deck, Level::note);
    return notes == 0 ? text : text + ", " + counted(notes, "note");
}

} // namespace

std::string name_of(Level level) {
    switch (level) {
    case Level::error:
        return "error";
    case Level::warning:
        return "warning";
    case Level::note:
        return "note";
    }
    return "";
}

std::string findings_text(const CheckedDeck& deck) {
    return findings_text(deck, no_colours);
}

std::string as_text(const std::vector<CheckedDeck>& decks, Colour colour) {
    const Palette& palette = colour == Colour::terminal ? terminal_colours : no_colours;
    std::string text;
    for (const CheckedDeck& deck : decks) {
        text += findings_text(deck, palette);
        for (const SwitchedOff& off : deck.off) {
            text += printable(deck.file) + ": " + off.rule +
                    " is switched off: " + printable(off.reason) + "\n";
        }
        if (decks.size() > 1) text += printable(deck.file) + ": ";
        text += summary(deck) + "\n";
    }
    return text;
}

} // namespace korvat::check
