// Fuzz target: the whole check of a deck, from its file to what is told of it, or of a file of settings.
#include "require.hpp"
#include "scratch.hpp"

#include "check/deck_file.hpp"
#include "check/format.hpp"
#include "check/rules.hpp"
#include "check/text.hpp"
#include "run/entry.hpp"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {
namespace {

using check::CheckedDeck;
using check::Finding;
using check::Level;
using check::Place;
using Json = nlohmann::json;

constexpr std::string_view settings_file = "korvat-check.toml";

// Choices that a deck makes by its bytes, so that an input is nothing but a deck.
class Choices {
public:
    explicit Choices(std::string_view deck) : state_(std::hash<std::string_view>()(deck)) {}
    std::size_t below(std::size_t count) {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return (state_ >> 33U) % count;
    }

private:
    std::uint64_t state_;
};

// The name of the deck's file, and the case that is looked at.
struct Name {
    std::string file;
    std::string argument;
};

Name chosen_name(Choices& choices) {
    const Name names[] = {{"KORVAT.INP", "."},
                          {"korvat.inp", "."},
                          {"KORVAT.INP", "KORVAT.INP"},
                          {"jacket 5%.dat", "./jacket 5%.dat"},
                          {"\xC3\xBC\xFF\x1B\\c:.inp", "\xC3\xBC\xFF\x1B\\c:.inp"}};
    return names[choices.below(std::size(names))];
}

std::string chosen_rule(Choices& choices) {
    const std::vector<const check::Rule*> rules = check::all_rules();
    return std::string(rules[choices.below(rules.size())]->name);
}

// Mostly all rules, so that most inputs meet them all.
check::Selection chosen_selection(Choices& choices) {
    check::Selection selection;
    const std::size_t choice = choices.below(8);
    if (choice == 0) selection.only = {chosen_rule(choices), chosen_rule(choices)};
    if (choice <= 1) selection.off = {chosen_rule(choices)};
    return selection;
}

std::string chosen_settings(Choices& choices) {
    if (choices.below(8) != 0) return "";
    return "[off]\n" + chosen_rule(choices) + " = \"this \\u001B is \\\"how\\\" it is\"\n";
}

struct Scratch {
    std::vector<std::string> names;
    std::vector<std::string> contents;

