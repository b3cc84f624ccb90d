#include "platform/terminal.hpp"

#include <windows.h>

namespace korvat::platform {

std::optional<int> columns_of_terminal() {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &info)) return std::nullopt;
    return info.srWindow.Right - info.srWindow.Left + 1;
}

} // namespace korvat::platform
