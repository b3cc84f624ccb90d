// The command diff: how the results of two runs differ.
#include "cli/case.hpp"
#include "cli/commands.hpp"
#include "cli/difference_text.hpp"

#include <cmath>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

namespace korvat::cli {
namespace {

struct Wishes {
    std::string a;
    std::string b;
    group::Tolerance tolerance;
    bool is_json = false;
};

// What ends the command: it cannot be compared.
class Refusal : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

Results read_side(const std::string& name) {
    Results side = read_results(name);
    tell("diff", side.note);
    return side;
}

int diff(const Wishes& wishes) {
    try {
        if (wishes.a == "-" && wishes.b == "-")
            throw Refusal("standard input can be one of the two only");
        const Results a = read_side(wishes.a);
        const Results b = read_side(wishes.b);
        if (a.is_load_file != b.is_load_file) {
            throw Refusal("a LOAD.09 cannot be compared with a PILE.07: " + wishes.a + ", " +
                          wishes.b);
        }
        const auto found = group::differences(a.group, b.group, wishes.tolerance);
        std::cout << (wishes.is_json ? differences_json(found, wishes.tolerance)
                                     : differences_text(found));
        return found.empty() ? exit_code::fine : exit_code::found;
    } catch (const Refusal& refusal) {
        tell("diff", refusal.what());
        return exit_code::wrong_use;
    } catch (const NoResults& reason) {
        tell("diff", reason);
        return reason.cause() == NoResults::Cause::deck_has_errors ? exit_code::found
                                                                   : exit_code::wrong_use;
    }
}

CLI::Validator is_tolerance() {
    return {[](const std::string& text) {
                double value = 0.0;
                const bool is_number = CLI::detail::lexical_cast(text, value);
                return is_number && std::isfinite(value) && value >= 0.0
                           ? std::string()
                           : "not a number of 0 or more: " + text;
            },
            ""};
}

} // namespace

void add_diff(CLI::App& program, int& code) {
    CLI::App* const command =
        program.add_subcommand("diff", "Show how the results of two runs differ");
    const auto wishes = std::make_shared<Wishes>();
    command
        ->add_option("--abs", wishes->tolerance.absolute,
                     "numbers differ when they do by more than X + rel max(|a|, |b|)")
        ->type_name("X")
        ->check(is_tolerance());
    command->add_option("--rel", wishes->tolerance.relative, "the relative part of it")
        ->type_name("X")
        ->check(is_tolerance());
    command->add_flag("--json", wishes->is_json, "as JSON on one line");
    command
        ->add_option("A", wishes->a,
                     "a directory with a deck or with the files of a run, a deck of any name, a "
                     "PILE.07, a LOAD.09, or - for standard input")
        ->required()
        ->type_name("");
    command->add_option("B", wishes->b, "the same of the other run")->required()->type_name("");
    command->footer(
        "A deck without results, or newer than they are, is run in a private directory; "
        "nothing is written into the case. "
        "The exit code is 0 when nothing differs, 1 when something does or a deck has "
        "an error, 2 when A and B cannot be compared: one cannot be read, or is damaged.");
    command->callback([&code, wishes] { code = diff(*wishes); });
}

} // namespace korvat::cli
