// Finds the entry of a message.
#include "check/message_table.hpp"

#include "check/text.hpp"

#include <algorithm>
#include <charconv>

namespace korvat::check {
namespace {

constexpr std::string_view blanks = " \t\r\n";

std::string without_blanks(std::string_view text) {
    std::string packed;
    for (const Token& token : tokens(text, blanks)) {
        packed += token.text;
    }
    return packed;
}

// Whether a text begins with the pieces, each but the first behind whatever.
bool begins_with(std::string_view text, std::span<const std::string_view> pieces) {
    if (pieces.empty() || !text.starts_with(pieces.front())) return false;
    std::size_t position = pieces.front().size();
    for (const std::string_view piece : pieces.subspan(1)) {
        const std::size_t found = text.find(piece, position);
        if (found == std::string_view::npos) return false;
        position = found + piece.size();
    }
    return true;
}

std::size_t fixed_characters(const MessageEntry& entry) {
    std::size_t count = 0;
    for (const std::string_view piece : entry.pieces) {
        count += piece.size();
    }
    return count;
}

} // namespace

const MessageEntry* entry_of(std::string_view message) {
    const std::string text = without_blanks(message);
    const MessageEntry* best = nullptr;
    for (const MessageEntry& entry : message_entries()) {
        if (!begins_with(text, entry.pieces)) continue;
        if (best == nullptr || fixed_characters(entry) > fixed_characters(*best)) best = &entry;
    }
    return best;
}

// The names in front of the equals sign stand in the order of the numbers behind it: "MAT,IERR=  1  3".
std::string_view meaning_of_number(const MessageEntry& entry, std::string_view message) {
    constexpr std::string_view name = "IERR=";
    const std::size_t end = message.find(name);
    if (end == std::string_view::npos) return {};
    const std::string_view names = message.substr(message.rfind(':', end) + 1).substr(0, end);
    const std::size_t stop = names.find(name);
    const auto in_front = static_cast<std::size_t>(std::ranges::count(names.substr(0, stop), ','));
    const std::vector<Token> values = tokens(message.substr(end + name.size()), blanks);
    if (in_front >= values.size()) return {};
    const std::string_view value = values[in_front].text;
    int number = 0;
    std::from_chars(value.data(), value.data() + value.size(), number);
    const auto found = std::ranges::find(entry.numbers, number, &MessageNumber::number);
    return found == entry.numbers.end() ? std::string_view() : found->text;
}

std::string one_line(std::string_view message) {
    std::string text;
    for (const Token& token : tokens(message, blanks)) {
        if (token.text == "****") continue;
        if (!text.empty()) text += ' ';
        text += token.text;
    }
    constexpr std::string_view warning = "WARNING FROM ";
    if (text.starts_with(warning)) text.erase(0, warning.size());
    const auto is_control = [](char c) {
        return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
    };
    std::ranges::replace_if(text, is_control, '?');
    return text;
}

} // namespace korvat::check
