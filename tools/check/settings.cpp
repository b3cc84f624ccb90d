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