    bool operator==(const Scratch&) const = default;
};

Scratch content_of_scratch() {
    Scratch scratch{fuzz_scratch().list(), {}};
    for (const std::string& name : scratch.names) {
        scratch.contents.push_back(fuzz_scratch().read_file(name));
    }
    return scratch;
}

void empty_scratch() {
    for (const std::string& name : fuzz_scratch().list())
        std::filesystem::remove(fuzz_scratch().path() / name);
}

bool is_same(const CheckedDeck& a, const CheckedDeck& b) {
    return a.findings == b.findings && a.made.has_value() == b.made.has_value() && a.off == b.off;
}

// Column and length count characters of the line; what is missing is at its end, one behind it.
void check_place(const Place& place, const std::vector<std::string>& lines,
                 const std::string& rule) {
    const int last = static_cast<int>(lines.size());
    require(place.line >= 0 && place.line <= last, rule + ": a line of the deck");
    if (place.column == 0) {
        require(place.length == 0, rule + ": no length without a column");
        return;
    }
    require(place.line > 0, rule + ": a column of a line");
    const int all = check::characters(lines[static_cast<std::size_t>(place.line) - 1]);
    require(place.column >= 1 && place.column <= all + 1, rule + ": a column of the line");
    require(place.length >= 1, rule + ": a length");
    require(place.column + place.length - 1 <= std::max(all, place.column),
            rule + ": a length within the line");
}

bool is_selected(const CheckedDeck& deck, const check::Selection& selection,
                 const std::string& rule) {
    const auto has = [&](const std::vector<std::string>& names) {
        return std::ranges::count(names, rule) > 0;
    };
    return (selection.only.empty() || has(selection.only)) && !has(selection.off) &&
           std::ranges::count(deck.off, rule, &check::SwitchedOff::rule) == 0;
}

void check_findings(const CheckedDeck& deck, const check::Selection& selection) {
    for (const Finding& finding : deck.findings) {
        const check::Rule* const rule = check::rule_named(finding.rule);
        require(rule != nullptr, "a known rule: " + finding.rule);
        require(is_selected(deck, selection, finding.rule), "asked for: " + finding.rule);
        require(finding.level == rule->level, "the level of its rule: " + finding.rule);
        require(!finding.message.empty(), "a message: " + finding.rule);
        check_place(finding.place, deck.lines, finding.rule);
    }
}

// docs/checks.md: an error means that the run ends with one, or that reading cannot go on as it is meant. The
// latter goes without the former only for a file of another name, and for what is no text to others.
void check_errors(const CheckedDeck& deck, const check::Selection& selection) {
    const auto errors_of_run = std::ranges::count(deck.findings, "run-error", &Finding::rule);
    const bool is_told = is_selected(deck, selection, "run-error") && !deck.made;
    require(errors_of_run == (is_told ? 1 : 0), "one error of a run that fails");
    if (!deck.made) return;
    const auto is_misplaced = [](const Finding& finding) {
        return finding.level == Level::error && finding.rule != "not-text" &&
               finding.rule != "utf-16" && finding.rule != "deck-name";
    };
    require(std::ranges::none_of(deck.findings, is_misplaced), "no error of a run that succeeds");
}

// The program itself has the same success.
void check_run(const CheckedDeck& deck, std::string_view bytes) {
    fuzz_scratch().write_file("KORVAT.INP", bytes);
    const RunEnd end = run_program(0, nullptr);
    require((end.exit_code == 0) == deck.made.has_value(), "the success of the program");
}

void check_text(const CheckedDeck& deck) {
    const std::string text = as_text({deck}, check::Colour::none);
    std::string lines = text;
    std::ranges::replace(lines, '\n', ' ');
    require(check::printable(lines) == lines, "text without control characters");
    require(text.ends_with('\n'), "whole lines");
    require(as_text({deck}, check::Colour::terminal).size() >= text.size(), "colours add to it");
}

Json parsed(const std::string& text) {
    Json json = Json::parse(text, nullptr, false);
    require(!json.is_discarded(), "JSON that can be parsed");
    return json;
}

void check_json(const CheckedDeck& deck) {
    const Json json = parsed(check::as_json({deck}));
    const Json& told = json.at("cases").at(0);
    require(told.at("runs") == deck.made.has_value(), "whether the run succeeds");
    require(told.at("findings").size() == deck.findings.size(), "all findings in JSON");
    require(told.at("errors") == count(deck, Level::error), "the errors counted");
    for (std::size_t i = 0; i < deck.findings.size(); ++i) {
        const Json& finding = told.at("findings").at(i);
        require(finding.at("rule") == deck.findings[i].rule &&
                    finding.at("line") == deck.findings[i].place.line &&
                    finding.at("length") == deck.findings[i].place.length,
                "a finding in JSON");
    }
}

void check_sarif(const CheckedDeck& deck) {
    const Json json = parsed(check::as_sarif({deck}));
    const Json& run = json.at("runs").at(0);
    const Json& rules = run.at("tool").at("driver").at("rules");
    require(run.at("results").size() == deck.findings.size(), "all findings in SARIF");
    for (const Json& result : run.at("results")) {
        const auto index = result.at("ruleIndex").get<std::size_t>();
        require(rules.at(index).at("id") == result.at("ruleId"), "the index of a rule");
        const Json& physical = result.at("locations").at(0).at("physicalLocation");
        const auto uri = physical.at("artifactLocation").at("uri").get<std::string>();
        require(std::ranges::none_of(uri, [](char c) { return c <= ' ' || c >= 0x7F; }), "a URI");
        if (!physical.contains("region")) continue;
        const Json& region = physical.at("region");
        require(region.at("startLine").get<int>() >= 1, "a line in SARIF");
        if (!region.contains("startColumn")) continue;
        require(region.at("endColumn").get<int>() > region.at("startColumn").get<int>(),
                "a column in SARIF");
    }
}

void check_form(const CheckedDeck& deck, std::size_t choice) {
    switch (choice) {
    case 0:
        check_text(deck);
        return;
    case 1:
        check_json(deck);
        return;
    default:
        check_sarif(deck);
    }
}

// Half of the inputs are checked, or run, a second time: a run takes most of the time.
void check_deck_file(std::string_view bytes) {
    Choices choices(bytes);
    const Name name = chosen_name(choices);
    fuzz_scratch().write_file(name.file, bytes);
    const std::string settings = chosen_settings(choices);
    if (!settings.empty()) fuzz_scratch().write_file(std::string(settings_file), settings);
    const check::Selection selection = chosen_selection(choices);
    const Scratch before = content_of_scratch();

    const CheckedDeck deck = check_deck(check::read_deck(name.argument), selection);
    check_findings(deck, selection);
    check_errors(deck, selection);
    check_form(deck, choices.below(3));
    const std::size_t again = choices.below(4);
    if (again == 0) {
        const CheckedDeck second = check_deck(check::read_deck(name.argument), selection);
        require(is_same(deck, second), "the same findings again");
    }
    require(content_of_scratch() == before, "nothing written beside the deck");
    empty_scratch();
    if (again == 1) check_run(deck, bytes);
    empty_scratch();
}

// Settings switch rules off by name and with a reason, or are refused with their place.
void check_settings_file(std::string_view bytes) {
    fuzz_scratch().write_file(std::string(settings_file), bytes);
    try {
        for (const check::SwitchedOff& off : check::read_settings(".")) {
            require(check::rule_named(off.rule) != nullptr, "a rule switched off: " + off.rule);
            require(!check::is_blank(off.reason), "a reason");
        }
    } catch (const check::CannotRead& error) {
        const std::string text = error.what();
        require(text.find(settings_file) < text.find(':'), "the place of the fault: " + text);
    }
    empty_scratch();
}

} // namespace
} // namespace korvat::test

// An input that begins with a bracket is a file of settings, any other a deck. The directory is empty
// before and after: a check that ends badly ends the process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvat::test;
    const InFuzzScratch current;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (bytes.starts_with('[')) {
        check_settings_file(bytes);
    } else {
        check_deck_file(bytes);
    }
    return 0;
}
