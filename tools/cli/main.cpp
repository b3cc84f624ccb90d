// Program entry of korvat-tools.
#include "cli/commands.hpp"
#include "cli/program.hpp"

int main(int argc, char** argv) {
    int code = korvat::cli::exit_code::fine;
    const auto program = korvat::cli::make_program(code);
    try {
        program->parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const bool is_asked_for = error.get_exit_code() == 0; // help and version
        program->exit(error);
        return is_asked_for ? korvat::cli::exit_code::fine : korvat::cli::exit_code::wrong_use;
    }
    return code;
}
