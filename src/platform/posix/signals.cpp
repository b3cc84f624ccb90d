#include "platform/posix/signals.hpp"

#include <csignal>

namespace korvat::platform {

void take_write_signals_as_errors() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

} // namespace korvat::platform
