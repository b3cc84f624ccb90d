#include "cli/program.hpp"

#include "cli/commands.hpp"
#include "run/program_version.hpp"

#include <string>

namespace korvat::cli {

std::unique_ptr<CLI::App> make_program(int& code) {
    auto program = std::make_unique<CLI::App>(
        "Looks into decks of KORVAT before a run, and into its files after it.", "korvat-tools");
    program->allow_windows_style_options(
        false); // what begins with a slash is a path on every system
    program->set_version_flag("--version", "korvat-tools " + std::string(program_version()),
                              "show the version and exit");
    program->set_help_flag("-h,--help", "show this help and exit");
    program->require_subcommand(1);
    add_batch(*program, code);
    add_check(*program, code);
    add_completion(*program, code);
    add_diff(*program, code);
    add_dump(*program, code);
    add_export(*program, code);
    add_help(*program, code);
    add_merge(*program, code);
    add_report(*program, code);
    add_sweep(*program, code);
    return program;
}

} // namespace korvat::cli
