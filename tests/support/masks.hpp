// Masks for what differs between two runs of the same deck: time stamps, release date, identification.
#pragma once

#include <string>
#include <string_view>

namespace korvat::test {

// A line is masked only when it has exactly the form that the program must give it; any other line
// stays as it is, so that a comparison with the expected text fails.
std::string mask_log(std::string_view text);
std::string mask_listing(std::string_view text);

} // namespace korvat::test
