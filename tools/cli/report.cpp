// The command report: one HTML file that shows a whole group.
#include "check/checker.hpp"
#include "check/text.hpp"
#include "cli/case.hpp"
#include "cli/commands.hpp"
#include "platform/clock.hpp"
#include "platform/open_file.hpp"
#include "platform/paths.hpp"
#include "report/page.hpp"
#include "report/write_file.hpp"

#include <array>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>

namespace korvat::cli {
namespace {

namespace fs = std::filesystem;

struct Wishes {
    std::string deck;
    std::string file; // empty: named after the case, in the current directory
    std::string other;
    bool opens = false;
    bool is_flat = false;
};

// What ends the command without a report.
class Refusal : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

std::string today() {
    const platform::LocalTime now = platform::local_time_now();
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", now.year, now.month + 1, now.day);
    return text.data();
}

// The group of another case; a line of its results is told.
group::Group other_group(const std::string& name) {
    Results results = read_results(name);
    if (results.is_load_file) throw Refusal(name + ": a LOAD.09 has no piles to compare with");
    tell("report", results.note);
    return std::move(results.group);
}

// "jacket.html" for a case in a directory of that name.
std::string default_name(const check::DeckFile& deck) {
    if (deck.beside.empty()) return "report.html"; // standard input
    std::string name = platform::name_of(platform::path_of(deck.name).stem());
    if (check::lower_case(deck.name) == "korvat.inp") {
        std::error_code unknown;
        name = platform::name_of(fs::canonical(deck.beside, unknown).filename());
    }
    return (name.empty() ? "report" : name) + ".html";
}

// The file of the report; empty for standard output. Nothing is written beside a deck unless the user says
// so.
fs::path place_of(const Wishes& wishes, const check::DeckFile& deck) {
    if (wishes.file == "-") return {};
    if (!wishes.file.empty()) return platform::path_of(wishes.file);
    std::error_code unknown;
    if (!deck.beside.empty() && fs::equivalent(deck.beside, ".", unknown)) {
        throw Refusal(
            "the current directory is that of the case, where nothing is written unasked; "
            "name a file with -o");
    }
    return platform::path_of(default_name(deck));
}

report::ReportData data_of(const Wishes& wishes, const check::DeckFile& deck) {
    report::ReportData data = report::report_data(check::check_run(deck, {}), today());
    if (!wishes.other.empty()) report::compare(data, wishes.other, other_group(wishes.other));
    return data;
}

void put(const fs::path& file, const std::string& page) {
    if (!file.empty()) {
        report::write_file(file, page);
        std::cout << platform::name_of(file) << '\n';
        return;
    }
    std::cout << page << std::flush;
    if (!std::cout) throw Refusal("standard output cannot be written");
}

int write_report(const Wishes& wishes) {
    if (wishes.deck == "-" && wishes.other == "-") throw Refusal("standard input is one deck only");
    if (wishes.file == "-" && wishes.opens) throw Refusal("--open needs a file");
    const check::DeckFile deck = check::read_deck(wishes.deck);
    const fs::path file = place_of(wishes, deck);
    const report::ReportData data = data_of(wishes, deck);
    put(file, report::page(data, {.has_view = !wishes.is_flat}));
    if (wishes.opens && !platform::open_file(platform::name_of(fs::absolute(file)))) {
        throw Refusal(platform::name_of(file) + " is written, but the system cannot open it");
    }
    const bool is_at_fault = !data.is_complete || count(data.deck, check::Level::error) > 0;
    return is_at_fault ? exit_code::found : exit_code::fine;
}

int report_case(const Wishes& wishes) {
    const auto refused = [](const std::string& why) {
        tell("report", why);
        return exit_code::wrong_use;
    };
    try {
        return write_report(wishes);
    } catch (const NoResults& reason) {
        tell("report", reason);
        return exit_code::wrong_use;
    } catch (const std::bad_alloc&) {
        return refused("out of memory");
    } catch (const fs::filesystem_error& error) {
        return refused(platform::name_of(error.path1()) + ": " + error.code().message());
    } catch (const std::system_error& error) {
        return refused(error.what());
    } catch (const std::exception& error) {
        return refused(error.what());
    }
}

} // namespace

void add_report(CLI::App& program, int& code) {
    CLI::App* const command =
        program.add_subcommand("report", "Write one HTML file that shows a whole group");
    const auto wishes = std::make_shared<Wishes>();
    command
        ->add_option(
            "-o,--output", wishes->file,
            "the file; - is standard output; without it NAME.html in the current directory")
        ->type_name("FILE");
    command->add_flag("--open", wishes->opens, "show it with the system's browser");
    command->add_option("--compare", wishes->other, "another case or PILE.07, to lay this one over")
        ->type_name("OTHER");
    command->add_flag("--no-3d", wishes->is_flat,
                      "without the view in three dimensions: a small file");
    command
        ->add_option("CASE", wishes->deck,
                     "a directory with a KORVAT.INP, a deck of any name, or - for standard input")
        ->required()
        ->type_name("");
    command->footer(
        "The deck is checked and run aside; a deck that fails gets a report too. The file "
        "replaces an older one. The exit code is 0 when the deck has no error, 1 when it "
        "has one, 2 when there is no report. docs/report.md shows what is in it.");
    command->callback([&code, wishes] { code = report_case(*wishes); });
}

} // namespace korvat::cli
