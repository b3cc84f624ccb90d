// Standard streams that are led away for a time.
#include "platform/console.hpp"

#include <cstdio>
#include <gtest/gtest.h>
#include <iostream>

namespace korvat::test {
namespace {

TEST(QuietStreams, NothingIsShownAsLongAsTheyLive) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    std::cout << "before";
    std::fputs("before", stderr);
    {
        const platform::QuietStreams quiet;
        std::cout << "hidden" << std::flush;
        std::puts("hidden");
        std::fputs("hidden", stderr);
        std::cerr << "hidden";
    }
    std::cout << " behind" << std::flush;
    std::fputs(" behind", stderr);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "before behind");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "before behind");
}

TEST(Console, AFileIsNoTerminal) {
    testing::internal::CaptureStdout();
    const bool is_terminal = platform::is_output_on_terminal();
    static_cast<void>(testing::internal::GetCapturedStdout());
    EXPECT_FALSE(is_terminal);
}

} // namespace
} // namespace korvat::test
