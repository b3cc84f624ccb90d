#include "study/deck_template.hpp"

#include "check/layout.hpp"
#include "check/text.hpp"

#include <algorithm>
#include <utility>

namespace korvat::study {
namespace {

bool is_number(std::string_view text) {
    return check::number_of(text).has_value();
}

std::optional<check::Token> beyond_label(std::string_view line) {
    const std::string_view label = line.substr(0, line.find_last_not_of(' ') + 1);
    if (label.size() <= check::record_width) return std::nullopt;
    return check::tokens(label).back();
}

std::optional<check::Token> beyond_record(const check::Layout& layout, int number,
                                          std::string_view line) {
    const std::size_t width = check::is_comment(line) ? 0 : layout.width_of_line(number);
    return width == 0 ? std::nullopt : check::number_beyond(line, width);
}

const std::string& one_line(const std::string& text) {
    if (text.find_first_of("\r\n") != std::string::npos) {
        throw StudyError("the value has several lines");
    }
    return text;
}

double number_in(const Row& row, const std::string& name) {
    const auto found = row.find(name);
    if (found == row.end()) throw StudyError("there is no value " + name);
    const auto number = check::number_of(found->second);
    if (!number) throw StudyError(name + " is '" + found->second + "', which is no number");
    return *number;
}

} // namespace

DeckTemplate::DeckTemplate(std::string_view text, std::string shown) : shown_(std::move(shown)) {
    std::string plain;
    int line = 1;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\n') ++line;
        const bool is_brace = c == '{' || c == '}';
        if (!is_brace) {
            plain += c;
            continue;
        }
        if (i + 1 < text.size() && text[i + 1] == c) {
            plain += c;
            ++i;
            continue;
        }
        if (c == '}')
            throw StudyError(at(line) + "a brace is closed that is not open; write }} for one");
        const std::size_t end = text.find_first_of("{}\n", i + 1);
        if (end == std::string_view::npos || text[end] != '}') {
            throw StudyError(at(line) + "a brace is not closed on its line; write {{ for one");
        }
        parts_.emplace_back(std::exchange(plain, {}));
        parts_.emplace_back(place_of(text.substr(i + 1, end - i - 1), line));
        i = end;
    }
    parts_.emplace_back(std::move(plain));
    for (const auto& part : parts_) {
        if (const Place* const place = std::get_if<Place>(&part)) {
            filled_lines_.insert(place->line);
            for (std::string& name : place->expression.names()) {
                if (std::ranges::find(names_, name) == names_.end())
                    names_.push_back(std::move(name));
            }
        }
    }
}

DeckTemplate::Place DeckTemplate::place_of(std::string_view text, int line) const {
    try {
        const std::size_t colon = text.find(':');
        const bool has_format = colon != std::string_view::npos;
        return {.text = std::string(text),
                .expression = Expression(text.substr(0, colon)),
                .format = has_format ? value_format(text.substr(colon + 1)) : ValueFormat{},
                .has_format = has_format,
                .line = line};
    } catch (const StudyError& error) {
        throw StudyError(at(line) + error.what());
    }
}

std::string DeckTemplate::at(int line) const {
    return shown_ + ":" + std::to_string(line) + ": ";
}

std::string DeckTemplate::filled(const Place& place, const Row& row) const {
    try {
        const std::string name = place.expression.only_name();
        const auto found = row.find(name);
        const bool is_as_given =
            found != row.end() && (!place.has_format || !is_number(found->second));
        if (is_as_given) return formatted(one_line(found->second), place.format);
        const auto lookup = [&](const std::string& other) { return number_in(row, other); };
        return formatted(place.expression.value(lookup), place.format);
    } catch (const StudyError& error) {
        throw StudyError(at(place.line) + "{" + place.text + "}: " + error.what());
    }
}

std::string DeckTemplate::deck(const Row& row) const {
    std::string deck;
    for (const auto& part : parts_) {
        const auto* const place = std::get_if<Place>(&part);
        deck += place == nullptr ? std::get<std::string>(part) : filled(*place, row);
    }
    check_width(deck);
    return deck;
}

// Values hold no line end, so that the lines of the deck are those of the template.
void DeckTemplate::check_width(const std::string& deck) const {
    const std::vector<std::string> lines = check::lines_of(deck);
    const check::Layout layout(lines);
    for (const int number : filled_lines_) {
        const std::string_view line = lines[static_cast<std::size_t>(number) - 1];
        const auto lost = number == 1 ? beyond_label(line) : beyond_record(layout, number, line);
        if (!lost) continue;
        throw StudyError(at(number) + "'" + std::string(lost->text) + "' ends in column " +
                         std::to_string(lost->position + lost->text.size()) +
                         ", beyond the last one that is read of this line");
    }
}

} // namespace korvat::study
