// Program entry.
#include "platform/posix/signals.hpp"
#include "platform/posix/standard_streams.hpp"
#include "program/tell.hpp"

int main(int argc, char** argv) {
    korvat::platform::occupy_standard_streams();
    korvat::platform::take_write_signals_as_errors();
    return korvat::tell(korvat::run_program(argc, argv));
}
