// The forms in which findings are told, whole.
#include "check/format.hpp"
#include "check/rules.hpp"
#include "run/program_version.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace korvat::test {
namespace {

using check::CheckedDeck;
using check::Level;
using Json = nlohmann::json;

// A deck of three lines with a finding of each level.
CheckedDeck three_findings() {
    return {.file = "case one/KORVAT.INP",
            .lines = {"label", "\t1  2,5 \x01\xFF", "Dälben 3;4"},
            .made = check::Made{.piles = 8, .elements = 412, .sections = 1},
            .findings = {{"run-error", Level::error, {}, "no place", ""},
                         {"decimal-comma", Level::error, {2, 5, 3}, "a comma", "Write a point."},
                         {"semicolon", Level::warning, {3, 9, 1}, "a semicolon", "Write a blank."},
                         {"made-piles", Level::note, {3, 0, 0}, "the whole line", "Nothing."}},
            .off = {{"tab", "they are meant"}}};
}

CheckedDeck without_findings() {
    return {.file = "b",
            .lines = {},
            .made = check::Made{.piles = 1, .elements = 1, .sections = 2},
            .findings = {},
            .off = {}};
}

CheckedDeck failed() {
    return {.file = "c",
            .lines = {},
            .made = {},
            .findings = {{"run-error", Level::error, {}, "why", "what"}},
            .off = {}};
}

TEST(Format, AsCompilersHaveIt) {
    EXPECT_EQ(check::as_text({three_findings()}, check::Colour::none),
              "case one/KORVAT.INP: error: no place [run-error]\n"
              "case one/KORVAT.INP:2:5: error: a comma [decimal-comma]\n"
              "  \t1  2,5 ??\n"
              "  \t   ^~~\n"
              "  Write a point.\n"
              "case one/KORVAT.INP:3:9: warning: a semicolon [semicolon]\n"
              "  Dälben 3;4\n"
              "          ^\n"
              "  Write a blank.\n"
              "case one/KORVAT.INP:3: note: the whole line [made-piles]\n"
              "  Dälben 3;4\n"
              "  Nothing.\n"
              "case one/KORVAT.INP: tab is switched off: they are meant\n"
              "8 piles, 412 elements, 1 section: 2 errors, 1 warning, 1 note\n");
}

TEST(Format, SeveralDecksAreSummedUpByTheirNames) {
    EXPECT_EQ(check::as_text({without_findings()}, check::Colour::none),
              "1 pile, 1 element, 2 sections: 0 errors, 0 warnings\n");
    EXPECT_EQ(check::as_text({without_findings(), failed()}, check::Colour::none),
              "b: 1 pile, 1 element, 2 sections: 0 errors, 0 warnings\n"
              "c: error: why [run-error]\n"
              "  what\n"
              "c: the run ends with an error: 1 error, 0 warnings\n");
}

TEST(Format, InColour) {
    CheckedDeck deck = three_findings();
    deck.findings.erase(deck.findings.begin());
    deck.findings.resize(1);
    deck.off.clear();
    EXPECT_EQ(
        check::as_text({deck}, check::Colour::terminal),
        "\x1B[1mcase one/KORVAT.INP:2:5:\x1B[0m \x1B[1;31merror:\x1B[0m a comma [decimal-comma]\n"
        "  \t1  2,5 ??\n"
        "  \x1B[1;32m\t   ^~~\x1B[0m\n"
        "  Write a point.\n"
        "8 piles, 412 elements, 1 section: 1 error, 0 warnings\n");
}

TEST(Format, ABlankLineIsNotShown) {
    CheckedDeck deck = without_findings();
    deck.lines = {"   "};
    deck.findings = {{"record-count", Level::error, {1, 0, 0}, "missing", "Add it."}};
    EXPECT_EQ(check::as_text({deck}, check::Colour::none),
              "b:1: error: missing [record-count]\n"
              "  Add it.\n"
              "1 pile, 1 element, 2 sections: 1 error, 0 warnings\n");
}

// 120 columns of a line are shown.
TEST(Format, ALongLineIsCut) {
    CheckedDeck deck = without_findings();
    deck.lines = {std::string(100, 'a') + std::string(30, 'b')};
    deck.findings = {{"tab", Level::error, {1, 119, 5}, "near", ""},
                     {"tab", Level::error, {1, 121, 5}, "far", ""}};
    const std::string shown = "  " + std::string(100, 'a') + std::string(20, 'b') + "\n";
    EXPECT_EQ(check::as_text({deck}, check::Colour::none),
              "b:1:119: error: near [tab]\n" + shown + "  " + std::string(118, ' ') + "^~\n" +
                  "b:1:121: error: far [tab]\n" + shown +
                  "1 pile, 1 element, 2 sections: 2 errors, 0 warnings\n");
}

TEST(Format, PrintableText) {
    EXPECT_EQ(check::printable("a\tb\n\x1B[31m\x7F"), "a\tb??[31m?");
    EXPECT_EQ(check::printable("ü€😀"), "ü€😀");
    EXPECT_EQ(check::printable("\xC3"), "?");
    EXPECT_EQ(check::printable("\xC0\xAF\xED\xA0\x80\xF5z"), "??????z");
    EXPECT_EQ(check::printable("\xC2\x85"), "?"); // a control character of two bytes
}

TEST(Format, Json) {
    const Json expected = Json::parse(R"({
        "format": "korvat findings",
        "version": 1,
        "cases": [
            {"file": "case one/KORVAT.INP", "runs": true, "piles": 8, "elements": 412, "sections": 1,
             "errors": 2, "warnings": 1, "notes": 1,
             "findings": [
                {"rule": "run-error", "level": "error", "line": 0, "column": 0, "length": 0,
                 "message": "no place", "remedy": ""},
                {"rule": "decimal-comma", "level": "error", "line": 2, "column": 5, "length": 3,
                 "message": "a comma", "remedy": "Write a point."},
                {"rule": "semicolon", "level": "warning", "line": 3, "column": 9, "length": 1,
                 "message": "a semicolon", "remedy": "Write a blank."},
                {"rule": "made-piles", "level": "note", "line": 3, "column": 0, "length": 0,
                 "message": "the whole line", "remedy": "Nothing."}],
             "off": [{"rule": "tab", "reason": "they are meant"}]},
            {"file": "c", "runs": false, "errors": 1, "warnings": 0, "notes": 0,
             "findings": [
                {"rule": "run-error", "level": "error", "line": 0, "column": 0, "length": 0,
                 "message": "why", "remedy": "what"}],
             "off": []}]})");
    EXPECT_EQ(Json::parse(check::as_json({three_findings(), failed()})), expected);
}

