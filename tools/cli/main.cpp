// Program entry of korvat-tools.
#include "cli/command_line.hpp"

int main(int argc, char** argv) {
    return korvat::cli::run_command_line(argc, argv);
}
