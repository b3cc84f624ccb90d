// Bytes as base64, the form in which JSON and XML take them.
#pragma once

#include <string>
#include <string_view>

namespace korvat::exporting {

[[nodiscard]] std::string base64(std::string_view bytes);

} // namespace korvat::exporting