TEST(Format, SarifHasWhatItsSchemaRequires) {
    const Json sarif = Json::parse(check::as_sarif({three_findings(), failed()}));
    EXPECT_EQ(sarif.at("version"), "2.1.0");
    EXPECT_EQ(sarif.at("$schema"), "https://json.schemastore.org/sarif-2.1.0.json");
    ASSERT_EQ(sarif.at("runs").size(), 1U);
    const Json& run = sarif.at("runs").at(0);
    EXPECT_EQ(run.at("columnKind"), "unicodeCodePoints");
    const Json& driver = run.at("tool").at("driver");
    EXPECT_EQ(driver.at("name"), "korvat-tools");
    EXPECT_EQ(driver.at("version"), std::string(program_version()));
    EXPECT_EQ(driver.at("rules").size(), check::all_rules().size());
    for (const Json& result : run.at("results")) {
        const Json& rule = driver.at("rules").at(result.at("ruleIndex").get<std::size_t>());
        EXPECT_EQ(rule.at("id"), result.at("ruleId"));
        EXPECT_FALSE(rule.at("shortDescription").at("text").get<std::string>().empty());
    }
    const Json expected = Json::parse(R"([
        {"ruleId": "run-error", "level": "error", "message": {"text": "no place"},
         "locations": [{"physicalLocation": {
            "artifactLocation": {"uri": "case%20one/KORVAT.INP"}}}]},
        {"ruleId": "decimal-comma", "level": "error", "message": {"text": "a comma\nWrite a point."},
         "locations": [{"physicalLocation": {
            "artifactLocation": {"uri": "case%20one/KORVAT.INP"},
            "region": {"startLine": 2, "startColumn": 5, "endColumn": 8}}}]},
        {"ruleId": "semicolon", "level": "warning",
         "message": {"text": "a semicolon\nWrite a blank."},
         "locations": [{"physicalLocation": {
            "artifactLocation": {"uri": "case%20one/KORVAT.INP"},
            "region": {"startLine": 3, "startColumn": 9, "endColumn": 10}}}]},
        {"ruleId": "made-piles", "level": "note", "message": {"text": "the whole line\nNothing."},
         "locations": [{"physicalLocation": {
            "artifactLocation": {"uri": "case%20one/KORVAT.INP"}, "region": {"startLine": 3}}}]},
        {"ruleId": "run-error", "level": "error", "message": {"text": "why\nwhat"},
         "locations": [{"physicalLocation": {"artifactLocation": {"uri": "c"}}}]}])");
    Json results = run.at("results");
    for (Json& result : results) {
        result.erase("ruleIndex");
    }
    EXPECT_EQ(results, expected);
}

TEST(Format, SarifNamesFilesByReferences) {
    const auto uri = [](const std::string& file) {
        CheckedDeck deck = failed();
        deck.file = file;
        const Json sarif = Json::parse(check::as_sarif({deck}));
        const Json& location = sarif.at("runs").at(0).at("results").at(0).at("locations").at(0);
        return location.at("physicalLocation").at("artifactLocation").at("uri").get<std::string>();
    };
    EXPECT_EQ(uri("/home/a b/KORVAT.INP"), "file:///home/a%20b/KORVAT.INP");
    EXPECT_EQ(uri("C:\\decks\\KORVAT.INP"), "file:///C:/decks/KORVAT.INP");
    EXPECT_EQ(uri("<stdin>"), "%3Cstdin%3E");
    EXPECT_EQ(uri("Kai ü"), "Kai%20%C3%BC");
}

} // namespace
} // namespace korvat::test
