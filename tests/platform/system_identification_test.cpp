// What the running system says of itself, where every system says the same.
#include "platform/system_identification.hpp"

#include "support/environment.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

TEST(SystemIdentification, ReadsTheEnvironment) {
    set_environment_variable("KORVAT_TEST_VARIABLE", "A value, with blanks ");
    EXPECT_EQ(platform::environment_variable("KORVAT_TEST_VARIABLE"), "A value, with blanks ");
    set_environment_variable("KORVAT_TEST_VARIABLE", "");
    EXPECT_EQ(platform::environment_variable("KORVAT_TEST_VARIABLE"), "");
    unset_environment_variable("KORVAT_TEST_VARIABLE");
    EXPECT_EQ(platform::environment_variable("KORVAT_TEST_VARIABLE"), "");
}

TEST(SystemIdentification, HostNumberStaysTheSame) {
    EXPECT_EQ(platform::host_number(), platform::host_number());
}

} // namespace
} // namespace korvat::test
