// The check sums that a listing prints, against the coordinates of the analysis file.
#pragma once

#include "pile_file.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

// Empty when the sums agree; else what differs.
std::vector<std::string> check_sum_differences(std::string_view listing, const PileFile& file);

} // namespace korvat::test
