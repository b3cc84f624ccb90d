#include "platform/terminal.hpp"

#include <sys/ioctl.h>
#include <unistd.h>

namespace korvat::platform {

std::optional<int> columns_of_terminal() {
    if (isatty(STDERR_FILENO) == 0) return std::nullopt;
    constexpr int usual = 80;
    winsize size{};
    const bool is_known = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return is_known ? size.ws_col : usual;
}

} // namespace korvat::platform
