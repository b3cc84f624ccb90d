// The messages that a log may hold, as forms with fields for their items.
#include "message_forms.hpp"

#include "../support/text.hpp"

#include <algorithm>
#include <stdexcept>

namespace korvat::test {

namespace {

constexpr char line_mark = '|';

// A number that is wider than its field is written in full by the runtime: up to these lengths.
constexpr std::size_t longest_integer = 11;
constexpr std::size_t longest_real = 63;

FormLine parse_line(std::string_view text) {
    FormLine line;
    for (;;) {
        const std::size_t brace = text.find('{');
        if (brace == std::string_view::npos) break;
        const std::size_t end = text.find('}', brace);
        if (end == std::string_view::npos) throw std::runtime_error("a field without its end");
        const std::string width(text.substr(brace + 2, end - brace - 2));
        line.push_back({std::string(text.substr(0, brace)), text[brace + 1], std::stoul(width)});
        text.remove_prefix(end + 1);
    }
    line.push_back({std::string(text)});
    return line;
}

bool only_of(std::string_view text, std::string_view characters) {
    return text.find_first_not_of(characters) == std::string_view::npos;
}

// Blanks, a sign, and characters of a number; what is wider than its field has no blanks.
bool is_number(std::string_view text, std::size_t width, std::string_view characters) {
    const std::size_t blanks = std::min(text.find_first_not_of(' '), text.size());
    if (blanks > 0 && text.size() > width) return false;
    text.remove_prefix(blanks);
    if (text.starts_with('-')) text.remove_prefix(1);
    return !text.empty() && only_of(text, characters);
}

bool is_not_finite(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (text.starts_with('-')) text.remove_prefix(1);
    return text == "inf" || text == "nan";
}

bool fits(std::string_view text, const FormPiece& field) {
    switch (field.letter) {
    case 'i':
        return is_number(text, field.width, "0123456789");
    case 'f':
        return is_number(text, field.width, ".0123456789") || is_not_finite(text) ||
               only_of(text, "*");
    case 'e':
        return is_number(text, field.width, "-+.E0123456789") || only_of(text, "*");
    default:
        return true;
    }
}

std::size_t longest(const FormPiece& piece) {
    if (piece.letter == 'i') return std::max(piece.width, longest_integer);
    if (piece.letter == 'f') return std::max(piece.width, longest_real);
    return piece.width;
}

// A write with fewer items than its FORMAT has fields ends in front of the first field left over.
bool has_form(std::string_view line, std::span<const FormPiece> form, bool may_end) {
    const FormPiece& piece = form.front();
    if (!line.starts_with(piece.text)) return false;
    line.remove_prefix(piece.text.size());
    if (line.empty() && may_end) return true;
    if (form.size() == 1) return line.empty();
    const std::size_t most = std::min(longest(piece), line.size());
    for (std::size_t length = piece.width; length <= most; ++length) {
        if (fits(line.substr(0, length), piece) &&
            has_form(line.substr(length), form.subspan(1), true)) {
            return true;
        }
    }
    return false;
}

} // namespace

MessageForms::MessageForms(std::string_view text) {
    std::vector<Form>* kind = nullptr;
    for (const std::string& line : split_lines(text)) {
        if (line.starts_with(line_mark)) {
            if (kind == nullptr) throw std::runtime_error("a form without its kind");
            kind->back().push_back(parse_line(std::string_view(line).substr(1)));
            continue;
        }
        if (line == "message") {
            kind = &messages_;
        } else if (line == "stop") {
            kind = &stops_;
        } else if (line == "console") {
            kind = &console_;
        } else {
            throw std::runtime_error("no kind of form: " + line);
        }
        kind->emplace_back();
    }
}

bool MessageForms::stands_at(std::span<const std::string> lines, std::size_t index,
                             const Form& form) {
    if (lines.size() - index < form.size()) return false;
    return std::equal(
        form.begin(), form.end(), lines.begin() + static_cast<std::ptrdiff_t>(index),
        [](const FormLine& due, const std::string& line) { return has_form(line, due, false); });
}

std::size_t MessageForms::length_at(std::span<const std::string> lines, std::size_t index,
                                    const std::vector<Form>& forms) {
    std::size_t found = 0;
    for (const Form& form : forms) {
        if (form.size() > found && stands_at(lines, index, form)) found = form.size();
    }
    return found;
}

std::size_t MessageForms::message_at(std::span<const std::string> lines, std::size_t index) const {
    return length_at(lines, index, messages_);
}

std::size_t MessageForms::console_at(std::span<const std::string> lines, std::size_t index) const {
    return length_at(lines, index, console_);
}

bool MessageForms::ends_with_stop(std::span<const std::string> lines) const {
    return std::any_of(stops_.begin(), stops_.end(), [&](const Form& form) {
        return lines.size() >= form.size() && stands_at(lines, lines.size() - form.size(), form);
    });
}

} // namespace korvat::test
