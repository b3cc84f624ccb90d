// What the running system says of itself, against what its own tools say (POSIX).
#include "platform/system_identification.hpp"

#include "support/host_facts.hpp"

#include <cstdio>
#include <gtest/gtest.h>
#include <string>

namespace korvat::test {
namespace {

TEST(SystemIdentification, NamesTheOperatingSystem) {
    EXPECT_EQ(platform::operating_system_name(), host_facts().operating_system);
}

TEST(SystemIdentification, DescribesTheProcessor) {
    EXPECT_EQ(platform::processor_text(), host_facts().processor);
}

TEST(SystemIdentification, HostNumberIsThatOfTheAdapters) {
    const int number = platform::host_number();
    char shown[16] = {};
    std::snprintf(shown, sizeof shown, "%010d", number);
    EXPECT_EQ(shown, host_facts().host_number);
}

} // namespace
} // namespace korvat::test
