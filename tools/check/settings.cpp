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

bool is_key_character(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '_';
}

// What stands on a line of settings: of TOML only that, as its reader goes astray on much of what is none.
class SettingsLine {
public:
    explicit SettingsLine(std::string_view line) : rest_(line) { skip_blanks(); }

    // Nothing, a comment, a table, or a key and a text in quotes. Empty, or what is wrong with it.
    std::string fault() {
        if (is_at_end()) return {};
        const bool is_table = take('[');
        const std::string key = take_key();
        const bool has_sign = take(is_table ? ']' : '=');
        if (key.empty() || !has_sign) return "neither a table [off] nor a rule with its reason";
        if (!is_table && !take_text()) return key + " needs a reason, a text in quotes";
        return is_at_end() ? "" : "something stands behind the end of this line";
    }

private:
    void skip_blanks() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
    }

    [[nodiscard]] bool is_at_end() const { return rest_.empty() || rest_.front() == '#'; }

    bool take(char c) {
        if (!rest_.starts_with(c)) return false;
        rest_.remove_prefix(1);
        skip_blanks();
        return true;
    }

    std::string take_key() {
        const auto end = std::ranges::find_if_not(rest_, is_key_character);
        std::string key(rest_.begin(), end);
        rest_.remove_prefix(key.size());
        skip_blanks();
        return key;
    }

    // Between single quotes a backslash is one, between double ones it takes the character behind it along.
    bool take_text() {
        if (rest_.empty() || (rest_.front() != '"' && rest_.front() != '\'')) return false;
        const char quote = rest_.front();
        std::size_t end = 1;
        while (end < rest_.size() && rest_[end] != quote)
            end += quote == '"' && rest_[end] == '\\' ? 2 : 1;
        if (end >= rest_.size()) return false;
        rest_.remove_prefix(end + 1);
        skip_blanks();
        return true;
    }

    std::string_view rest_;
};

void refuse_other_lines(const std::string& file, std::string_view text) {
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    if (text.starts_with(byte_order_mark)) text.remove_prefix(byte_order_mark.size());
    const std::vector<std::string> lines = lines_of(text);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string fault = SettingsLine(lines[i]).fault();
        if (!fault.empty()) throw CannotRead(file + ":" + std::to_string(i + 1) + ": " + fault);
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
    refuse_other_lines(file, text);
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
