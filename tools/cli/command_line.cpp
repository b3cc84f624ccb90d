#include "cli/command_line.hpp"

#include "cli/command_table.hpp"
#include "cli/commands.hpp"
#include "cli/program.hpp"

#include <algorithm>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace korvat::cli {
namespace {

// What is wrong with the first argument that nothing takes; empty where every one is taken.
std::string unknown_argument(const CLI::App& program) {
    const std::vector<CLI::App*> chosen = program.get_subcommands();
    const CLI::App& command = chosen.empty() ? program : *chosen.front();
    const std::vector<std::string> unknown = program.remaining(/*recurse*/ true);
    if (unknown.empty()) return {};
    const std::string& argument = unknown.front();
    if (argument.starts_with('-')) {
        const std::string name = argument.substr(0, argument.find('='));
        return unknown_option(command, name);
    }
    if (!chosen.empty()) return "'" + argument + "' is one argument too many";
    return unknown_command(program, argument);
}

std::string what_is_wrong(const CLI::App& program, const CLI::ParseError& error) {
    std::string unknown = unknown_argument(program);
    if (!unknown.empty()) return unknown;
    return program.get_subcommands().empty() ? "a command is missing" : error.what();
}

int tell_wrong_use(const CLI::App& program, const std::string& what) {
    const std::vector<CLI::App*> chosen = program.get_subcommands();
    const std::string command = chosen.empty() ? "" : " " + chosen.front()->get_name();
    std::cerr << "korvat-tools" << command << ": " << what << "\n"
              << "'korvat-tools" << command << " --help' shows what there is.\n";
    return exit_code::wrong_use;
}

} // namespace

int run_command_line(int argc, const char* const* argv) {
    int code = exit_code::fine;
    const auto program = make_program(code);
    try {
        program->parse(argc, argv);
    } catch (const CLI::Success& wish) { // help or version
        return program->exit(wish);
    } catch (const CLI::ParseError& error) {
        return tell_wrong_use(*program, what_is_wrong(*program, error));
    } catch (const std::exception& error) {
        std::cerr << "korvat-tools: " << error.what() << "\n";
        return exit_code::wrong_use;
    }
    std::cout.flush();
    if (std::cout) return code;
    std::cerr << "korvat-tools: cannot write standard output\n";
    return exit_code::wrong_use;
}

} // namespace korvat::cli
