// Time stamps of a run.
#pragma once

#include "model/store/store.hpp"
#include "model/store/time_fields.hpp"

#include <string_view>

namespace korvat {

// Name of a zero-based month in capitals, like "JAN".
[[nodiscard]] std::string_view month_name(int month);

// Reads the clock into ITIME and writes the stamp line: MODE 1 "started", MODE 2 "terminated", any
// other none. It goes to unit1 (0: the message log; below 0: nowhere) and to unit2 when that is at
// least 1. `seconds` receives 0 at every time of day.
void time_stamp(Store& cmn, int MODE, int unit1, int unit2, int& seconds, TimeFields& ITIME);

// The stamp of a given time; time_stamp without the clock.
void write_time_stamp(Store& cmn, int MODE, int unit1, int unit2, int& seconds,
                      const TimeFields& ITIME);

} // namespace korvat
