#include "check/settings.hpp"

#include "check/deck_file.hpp"
#include "check/rules.hpp"
#include "check/text.hpp"
#include "platform/paths.hpp"

#include <fstream>
#include <toml++/toml.h>

namespace korvat::check {
namespace {

std::string place_in(const std::string& file, const toml::source_region& source) {
    return file + ":" + std::to_string(source.begin.line) + ": ";
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
    std::vector<SwitchedOff> off;
    try {
        const toml::table table = toml::parse(stream);
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
