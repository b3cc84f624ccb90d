// A short text that tells files apart by their content.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korvat::study {

// 32 hexadecimal digits: XXH3 with 128 bits, as `xxh128sum` prints it. It tells whether content has changed;
// it is no protection against somebody who wants two decks to look alike.
[[nodiscard]] std::string digest(std::string_view bytes);

// 64 bits, to find names by.
[[nodiscard]] std::uint64_t short_digest(std::string_view bytes);

} // namespace korvat::study
