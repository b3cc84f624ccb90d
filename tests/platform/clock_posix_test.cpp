// The clock against the system's calendar.
#include "platform/clock.hpp"

#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <string>

namespace korvat::test {
namespace {

bool is_at(const platform::LocalTime& time, std::time_t moment) {
    std::tm due{};
    localtime_r(&moment, &due);
    return time.year == due.tm_year + 1900 && time.month == due.tm_mon && time.day == due.tm_mday &&
           time.hour == due.tm_hour && time.minute == due.tm_min && time.second == due.tm_sec;
}

// The seconds before and after the call are the limits: one of them must be the one told.
bool tells_the_present() {
    const std::time_t before = std::time(nullptr);
    const platform::LocalTime time = platform::local_time_now();
    const std::time_t after = std::time(nullptr);
    for (std::time_t moment = before; moment <= after; ++moment) {
        if (is_at(time, moment)) return true;
    }
    return false;
}

// Sets the time zone and puts the former one back.
class TimeZone {
public:
    explicit TimeZone(const char* zone) {
        if (const char* const value = std::getenv("TZ")) former_ = value;
        was_set_ = std::getenv("TZ") != nullptr;
        setenv("TZ", zone, 1);
        tzset();
    }
    ~TimeZone() {
        if (was_set_) {
            setenv("TZ", former_.c_str(), 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

private:
    std::string former_;
    bool was_set_ = false;
};

TEST(Clock, TellsThePresent) {
    EXPECT_TRUE(tells_the_present());
}

TEST(Clock, TellsLocalTime) {
    platform::LocalTime east{};
    platform::LocalTime west{};
    {
        const TimeZone zone("EAST-6"); // 6 hours ahead
        EXPECT_TRUE(tells_the_present());
        east = platform::local_time_now();
    }
    {
        const TimeZone zone("WEST+6"); // 6 hours behind
        EXPECT_TRUE(tells_the_present());
        west = platform::local_time_now();
    }
    // Twelve hours apart, give or take the moment between the two calls.
    EXPECT_NE(east.hour, west.hour);
}

TEST(Clock, CountsMonthsFromZero) {
    const platform::LocalTime time = platform::local_time_now();
    EXPECT_GE(time.month, 0);
    EXPECT_LE(time.month, 11);
    EXPECT_GE(time.day, 1);
    EXPECT_LE(time.day, 31);
    EXPECT_GE(time.year, 2024);
}

} // namespace
} // namespace korvat::test
