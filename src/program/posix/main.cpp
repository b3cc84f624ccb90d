// Program entry.
#include "run/entry.hpp"

int main(int argc, char** argv) {
    return korvat::run_program(argc, argv);
}
