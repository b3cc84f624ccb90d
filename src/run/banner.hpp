// The program's name in block letters.
#pragma once

#include <array>
#include <string_view>

namespace korvat {

// Ten lines, each of two halves of 50 characters placed side by side.
using BannerLine = std::array<std::string_view, 2>;

[[nodiscard]] const std::array<BannerLine, 10>& banner();

} // namespace korvat
