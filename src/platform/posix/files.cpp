// Files and directories by name.
#include "platform/files.hpp"

#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace korvat::platform {

bool remove_file(const std::string& name) {
    return std::remove(name.c_str()) == 0;
}

bool rename_file(const std::string& from, const std::string& to) {
    return std::rename(from.c_str(), to.c_str()) == 0;
}

bool file_exists(const std::string& name) {
    std::error_code ignored;
    return std::filesystem::exists(name, ignored);
}

std::vector<std::string> directory_entries(const std::string& path) {
    std::vector<std::string> names;
    try {
        for (const auto& entry : std::filesystem::directory_iterator(path)) {
            names.push_back(entry.path().filename().string());
        }
    } catch (const std::filesystem::filesystem_error&) {
        throw std::runtime_error("Error While Accessing :" + path);
    }
    return names;
}

} // namespace korvat::platform
