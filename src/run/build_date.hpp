// The date on which the program was built.
#pragma once

#include <string_view>

namespace korvat {

// Like "Feb  4 2020": month, blank, day in two places, blank, year. SOURCE_DATE_EPOCH in the
// compiler's environment sets it.
[[nodiscard]] std::string_view build_date();

} // namespace korvat
