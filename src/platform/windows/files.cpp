// Files and directories by name; names are UTF-8.
#include "platform/files.hpp"

#include "platform/windows/text.hpp"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace korvat::platform {

bool remove_file(const std::string& name) {
    return _wremove(wide_text(name).c_str()) == 0;
}

int rename_file(const std::string& from, const std::string& to) {
    return _wrename(wide_text(from).c_str(), wide_text(to).c_str()) == 0 ? 0 : errno;
}

bool file_exists(const std::string& name) {
    std::error_code ignored;
    return std::filesystem::exists(wide_text(name), ignored);
}

std::vector<std::string> directory_entries(const std::string& path) {
    std::vector<std::string> names;
    try {
        for (const auto& entry : std::filesystem::directory_iterator(wide_text(path))) {
            names.push_back(utf8_text(entry.path().filename().native()));
        }
    } catch (const std::filesystem::filesystem_error&) {
        throw std::runtime_error("Error While Accessing :" + path);
    }
    return names;
}

} // namespace korvat::platform
