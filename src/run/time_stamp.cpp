#include "run/time_stamp.hpp"

#include "platform/clock.hpp"

#include <array>

namespace korvat {
namespace {

constexpr int default_unit = 6; // the message log

void write_line(Store& cmn, int unit, std::string_view format, const TimeFields& ITIME) {
    const int day = ITIME(3);
    const int hour = ITIME(4);
    const int minute = ITIME(5);
    const int second = ITIME(6);
    // Tens and units apart, so that a leading zero is kept.
    cmn.runtime.write(unit, format, day / 10, day % 10, fortran::characters(month_name(ITIME(2))),
                      ITIME(1), hour / 10, hour % 10, minute / 10, minute % 10, second / 10,
                      second % 10);
}

} // namespace

std::string_view month_name(int month) {
    constexpr std::array<std::string_view, 12> names = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                        "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    return names.at(static_cast<std::size_t>(month));
}

void write_time_stamp(Store& cmn, int MODE, int unit1, int unit2, int& seconds,
                      const TimeFields& ITIME) {
    const int hour = ITIME(4);
    const int minute = ITIME(5);
    const int second = ITIME(6);
    // Zero at every time of day, and kept so.
    seconds = (hour * 60 + minute) * 60 - ((hour * 60 + minute) * 60 + second) + second;
    if (MODE != 1 && MODE != 2) return;
    const std::string_view format =
        MODE == 1
            ? "(/,' THIS RUN WAS STARTED :  ',2i1,'-',a3,'-',i4,'  AT  ',2i1,':',2i1,':',2i1,' HOURS')"
            : "(/,' THIS RUN WAS TERMINATED :  ',2i1,'-',a3,'-',i4,'  AT',2x,2i1,':',2i1,':',2i1,' HOURS')";
    if (unit1 >= 0) write_line(cmn, unit1 == 0 ? default_unit : unit1, format, ITIME);
    if (unit2 >= 1) write_line(cmn, unit2, format, ITIME);
}

void time_stamp(Store& cmn, int MODE, int unit1, int unit2, int& seconds, TimeFields& ITIME) {
    const platform::LocalTime now = platform::local_time_now();
    ITIME(1) = now.year;
    ITIME(2) = now.month;
    ITIME(3) = now.day;
    ITIME(4) = now.hour;
    ITIME(5) = now.minute;
    ITIME(6) = now.second;
    write_time_stamp(cmn, MODE, unit1, unit2, seconds, ITIME);
}

} // namespace korvat
