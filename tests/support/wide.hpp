// UTF-8 in the wide characters of the system (Windows).
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace korvat::test {

inline std::wstring wide(std::string_view text) {
    return std::filesystem::path(std::u8string(text.begin(), text.end())).wstring();
}

} // namespace korvat::test
