// Findings as JSON for other programs.
#include "check/format.hpp"

#include <nlohmann/json.hpp>

namespace korvat::check {
namespace {

using Json = nlohmann::ordered_json;

constexpr int version = 1; // of the form; another member does not change it, another meaning does

Json as_json(const Finding& finding) {
    return {{"rule", finding.rule},
            {"level", name_of(finding.level)},
            {"line", finding.place.line},
            {"column", finding.place.column},
            {"length", finding.place.length},
            {"message", printable(finding.message)},
            {"remedy", printable(finding.remedy)}};
}

Json as_json(const CheckedDeck& deck) {
    Json json = {{"file", printable(deck.file)}, {"runs", deck.made.has_value()}};
    if (deck.made) {
        json["piles"] = deck.made->piles;
        json["elements"] = deck.made->elements;
        json["sections"] = deck.made->sections;
    }
    json["errors"] = count(deck, Level::error);
    json["warnings"] = count(deck, Level::warning);
    json["notes"] = count(deck, Level::note);
    json["findings"] = Json::array();
    for (const Finding& finding : deck.findings) {
        json["findings"].push_back(as_json(finding));
    }
    json["off"] = Json::array();
    for (const SwitchedOff& off : deck.off) {
        json["off"].push_back({{"rule", off.rule}, {"reason", printable(off.reason)}});
    }
    return json;
}

} // namespace

std::string as_json(const std::vector<CheckedDeck>& decks) {
    Json json = {{"format", "korvat findings"}, {"version", version}, {"cases", Json::array()}};
    for (const CheckedDeck& deck : decks) {
        json["cases"].push_back(as_json(deck));
    }
    return json.dump(2) + "\n";
}

} // namespace korvat::check
