#include "platform/paths.hpp"

namespace korvat::platform {

// From text of plain characters the library would take each byte for a character of its own on Windows.
std::filesystem::path path_of(std::string_view name) {
    return {std::u8string(name.begin(), name.end())};
}

std::string name_of(const std::filesystem::path& path) {
    const std::u8string name = path.generic_u8string();
    return {name.begin(), name.end()};
}

} // namespace korvat::platform
