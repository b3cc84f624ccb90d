// What the running system says of itself, against its other calls and its registry (Windows).
#include "platform/system_identification.hpp"

#include "platform/system_version.hpp"
#include "support/environment.hpp"

#include <winsock2.h>

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iphlpapi.h>
#include <set>
#include <string>
#include <vector>
#include <windows.h>

namespace korvat::test {
namespace {

std::string registry_value(const wchar_t* key, const wchar_t* name) {
    wchar_t text[128] = {};
    DWORD size = sizeof text;
    if (RegGetValueW(HKEY_LOCAL_MACHINE, key, name, RRF_RT_REG_SZ, nullptr, text, &size) != 0) {
        return "(none)";
    }
    const std::wstring wide(text);
    return {wide.begin(), wide.end()}; // digits and letters
}

// "6.1" under CurrentVersion: a registry of version 10 still says 6.3 there.
TEST(SystemIdentification, NamesTheOperatingSystem) {
    const std::string version =
        registry_value(L"Software\\Microsoft\\Windows NT\\CurrentVersion", L"CurrentVersion");
    const std::string product =
        registry_value(L"System\\CurrentControlSet\\Control\\ProductOptions", L"ProductType");
    ASSERT_EQ(version.size(), 3U) << version;
    const bool workstation = product == "WinNT";
    const std::string older =
        platform::system_name_of({.major = static_cast<unsigned long>(version[0] - '0'),
                                  .minor = static_cast<unsigned long>(version[2] - '0'),
                                  .workstation = workstation});
    const std::string newer = platform::system_name_of({.major = 10, .workstation = workstation});
    const std::string found = platform::operating_system_name();
    EXPECT_TRUE(found == older || (version == "6.3" && found == newer)) << found;
}

TEST(SystemIdentification, DescribesTheProcessor) {
    const DWORD processors = GetActiveProcessorCount(ALL_PROCESSOR_GROUPS);
    EXPECT_EQ(platform::processor_text(), "8664, " + std::to_string(processors) + " cores");
}

TEST(SystemIdentification, EnvironmentIsUtf8) {
    const std::string name = "J\xC3\xBCrgen \xE6\xA1\xA9";
    set_environment_variable("KORVAT_TEST_VARIABLE", name);
    EXPECT_EQ(platform::environment_variable("KORVAT_TEST_VARIABLE"), name);
    unset_environment_variable("KORVAT_TEST_VARIABLE");
}

// The numbers of the adapters, by another way than the one of the program.
std::set<int> numbers_of_adapters() {
    ULONG size = 0;
    GetAdaptersInfo(nullptr, &size);
    std::vector<IP_ADAPTER_INFO> list(size / sizeof(IP_ADAPTER_INFO) + 1);
    std::set<int> numbers;
    if (GetAdaptersInfo(list.data(), &size) != NO_ERROR) return numbers;
    for (const IP_ADAPTER_INFO* entry = list.data(); entry != nullptr; entry = entry->Next) {
        std::optional<platform::HardwareAddress> address(platform::HardwareAddress{});
        std::copy_n(entry->Address, address->size(), address->begin());
        numbers.insert(platform::host_number_of(std::span(&address, 1)));
    }
    return numbers;
}

TEST(SystemIdentification, HostNumberIsThatOfAnAdapter) {
    const std::set<int> numbers = numbers_of_adapters();
    const int number = platform::host_number();
    EXPECT_TRUE(number == 0 ? numbers.empty() || numbers.count(0) == 1
                            : numbers.count(std::abs(number)) == 1)
        << number << ", adapters " << testing::PrintToString(numbers);
}

} // namespace
} // namespace korvat::test
