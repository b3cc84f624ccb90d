// Time stamps: the two lines, the units they go to, the time fields.
#include "run/time_stamp.hpp"

#include "support/masks.hpp"
#include "support/model_fixture.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

constexpr int started = 1;
constexpr int terminated = 2;
constexpr int log_unit = 6;
constexpr int listing_unit = 13;

TimeFields fields(const std::array<int, 6>& values) {
    TimeFields ITIME;
    for (int i = 1; i <= 6; ++i)
        ITIME(i) = values.at(static_cast<std::size_t>(i - 1));
    return ITIME;
}

class TimeStamp : public ModelTest {
protected:
    // Writes the stamp and returns the seconds that it gives.
    int stamp(int MODE, int unit1, int unit2, const std::array<int, 6>& time) {
        int seconds = 77;
        write_time_stamp(cmn(), MODE, unit1, unit2, seconds, fields(time));
        return seconds;
    }
};

// 7 March 2024; the month counts from 0.
constexpr std::array<int, 6> morning = {2024, 2, 7, 9, 5, 3};
constexpr std::array<int, 6> new_year = {2025, 0, 1, 0, 0, 0};
constexpr std::array<int, 6> last_second = {1999, 11, 31, 23, 59, 59};

TEST_F(TimeStamp, OfTheStart) {
    stamp(started, log_unit, 0, morning);
    EXPECT_EQ(log(), "\n THIS RUN WAS STARTED :  07-MAR-2024  AT  09:05:03 HOURS\n");
    EXPECT_EQ(listing(), "");
}

TEST_F(TimeStamp, OfTheEnd) {
    stamp(terminated, log_unit, 0, morning);
    EXPECT_EQ(log(), "\n THIS RUN WAS TERMINATED :  07-MAR-2024  AT  09:05:03 HOURS\n");
}

TEST_F(TimeStamp, KeepsLeadingZerosAtMidnight) {
    stamp(started, log_unit, 0, new_year);
    EXPECT_EQ(log(), "\n THIS RUN WAS STARTED :  01-JAN-2025  AT  00:00:00 HOURS\n");
}

TEST_F(TimeStamp, OfTheLastSecondOfAYear) {
    stamp(started, log_unit, 0, last_second);
    EXPECT_EQ(log(), "\n THIS RUN WAS STARTED :  31-DEC-1999  AT  23:59:59 HOURS\n");
}

TEST_F(TimeStamp, ShowsEveryNumberWithTwoDigits) {
    for (int number = 1; number < 60; ++number) {
        const int day = std::min(number, 31);
        const int hour = std::min(number, 23);
        const std::size_t start = log().size();
        stamp(started, log_unit, 0, {2024, 2, day, hour, number, number});
        char line[80];
        std::snprintf(line, sizeof line,
                      "\n THIS RUN WAS STARTED :  %02d-MAR-2024  AT  %02d:%02d:%02d HOURS\n", day,
                      hour, number, number);
        EXPECT_EQ(log().substr(start), line);
    }
}

TEST_F(TimeStamp, GoesToBothUnits) {
    stamp(started, log_unit, listing_unit, morning);
    EXPECT_EQ(log(), "\n THIS RUN WAS STARTED :  07-MAR-2024  AT  09:05:03 HOURS\n");
    EXPECT_EQ(listing(), log());
}

TEST_F(TimeStamp, GoesToTheSecondUnitOnly) {
    stamp(terminated, -1, listing_unit, morning);
    EXPECT_EQ(log(), "");
    EXPECT_EQ(listing(), "\n THIS RUN WAS TERMINATED :  07-MAR-2024  AT  09:05:03 HOURS\n");
}

// Unit 0 is standard error, which a second unit of 0 does not mean.
TEST_F(TimeStamp, OfSecondUnitZeroGoesNowhere) {
    testing::internal::CaptureStderr();
    stamp(started, -1, 0, morning);
    stamp(terminated, -1, 0, morning);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(log() + listing(), "");
}

TEST_F(TimeStamp, OfUnitZeroGoesToTheLog) {
    stamp(started, 0, 0, morning);
    EXPECT_EQ(log(), "\n THIS RUN WAS STARTED :  07-MAR-2024  AT  09:05:03 HOURS\n");
}

TEST_F(TimeStamp, OfNegativeUnitsGoesNowhere) {
    stamp(started, -1, -1, morning);
    EXPECT_EQ(log() + listing() + plot(), "");
    EXPECT_EQ(directory.list(),
              (std::vector<std::string>{"KORVAT.LIS", "KORVAT.MLG", "PILEPLOT.TXT"}));
}

TEST_F(TimeStamp, OfAnotherModeWritesNothing) {
    for (const int mode : {0, 3, -1, 12}) {
        EXPECT_EQ(stamp(mode, log_unit, listing_unit, morning), 0);
        EXPECT_EQ(log() + listing(), "") << mode;
    }
}

TEST_F(TimeStamp, GivesZeroSecondsAtEveryTimeOfDay) {
    int not_zero = 0;
    for (int hour = 0; hour < 24; ++hour) {
        for (int minute = 0; minute < 60; ++minute) {
            for (int second = 0; second < 60; ++second) {
                if (stamp(0, 0, 0, {2024, 1, 29, hour, minute, second}) != 0) ++not_zero;
            }
        }
    }
    EXPECT_EQ(not_zero, 0);
    EXPECT_EQ(stamp(started, log_unit, 0, last_second), 0);
    EXPECT_EQ(stamp(terminated, log_unit, 0, morning), 0);
}

TEST(MonthName, CountsFromZero) {
    const std::array<std::string_view, 12> names = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                    "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    for (int month = 0; month < 12; ++month)
        EXPECT_EQ(month_name(month), names.at(static_cast<std::size_t>(month)));
}

// The fields that the clock can have had between the two moments.
bool lie_between(const TimeFields& ITIME, std::time_t before, std::time_t after) {
    for (std::time_t moment = before; moment <= after; ++moment) {
        const std::tm due = *std::localtime(&moment);
        if (ITIME(1) == due.tm_year + 1900 && ITIME(2) == due.tm_mon && ITIME(3) == due.tm_mday &&
            ITIME(4) == due.tm_hour && ITIME(5) == due.tm_min && ITIME(6) == due.tm_sec) {
            return true;
        }
    }
    return false;
}

TEST_F(TimeStamp, ReadsTheClock) {
    TimeFields ITIME;
    int seconds = 77;
    const std::time_t before = std::time(nullptr);
    time_stamp(cmn(), started, log_unit, 0, seconds, ITIME);
    EXPECT_TRUE(lie_between(ITIME, before, std::time(nullptr)));
    EXPECT_EQ(seconds, 0);

    // The line is the one of these fields.
    const std::string written = log();
    int of_the_fields = 77;
    write_time_stamp(cmn(), started, listing_unit, 0, of_the_fields, ITIME);
    EXPECT_EQ(written, listing());
}

TEST_F(TimeStamp, FillsTheFieldsInEveryMode) {
    for (const int mode : {0, 3}) {
        TimeFields ITIME;
        int seconds = 77;
        const std::time_t before = std::time(nullptr);
        time_stamp(cmn(), mode, log_unit, listing_unit, seconds, ITIME);
        EXPECT_TRUE(lie_between(ITIME, before, std::time(nullptr))) << mode;
        EXPECT_EQ(seconds, 0);
    }
    EXPECT_EQ(log() + listing(), "");
}

} // namespace
} // namespace korvat::test
