#include "platform/files.hpp"

#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace korvat::platform {

bool remove_file(const std::string& name) {
    return std::remove(name.c_str()) == 0;
}

int rename_file(const std::string& from, const std::string& to) {
    return std::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

bool file_exists(const std::string& name) {
    std::error_code ignored;
    return std::filesystem::exists(name, ignored);
}

// By the system's own functions: the standard library's iterator ends the process where memory is
// short.
std::vector<std::string> directory_entries(const std::string& path) {
    struct CloseDirectory {
        void operator()(DIR* directory) const { closedir(directory); }
    };
    const std::unique_ptr<DIR, CloseDirectory> directory(opendir(path.c_str()));
    if (!directory) throw std::runtime_error("Error While Accessing :" + path);
    std::vector<std::string> names;
    for (;;) {
        errno = 0; // a fault sets it, the end of the directory does not
        const dirent* const entry = readdir(directory.get());
        if (entry == nullptr && errno != 0) {
            throw std::runtime_error("Error While Accessing :" + path);
        }
        if (entry == nullptr) return names;
        const std::string_view name(entry->d_name);
        if (name != "." && name != "..") names.emplace_back(name);
    }
}

} // namespace korvat::platform
