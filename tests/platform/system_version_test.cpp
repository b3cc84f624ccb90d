// The names of operating systems by their version numbers.
#include "platform/system_version.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

std::string workstation(unsigned long major, unsigned long minor) {
    return platform::system_name_of({.major = major, .minor = minor, .workstation = true});
}

std::string server(unsigned long major, unsigned long minor) {
    return platform::system_name_of({.major = major, .minor = minor, .workstation = false});
}

TEST(SystemVersion, OfKnownProducts) {
    EXPECT_EQ(workstation(10, 0), "Windows 10");
    EXPECT_EQ(server(10, 0), "Windows Server 2016");
    EXPECT_EQ(workstation(6, 3), "Windows 8.1");
    EXPECT_EQ(server(6, 3), "Windows Server 2012 R2");
    EXPECT_EQ(workstation(6, 2), "Windows 8");
    EXPECT_EQ(server(6, 2), "Windows Server 2012");
    EXPECT_EQ(workstation(6, 1), "Windows 7");
    EXPECT_EQ(server(6, 1), "Windows Server 2008 R2");
}

TEST(SystemVersion, TenHasAnyMinorNumber) {
    EXPECT_EQ(workstation(10, 7), "Windows 10");
    EXPECT_EQ(server(10, 1), "Windows Server 2016");
}

TEST(SystemVersion, OfOthersGoesByTheNumberAlone) {
    for (const auto name : {workstation, server}) {
        EXPECT_EQ(name(11, 0), "Windows Vista");
        EXPECT_EQ(name(7, 0), "Windows Vista");
        EXPECT_EQ(name(6, 4), "Windows Vista");
        EXPECT_EQ(name(6, 0), "Windows Vista");
        EXPECT_EQ(name(5, 2), "Windows XP");
        EXPECT_EQ(name(5, 1), "Windows XP");
        EXPECT_EQ(name(5, 0), "Windows");
        EXPECT_EQ(name(4, 9), "Windows");
    }
}

// What is left when the system cannot be asked.
TEST(SystemVersion, WithoutNumbersIsThePlainName) {
    EXPECT_EQ(platform::system_name_of({}), "Windows");
}

} // namespace
} // namespace korvat::test
