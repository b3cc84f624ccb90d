// The command help: the help of the program or of a command.
#include "cli/commands.hpp"

#include <iostream>
#include <memory>
#include <string>

namespace korvat::cli {

void add_help(CLI::App& program, int& code) {
    CLI::App* const help = program.add_subcommand("help", "Show the help of a command");
    const auto name = std::make_shared<std::string>();
    help->add_option("COMMAND", *name, "the command; without it, the help of the program");
    help->callback([&program, &code, name] {
        const CLI::App* const command = name->empty() ? &program : program.get_subcommand(*name);
        std::cout << command->help();
        code = exit_code::fine;
    });
}

} // namespace korvat::cli
