#include "check/settings.hpp"

#include "check/deck_file.hpp"
#include "check/rules.hpp"
#include "check/text.hpp"
#include "platform/paths.hpp"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <toml++/toml.h>

namespace korvat::check {
namespace {

std::string place_in(const std::string& file, const toml::source_region& source) {
    return file + ":" + std::to_string(source.begin.line) + ": ";
}

// What TOML has beside characters that can be seen.
bool is_forbidden(char c) {
    const bool is_low = static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
    return is_low && c != '\t' && c != '\n' && c != '\r';
}

// Refused by TOML, and here: its reader takes a zero for a character of a name, and then aborts.
void refuse_control_characters(const std::string& file, const std::string& text) {
    const auto at = std::ranges::find_if(text, is_forbidden);
    if (at == text.end()) return;
    const auto line = 1 + std::count(text.begin(), at, '\n');
    throw CannotRead(file + ":" + std::to_string(line) +
                     ": a control character stands here, which no text has");
}

// The text behind a string or a comment that a text begins with; the text itself where it begins with neither.
std::string_view behind_quoted(std::string_view text) {
    const auto behind = [&](std::size_t at) {
        return at == std::string_view::npos ? std::string_view() : text.substr(at + 1);
    };
    if (text.front() == '#') return behind(text.find('\n'));
    if (text.front() == '\'') return behind(text.find_first_of("'\n", 1));
    if (text.front() != '"') return text;
    std::size_t end = text.find_first_of("\"\\\n", 1);
    while (end != std::string_view::npos && text[end] == '\\')
        end = text.find_first_of("\"\\\n", end + 2);
    return behind(end);
}

// What makes the reader of TOML go astray: characters beyond ASCII outside of quotes and comments, where TOML has
// none, and in strings that go on over lines.
void refuse_pitfalls(const std::string& file, std::string_view text) {
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    std::string_view rest = text;
    const auto refuse = [&](const char* what) {
        const std::string_view before = text.substr(0, text.size() - rest.size());
        const auto line = 1 + std::ranges::count(before, '\n');
        throw CannotRead(file + ":" + std::to_string(line) + ": " + what);
    };
    if (rest.starts_with(byte_order_mark)) rest.remove_prefix(byte_order_mark.size());
    while (!rest.empty()) {
        if (rest.starts_with("\"\"\"") || rest.starts_with("\'\'\'"))
            refuse("a reason stands on one line");
        if (static_cast<unsigned char>(rest.front()) >= 0x80)
            refuse("a character that is not ASCII stands outside of quotes");
        const std::string_view behind = behind_quoted(rest);
        rest = behind.size() == rest.size() ? rest.substr(1) : behind;
    }
}

SwitchedOff switched_off(const std::string& file, const toml::key& key, const toml::node& value) {
    const std::string rule(key.str());
    const std::string place = place_in(file, key.source());
    if (rule_named(rule) == nullptr) throw CannotRead(place + unknown_rule(rule));
    const std::string reason = value.value_or(std::string());
    if (is_blank(reason)) throw CannotRead(place + rule + " needs a reason, a text in quotes");
    return {rule, reason};
}

} // namespace

std::vector<SwitchedOff> read_settings(const std::filesystem::path& directory) {
    const std::filesystem::path path = directory / "korvat-check.toml";
    std::ifstream stream(path, std::ios::binary);
    if (!stream) return {};
    const std::string file = platform::name_of(path);
    const std::string text(std::istreambuf_iterator<char>(stream), {});
    refuse_control_characters(file, text);
    refuse_pitfalls(file, text);
    std::vector<SwitchedOff> off;
    try {
        const toml::table table = toml::parse(text);
        for (const auto& [key, value] : table) {
            const toml::table* const rules = value.as_table();
            if (key.str() != "off" || rules == nullptr) {
                throw CannotRead(place_in(file, key.source()) +
                                 "only a table [off] is known, not " + std::string(key.str()));
            }
            for (const auto& [rule, reason] : *rules) {
                off.push_back(switched_off(file, rule, reason));
            }
        }
    } catch (const toml::parse_error& error) {
        throw CannotRead(place_in(file, error.source()) + std::string(error.description()));
    }
    return off;
}

} // namespace korvat::check
