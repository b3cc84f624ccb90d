// Local time of day.
#pragma once

namespace korvat::platform {

struct LocalTime {
    int year;   // four digits
    int month;  // 0..11, January is 0
    int day;    // 1..31
    int hour;   // 0..23
    int minute; // 0..59
    int second; // 0..60
};

[[nodiscard]] LocalTime local_time_now();

} // namespace korvat::platform
