#include "study/run_messages.hpp"

#include <algorithm>
#include <charconv>

namespace korvat::study {
namespace {

constexpr std::string_view of_program = "korvat: ";
constexpr std::string_view of_deck = "KORVAT.INP:";
constexpr std::string_view of_warning = "warning: ";
constexpr std::string_view not_opened = "cannot open ";

bool take(std::string_view& text, std::string_view beginning) {
    if (!text.starts_with(beginning)) return false;
    text.remove_prefix(beginning.size());
    return true;
}

std::string_view take_line(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

// "12: " in front of a text, which loses it.
std::optional<int> take_number(std::string_view& text) {
    int number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) return std::nullopt;
    std::string_view rest = text.substr(static_cast<std::size_t>(stop - text.data()));
    if (!take(rest, ": ")) return std::nullopt;
    text = rest;
    return number;
}

} // namespace

std::vector<RunMessage> run_messages(std::string_view standard_error) {
    std::vector<RunMessage> messages;
    while (!standard_error.empty()) {
        std::string_view line = take_line(standard_error);
        if (!take(line, of_program)) continue;
        RunMessage message;
        if (take(line, of_deck)) {
            message.line = take_number(line);
            if (!message.line) take(line, " ");
        }
        message.is_warning = take(line, of_warning);
        message.text = line;
        messages.push_back(std::move(message));
        // A line of the deck may look like anything.
        if (messages.back().line && !messages.back().is_warning) take_line(standard_error);
    }
    return messages;
}

bool is_of_machine(const RunMessage& message) {
    const std::string_view text = message.text;
    return text.starts_with("cannot write ") || text.starts_with(not_opened) ||
           text == "out of memory" || text.find("OPEN PROBLEM") != std::string_view::npos;
}

std::string old_output(const RunMessage& message) {
    std::string_view text = message.text;
    if (!message.is_warning) return {};
    if (text.starts_with("LOAD.09 is of an earlier run")) return "LOAD.09";
    if (!take(text, not_opened)) return {};
    return std::string(text.substr(0, text.find(':')));
}

} // namespace korvat::study
