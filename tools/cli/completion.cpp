// The command completion: prints what a shell needs to complete commands and options.
#include "cli/command_table.hpp"
#include "cli/commands.hpp"
#include "cli/completion_script.hpp"

#include <iostream>
#include <memory>
#include <string>

namespace korvat::cli {

void add_completion(CLI::App& program, int& code) {
    CLI::App* const completion =
        program.add_subcommand("completion", "Print a script that completes commands in a shell");
    const auto shell = std::make_shared<std::string>();
    completion->add_option("SHELL", *shell, "bash, zsh or fish")
        ->required()
        ->check(CLI::IsMember({"bash", "zsh", "fish"}));
    completion->footer(
        "bash: korvat-tools completion bash > ~/.local/share/bash-completion/completions/korvat-tools");
    completion->callback([&program, &code, shell] {
        const auto table = command_table(program);
        std::cout << (*shell == "bash"  ? bash_completion(table)
                      : *shell == "zsh" ? zsh_completion(table)
                                        : fish_completion(table));
        code = exit_code::fine;
    });
}

} // namespace korvat::cli
