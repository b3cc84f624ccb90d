#include "platform/open_file.hpp"

#include "platform/windows/text.hpp"

#include <cstdint>
#include <windows.h>

#include <shellapi.h>

namespace korvat::platform {

bool open_file(const std::string& path) {
    constexpr std::intptr_t last_error = 32; // of what the system returns
    const HINSTANCE result =
        ShellExecuteW(nullptr, L"open", wide_text(path).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<std::intptr_t>(result) > last_error;
}

} // namespace korvat::platform
