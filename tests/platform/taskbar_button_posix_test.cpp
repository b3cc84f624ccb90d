// The taskbar button: a system without a desktop has none to refuse.
#include "platform/taskbar_button.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

TEST(TaskbarButton, IsAlwaysGranted) {
    EXPECT_NE(platform::show_taskbar_button(), nullptr);
}

TEST(TaskbarButton, CanBeShownAgain) {
    const auto first = platform::show_taskbar_button();
    const auto second = platform::show_taskbar_button();
    EXPECT_NE(first, nullptr);
    EXPECT_NE(second, nullptr);
    EXPECT_NE(first, second);
}

} // namespace
} // namespace korvat::test
