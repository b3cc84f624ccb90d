// The fields of a time stamp.
#pragma once

#include "model/store/table.hpp"

namespace korvat {

// Year, month 0..11 (the index of the month name), day, hour, minute, second; local time.
using TimeFields = Table1<int, 6>;

} // namespace korvat
