// The command diff: how the results of two runs differ.
#include "cli/commands.hpp"
#include "cli/difference_text.hpp"
#include "cli/result_input.hpp"
#include "platform/paths.hpp"

#include <cmath>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>
#include <utility>

namespace korvat::cli {
namespace {

namespace fs = std::filesystem;

struct Wishes {
    std::string a;
    std::string b;
    group::Tolerance tolerance;
    bool is_json = false;
};

// One of the two sides: what was read, and whether that is load vectors alone.
struct Side {
    group::Group group;
    bool is_load_file = false;
};

// What ends the command: it cannot be compared.
class Refusal : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

void refuse_damage(const std::string& name, const std::optional<group::Damage>& damage) {
    if (damage) throw Refusal(damage_text(name, *damage));
}

Side read_directory(const std::string& name) {
    const fs::path directory = platform::path_of(name);
    if (!fs::exists(directory / "PILE.07")) {
        throw Refusal(name + ": there is no PILE.07; run korvat first");
    }
    group::ResultReading reading = group::read_group(directory);
    refuse_damage(platform::name_of(directory / "PILE.07"), reading.pile_damage);
    refuse_damage(platform::name_of(directory / "LOAD.09"), reading.load_damage);
    return {std::move(reading.group), false};
}

Side read_file(const std::string& name) {
    const std::vector<char> bytes = input_bytes(name);
    const auto kind = group::file_kind(bytes);
    if (!kind) refuse_damage(name, unknown_kind(group::read_records(bytes)));
    if (kind == group::FileKind::load) {
        group::LoadReading reading = group::read_load(bytes);
        refuse_damage(name, reading.damage);
        Side side{{}, true};
        side.group.load_vectors = std::move(reading.vectors);
        return side;
    }
    group::GroupReading reading = group::read_pile(bytes);
    refuse_damage(name, reading.damage);
    return {std::move(reading.group), false};
}

Side read_side(const std::string& name) {
    std::error_code unknown; // what cannot be asked, reading shows
    try {
        return name != "-" && fs::is_directory(platform::path_of(name), unknown)
                   ? read_directory(name)
                   : read_file(name);
    } catch (const std::system_error& error) {
        throw Refusal(unreadable_text(name, error));
    }
}

int diff(const Wishes& wishes) {
    try {
        if (wishes.a == "-" && wishes.b == "-") throw Refusal("standard input is one file only");
        const Side a = read_side(wishes.a);
        const Side b = read_side(wishes.b);
        if (a.is_load_file != b.is_load_file) {
            throw Refusal("a LOAD.09 cannot be compared with a PILE.07: " + wishes.a + ", " +
                          wishes.b);
        }
        const auto found = group::differences(a.group, b.group, wishes.tolerance);
        std::cout << (wishes.is_json ? differences_json(found, wishes.tolerance)
                                     : differences_text(found));
        return found.empty() ? exit_code::fine : exit_code::found;
    } catch (const Refusal& refusal) {
        std::cerr << "korvat-tools diff: " << refusal.what() << '\n';
        return exit_code::wrong_use;
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
                     "a PILE.07, a LOAD.09 or a directory with both; - is standard input")
        ->required()
        ->type_name("");
    command->add_option("B", wishes->b, "the same of the other run")->required()->type_name("");
    command->footer("The exit code is 0 when nothing differs, 1 when something does, 2 when A and "
                    "B cannot be compared: one cannot be read, or is damaged.");
    command->callback([&code, wishes] { code = diff(*wishes); });
}

} // namespace korvat::cli
