// Findings as SARIF 2.1.0, which editors and code hosts read.
#include "check/format.hpp"

#include "check/rules.hpp"
#include "run/program_version.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace korvat::check {
namespace {

using Json = nlohmann::ordered_json;

Json described(const Rule& rule) {
    return {{"id", rule.name},
            {"shortDescription", {{"text", rule.summary}}},
            {"defaultConfiguration", {{"level", name_of(rule.level)}}}};
}

std::size_t index_of(const std::vector<const Rule*>& rules, std::string_view name) {
    return static_cast<std::size_t>(std::ranges::find(rules, name, &Rule::name) - rules.begin());
}

bool is_plain_in_uri(char c) {
    const bool is_letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return is_letter || (c >= '0' && c <= '9') ||
           std::string_view("-._~/").find(c) != std::string_view::npos;
}

// A path as a reference: relative to where the program was started, or below file://.
std::string uri_of(std::string path) {
    std::ranges::replace(path, '\\', '/');
    const bool has_drive = path.size() > 1 && path[1] == ':';
    std::string uri;
    if (path.starts_with('/')) uri = "file://";
    if (has_drive) uri = "file:///" + path.substr(0, 2);
    for (const char c : path.substr(has_drive ? 2 : 0)) {
        if (is_plain_in_uri(c)) {
            uri += c;
            continue;
        }
        constexpr std::string_view digits = "0123456789ABCDEF";
        const auto code = static_cast<unsigned char>(c);
        uri += '%';
        uri += digits[code / 16U];
        uri += digits[code % 16U];
    }
    return uri;
}

Json located(const CheckedDeck& deck, const Place& place) {
    Json physical = {{"artifactLocation", {{"uri", uri_of(deck.file)}}}};
    if (place.line > 0) {
        physical["region"] = {{"startLine", place.line}};
        if (place.column > 0) {
            physical["region"]["startColumn"] = place.column;
            physical["region"]["endColumn"] = place.column + place.length;
        }
    }
    return {{"physicalLocation", physical}};
}

Json as_result(const CheckedDeck& deck, const Finding& finding,
               const std::vector<const Rule*>& rules) {
    const std::string remedy = finding.remedy.empty() ? "" : "\n" + finding.remedy;
    return {{"ruleId", finding.rule},
            {"ruleIndex", index_of(rules, finding.rule)},
            {"level", name_of(finding.level)},
            {"message", {{"text", printable(finding.message) + remedy}}},
            {"locations", Json::array({located(deck, finding.place)})}};
}

} // namespace

std::string as_sarif(const std::vector<CheckedDeck>& decks) {
    const std::vector<const Rule*> rules = all_rules();
    Json descriptions = Json::array();
    for (const Rule* const rule : rules) {
        descriptions.push_back(described(*rule));
    }
    Json results = Json::array();
    for (const CheckedDeck& deck : decks) {
        for (const Finding& finding : deck.findings) {
            results.push_back(as_result(deck, finding, rules));
        }
    }
    const Json driver = {{"name", "korvat-tools"},
                         {"version", std::string(program_version())},
                         {"rules", descriptions}};
    const Json run = {
        {"tool", {{"driver", driver}}}, {"columnKind", "unicodeCodePoints"}, {"results", results}};
    const Json sarif = {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                        {"version", "2.1.0"},
                        {"runs", Json::array({run})}};
    return sarif.dump(2) + "\n";
}

} // namespace korvat::check
