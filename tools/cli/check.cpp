// The command check: errors and doubts of decks.
#include "cli/commands.hpp"

#include "check/checker.hpp"
#include "check/format.hpp"
#include "check/rules.hpp"
#include "platform/console.hpp"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace korvat::cli {
namespace {

struct Options {
    std::vector<std::string> cases;
    std::string format = "text";
    bool is_strict = false;
    bool lists_rules = false;
    check::Selection selection;
};

// Tells of each name that is no rule's, with the nearest one.
bool names_rules(const std::vector<std::string>& names) {
    bool all_known = true;
    for (const std::string& name : names) {
        if (check::rule_named(name) != nullptr) continue;
        std::cerr << "korvat-tools check: " << check::unknown_rule(name) << '\n';
        all_known = false;
    }
    return all_known;
}

// https://no-color.org: any value but an empty one.
bool is_colour_unwanted() {
    const char* const value = std::getenv("NO_COLOR");
    return value != nullptr && *value != '\0';
}

std::string formatted(const Options& options, const std::vector<check::CheckedDeck>& decks) {
    if (options.format == "json") return check::as_json(decks);
    if (options.format == "sarif") return check::as_sarif(decks);
    const bool is_plain = is_colour_unwanted() || !platform::is_output_on_terminal();
    return check::as_text(decks, is_plain ? check::Colour::none : check::Colour::terminal);
}

bool is_at_fault(const check::CheckedDeck& deck, bool is_strict) {
    const long warnings = is_strict ? count(deck, check::Level::warning) : 0;
    return !deck.made || count(deck, check::Level::error) + warnings > 0;
}

int list_rules() {
    for (const check::Rule* const rule : check::all_rules()) {
        std::cout << rule->name << " (" << check::name_of(rule->level) << "): " << rule->summary
                  << '\n';
    }
    return exit_code::fine;
}

int run_check(const Options& options) {
    if (options.lists_rules) return list_rules();
    if (options.cases.empty()) throw CLI::RequiredError("CASE");
    const bool are_known =
        names_rules(options.selection.only) && names_rules(options.selection.off);
    if (!are_known) return exit_code::wrong_use;
    std::vector<check::CheckedDeck> decks;
    bool all_read = true;
    for (const std::string& name : options.cases) {
        try {
            decks.push_back(check::check_deck(check::read_deck(name), options.selection));
        } catch (const std::bad_alloc&) {
            std::cerr << "korvat-tools check: " << name << ": out of memory\n";
            all_read = false;
        } catch (const std::exception& error) {
            std::cerr << "korvat-tools check: " << error.what() << '\n';
            all_read = false;
        }
    }
    std::cout << formatted(options, decks) << std::flush;
    if (!all_read || !std::cout) return exit_code::wrong_use;
    const auto is_faulty = [&](const auto& deck) { return is_at_fault(deck, options.is_strict); };
    return std::ranges::any_of(decks, is_faulty) ? exit_code::found : exit_code::fine;
}

} // namespace

void add_check(CLI::App& program, int& code) {
    CLI::App* const check =
        program.add_subcommand("check", "Look for every error and every doubt in decks");
    const auto options = std::make_shared<Options>();
    check
        ->add_option("CASE", options->cases,
                     "a directory with a KORVAT.INP, a deck of any name, or - for standard input")
        ->type_name("");
    check->add_option("--format", options->format, "how the findings are told; text without it")
        ->check(CLI::IsMember({"text", "json", "sarif"}))
        ->type_name("FORMAT");
    check->add_option("--only", options->selection.only, "the rules to look for, with commas")
        ->delimiter(',')
        ->allow_extra_args(false) // what follows is a case
        ->type_name("RULE");
    check->add_option("--off", options->selection.off, "rules not to look for, with commas")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->type_name("RULE");
    check->add_flag("--rules", options->lists_rules, "list the rules with their levels");
    check->add_flag("--strict", options->is_strict, "warnings count as errors for the exit code");
    check->footer(
        "A file korvat-check.toml beside a deck may switch rules off, with a reason: a table "
        "[off] with lines RULE = \"reason\". docs/checks.md explains each rule.");
    check->callback([&code, options] { code = run_check(*options); });
}

} // namespace korvat::cli
