// What the runtime itself writes and reads: the judge of the door's own editing.
#pragma once

#include "fortran/item.hpp"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace korvat::test {

// The characters that the runtime's formatted write puts into a file. Where it would write outside
// its buffers, the item appears as asterisks: under f a text of more than 63 characters, under e a
// value that is not finite.
[[nodiscard]] std::string runtime_written(std::string_view format,
                                          std::span<const fortran::Item> items);

// What the runtime reads from a field of 50 characters under "(f50.0)"; nothing where it refuses.
[[nodiscard]] std::optional<double> runtime_read(std::string_view field);

} // namespace korvat::test
