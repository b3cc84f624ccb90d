#include "platform/programs.hpp"

#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace korvat::platform {

std::string own_program() {
    std::error_code error;
    const auto file = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : file.string();
}

bool is_program(const std::string& name) {
    std::error_code error;
    return std::filesystem::is_regular_file(name, error) && access(name.c_str(), X_OK) == 0;
}

std::string file_of_program(const std::string& name) {
    return name;
}

} // namespace korvat::platform
