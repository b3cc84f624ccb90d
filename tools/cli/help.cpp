// The command help: the help of the program or of a command, on the terminal or as a manual page.
#include "cli/command_table.hpp"
#include "cli/commands.hpp"
#include "cli/man_page.hpp"
#include "cli/program.hpp"
#include "run/program_version.hpp"

#include <algorithm>
#include <iostream>
#include <memory>
#include <string>

namespace korvat::cli {
namespace {

void show_manual_page(const CLI::App& program, const CLI::App& command) {
    const auto table = command_table(program);
    const auto entry = std::ranges::find(table, command.get_name(), &CommandEntry::name);
    std::cout << man_page(table, *entry, program_version());
}

// Of a program that has parsed nothing: this one shows the help of the command that was chosen.
std::string help_of_program() {
    int unused = 0;
    return make_program(unused)->help();
}

} // namespace

void add_help(CLI::App& program, int& code) {
    CLI::App* const help = program.add_subcommand("help", "Show the help of a command");
    const auto name = std::make_shared<std::string>();
    const auto is_manual = std::make_shared<bool>(false);
    help->add_option("COMMAND", *name, "the command; without it, the help of the program")
        ->type_name("");
    help->add_flag("--man", *is_manual, "as a manual page, in roff");
    help->callback([&program, &code, name, is_manual] {
        const bool is_known = std::ranges::count(command_names(program), *name) != 0;
        if (!name->empty() && !is_known) {
            std::cerr << "korvat-tools help: " << unknown_command(program, *name) << "\n";
            code = exit_code::wrong_use;
            return;
        }
        const CLI::App* const command = is_known ? program.get_subcommand(*name) : &program;
        if (*is_manual) {
            show_manual_page(program, *command);
        } else {
            std::cout << (is_known ? command->help(program.get_name()) : help_of_program());
        }
        code = exit_code::fine;
    });
}

} // namespace korvat::cli
