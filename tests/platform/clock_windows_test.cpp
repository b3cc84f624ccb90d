// The clock against the system's own (Windows).
#include "platform/clock.hpp"

#include <gtest/gtest.h>
#include <tuple>
#include <windows.h>

namespace korvat::test {
namespace {

auto fields_of(const SYSTEMTIME& time) {
    return std::tuple<int, int, int, int, int, int>(time.wYear, time.wMonth - 1, time.wDay,
                                                    time.wHour, time.wMinute, time.wSecond);
}

TEST(Clock, TellsLocalTime) {
    SYSTEMTIME before{};
    SYSTEMTIME after{};
    GetLocalTime(&before);
    const platform::LocalTime time = platform::local_time_now();
    GetLocalTime(&after);
    const std::tuple<int, int, int, int, int, int> found(time.year, time.month, time.day, time.hour,
                                                         time.minute, time.second);
    EXPECT_LE(fields_of(before), found);
    EXPECT_LE(found, fields_of(after));
}

} // namespace
} // namespace korvat::test
