#include "platform/program_arguments.hpp"

#include "platform/windows/text.hpp"

#include <memory>
#include <windows.h>

#include <shellapi.h>

namespace korvat::platform {

std::vector<std::string> program_arguments(int argc, const char* const* argv) {
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> wide(
        CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
    if (!wide) return {argv, argv + argc};
    std::vector<std::string> arguments;
    for (int i = 0; i < count; ++i) {
        arguments.push_back(utf8_text(wide.get()[i]));
    }
    return arguments;
}

} // namespace korvat::platform
