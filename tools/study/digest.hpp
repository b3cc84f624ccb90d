// A short text that tells files apart by their content.
#pragma once

#include <string>
#include <string_view>

namespace korvat::study {

// 32 hexadecimal digits: XXH3 with 128 bits, as `xxh128sum` prints it. It tells whether content has changed;
// it is no protection against somebody who wants two decks to look alike.
[[nodiscard]] std::string digest(std::string_view bytes);

} // namespace korvat::study
