// Text in the system's wide characters and in the UTF-8 that the program uses.
#pragma once

#include <string>
#include <string_view>

namespace korvat::platform {

// What is no valid text becomes the replacement character.
[[nodiscard]] std::wstring wide_text(std::string_view text);
[[nodiscard]] std::string utf8_text(std::wstring_view text);

} // namespace korvat::platform
