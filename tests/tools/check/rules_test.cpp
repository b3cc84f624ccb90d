// The names of the rules, their documentation, and which of them are asked for.
#include "check/rules.hpp"
#include "support/scratch_directory.hpp"
#include "tools/check/deck_text.hpp"

#include <gtest/gtest.h>
#include <set>

namespace korvat::test {
namespace {

using Texts = std::vector<std::string>;

TEST(Rules, EachHasANameOfItsOwnInLowerCase) {
    std::set<std::string_view> names;
    for (const check::Rule* const rule : check::all_rules()) {
        EXPECT_TRUE(names.insert(rule->name).second) << rule->name;
        EXPECT_EQ(rule->name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-"),
                  std::string_view::npos)
            << rule->name;
        EXPECT_FALSE(rule->summary.empty()) << rule->name;
        EXPECT_EQ(check::rule_named(rule->name), rule);
    }
    EXPECT_EQ(check::rule_named("tabs"), nullptr);
}

TEST(Rules, TheNearestName) {
    EXPECT_EQ(check::unknown_rule("surplus"),
              "there is no rule 'surplus'; did you mean 'surplus-numbers'?");
    EXPECT_EQ(check::unknown_rule("utf16"), "there is no rule 'utf16'; did you mean 'utf-16'?");
    EXPECT_EQ(check::unknown_rule("qqqqqqqq"), "there is no rule 'qqqqqqqq'");
}

std::string document() {
    return read_whole_file(std::string(KORVAT_DOCS_DIR) + "/checks.md");
}

// A heading with the name, and below it what each entry has.
TEST(Rules, EachHasItsSectionInTheDocument) {
    const std::string text = document();
    for (const check::Rule* const rule : check::all_rules()) {
        const std::string heading = "\n### " + std::string(rule->name) + "\n";
        const std::size_t start = text.find(heading);
        ASSERT_NE(start, std::string::npos) << rule->name;
        const std::size_t end = text.find("\n#", start + heading.size());
        const std::string section = text.substr(start, end - start);
        for (const char* const field :
             {"\n**Why:** ", "\n**Example:** ", "\n**What to do:** ", "\n**Right to ignore:** "}) {
            EXPECT_NE(section.find(field), std::string::npos) << rule->name << field;
        }
    }
}

TEST(Rules, TheDocumentKnowsNoOthers) {
    const std::string text = document();
    const std::string mark = "\n### ";
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + 1)) {
        const std::size_t start = at + mark.size();
        const std::string name = text.substr(start, text.find('\n', start) - start);
        EXPECT_NE(check::rule_named(name), nullptr) << name;
    }
}

// A deck with surplus numbers in line 21 and a fraction in line 26, checked as it is asked for.
Texts rules_found(const check::Selection& selection, const std::filesystem::path& beside = {}) {
    const DeckText deck = good_deck()
                              .with_changed(21, "10.0", "10.0 4.0")
                              .with_changed(26, "        5", "        5.4");
    Texts names;
    for (const check::Finding& finding :
         check::check_deck({"deck", "deck", beside, deck.text()}, selection).findings) {
        const bool is_of_it = finding.rule == "surplus-numbers" || finding.rule == "rounded-number";
        if (is_of_it) names.push_back(finding.rule);
    }
    return names;
}

TEST(Rules, OnlyThoseThatAreAskedFor) {
    EXPECT_EQ(rules_found({}), (Texts{"surplus-numbers", "rounded-number"}));
    EXPECT_EQ(rules_found({.only = {"rounded-number"}, .off = {}}), Texts{"rounded-number"});
    EXPECT_EQ(rules_found({.only = {}, .off = {"rounded-number"}}), Texts{"surplus-numbers"});
    EXPECT_EQ(rules_found({.only = {"tab"}, .off = {}}), Texts());
}

TEST(Rules, TheFileBesideTheDeckSwitchesRulesOff) {
    const ScratchDirectory directory;
    directory.write_file("korvat-check.toml",
                         "# of the jacket\n[off]\nsurplus-numbers = \"t/m3\"\n");
    EXPECT_EQ(rules_found({}, directory.path()), Texts{"rounded-number"});
    EXPECT_EQ(check::read_settings(directory.path()),
              (std::vector<check::SwitchedOff>{{"surplus-numbers", "t/m3"}}));
}

std::string refusal(const std::string& settings) {
    const ScratchDirectory directory;
    directory.write_file("korvat-check.toml", settings);
    try {
        static_cast<void>(check::read_settings(directory.path()));
    } catch (const check::CannotRead& error) {
        const std::string text = error.what();
        return text.substr(text.find("korvat-check.toml"));
    }
    return "none";
}

TEST(Rules, SettingsThatAreWrong) {
    EXPECT_EQ(refusal("[off]\ntabs = \"meant\"\n"),
              "korvat-check.toml:2: there is no rule 'tabs'; did you mean 'tab'?");
    EXPECT_EQ(refusal("[off]\n\ntab = \"  \"\n"),
              "korvat-check.toml:3: tab needs a reason, a text in quotes");
    EXPECT_EQ(refusal("[off]\ntab = true\n"),
              "korvat-check.toml:2: tab needs a reason, a text in quotes");
    EXPECT_EQ(refusal(std::string("[\0off]\ntab = \"so\"\n", 18)),
              "korvat-check.toml:1: a control character stands here, which no text has");
    EXPECT_EQ(refusal("[off]\ntab = \"\x1B[31m\"\n"),
              "korvat-check.toml:2: a control character stands here, which no text has");
    EXPECT_EQ(refusal("tab = \"so\"\n"),
              "korvat-check.toml:1: only a table [off] is known, not tab");
    EXPECT_EQ(refusal("[of]\n"), "korvat-check.toml:1: only a table [off] is known, not of");
    const std::string neither = "neither a table [off] nor a rule with its reason";
    const std::string unquoted = "tab needs a reason, a text in quotes";
    for (const std::string line : {"[off", "[****", "[\n", "off]", "tab", "= \"so\"", "\xFF\xFE",
                                   "å = \"so\"", "\"tab\" = \"so\"", "a.b = \"so\"", "[[off]]"})
        EXPECT_EQ(refusal(line), "korvat-check.toml:1: " + neither) << line;
    for (const std::string value : {"", "so", "3", "\"so", "'so", "\"so\\\"", "[", "{", "+", "ü"})
        EXPECT_EQ(refusal("[off]\ntab = " + value), "korvat-check.toml:2: " + unquoted) << value;
    for (const std::string more :
         {"\"\"\"so\"\"\"", "'''so'''", "\"so\" ü", "\"so\" tab", "'ä \\' ü"})
        EXPECT_EQ(refusal("[off]\ntab = " + more),
                  "korvat-check.toml:2: something stands behind the end of this line")
            << more;
    EXPECT_EQ(refusal("# größer\n[ off ] # ü\n\ttab = \"so größer \\\" ü\"\t# ü\r\n"), "none");
    EXPECT_EQ(refusal("\xEF\xBB\xBF[off]\ntab = 'ä \\'\nutf-16 = \"ö # no comment\"\n"), "none");
    EXPECT_EQ(refusal("[off]\ntab = \"so\"\ntab = \"so\"\n").substr(0, 20), "korvat-check.toml:3:");
    EXPECT_EQ(refusal("[off]\ntab = \"\\q\"\n").substr(0, 20), "korvat-check.toml:2:");
    EXPECT_EQ(refusal("[off]\ntab = \"\xFF\"\n").substr(0, 20), "korvat-check.toml:2:");
    EXPECT_EQ(refusal(""), "none");
}

} // namespace
} // namespace korvat::test
