#include "platform/programs.hpp"

#include "platform/paths.hpp"
#include "platform/windows/text.hpp"

#include <filesystem>
#include <system_error>
#include <windows.h>

namespace korvat::platform {

std::string own_program() {
    std::wstring name(32768, L'\0'); // no path is longer
    const DWORD size = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    name.resize(size);
    return utf8_text(name);
}

bool is_program(const std::string& name) {
    std::error_code error;
    DWORD kind = 0;
    return std::filesystem::is_regular_file(path_of(name), error) &&
           GetBinaryTypeW(wide_text(name).c_str(), &kind) != 0;
}

std::string file_of_program(const std::string& name) {
    return path_of(name).has_extension() ? name : name + ".exe";
}

} // namespace korvat::platform
