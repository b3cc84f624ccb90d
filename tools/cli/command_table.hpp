// What the command line understands, taken from the parser itself: the one source of help, manual pages
// and shell completion.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace korvat::cli {

struct OptionEntry {
    std::vector<std::string>
        names;            // with their hyphens, the short ones first; none for an argument
    std::string argument; // what is written behind it, such as FILE; empty for a switch
    std::string description;
    std::vector<std::string> choices; // of the argument, where there are only some
    bool is_repeated = false;
};

struct CommandEntry {
    std::string name;        // "korvat-tools" or that of the command
    std::string description; // one sentence or more
    std::string footer;      // paragraphs behind the options
    std::vector<OptionEntry> options;
    std::vector<OptionEntry> arguments; // in their order
};

// The program itself, then its commands in the order of their names.
[[nodiscard]] std::vector<CommandEntry> command_table(const CLI::App& program);

// Every name that starts an option of a command, or the names of all commands.
[[nodiscard]] std::vector<std::string> option_names(const CLI::App& command);
[[nodiscard]] std::vector<std::string> command_names(const CLI::App& program);

// What to say of a command, or of an option of a command, that does not exist.
[[nodiscard]] std::string unknown_command(const CLI::App& program, const std::string& written);
[[nodiscard]] std::string unknown_option(const CLI::App& command, const std::string& written);

} // namespace korvat::cli
