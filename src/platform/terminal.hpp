// The terminal behind standard error, on which a program shows how far it is.
#pragma once

#include <optional>

namespace korvat::platform {

// Its columns; none where standard error is no terminal.
[[nodiscard]] std::optional<int> columns_of_terminal();

} // namespace korvat::platform
