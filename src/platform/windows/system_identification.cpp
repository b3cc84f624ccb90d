// What the running system says of itself: system information, version, NetBIOS adapters.
#include "platform/system_identification.hpp"

#include "platform/system_version.hpp"
#include "platform/windows/text.hpp"

#include <algorithm>
#include <iterator>
#include <vector>
#include <windows.h>

#include <nb30.h>

namespace korvat::platform {
namespace {

// Looked up at run time: the system's headers promise it to drivers only. Zeros when it is missing.
SystemVersion system_version() {
    using GetVersion = LONG(WINAPI*)(OSVERSIONINFOEXW*);
    const HMODULE library = GetModuleHandleW(L"ntdll");
    if (library == nullptr) return {};
    const FARPROC found = GetProcAddress(library, "RtlGetVersion");
    if (found == nullptr) return {};
    OSVERSIONINFOEXW information{};
    information.dwOSVersionInfoSize = sizeof information;
    // By way of a plain pointer, which every function's address fits.
    const auto get_version = reinterpret_cast<GetVersion>(reinterpret_cast<void*>(found));
    get_version(&information);
    return {information.dwMajorVersion, information.dwMinorVersion,
            information.wProductType == VER_NT_WORKSTATION};
}

// What an adapter's status query fills: names follow the status.
struct AdapterStatus {
    ADAPTER_STATUS status;
    NAME_BUFFER names[30];
};

bool carry_out(NCB& request) {
    return Netbios(&request) == NRC_GOODRET;
}

LANA_ENUM adapter_numbers() {
    LANA_ENUM numbers{};
    NCB request{};
    request.ncb_command = NCBENUM;
    request.ncb_buffer = reinterpret_cast<PUCHAR>(&numbers);
    request.ncb_length = sizeof numbers;
    if (!carry_out(request)) return {};
    return numbers;
}

std::optional<HardwareAddress> address_of(UCHAR adapter) {
    NCB reset{};
    reset.ncb_command = NCBRESET;
    reset.ncb_lana_num = adapter;
    carry_out(reset); // the query tells whether it worked

    AdapterStatus answer{};
    NCB query{};
    query.ncb_command = NCBASTAT;
    query.ncb_lana_num = adapter;
    std::fill(std::begin(query.ncb_callname), std::end(query.ncb_callname), UCHAR{' '});
    query.ncb_callname[0] = '*';
    query.ncb_buffer = reinterpret_cast<PUCHAR>(&answer);
    query.ncb_length = sizeof answer;
    if (!carry_out(query)) return std::nullopt;
    HardwareAddress address{};
    std::copy_n(std::begin(answer.status.adapter_address), address.size(), address.begin());
    return address;
}

std::vector<std::optional<HardwareAddress>> network_adapters() {
    const LANA_ENUM numbers = adapter_numbers();
    std::vector<std::optional<HardwareAddress>> adapters;
    for (int i = 0; i < numbers.length; ++i) {
        adapters.push_back(address_of(numbers.lana[i]));
    }
    return adapters;
}

} // namespace

std::string environment_variable(const char* name) {
    const std::wstring wide_name = wide_text(name);
    const DWORD size = GetEnvironmentVariableW(wide_name.c_str(), nullptr, 0);
    std::wstring value(size, L'\0'); // with the null character
    const DWORD length = GetEnvironmentVariableW(wide_name.c_str(), value.data(), size);
    value.resize(std::min(length, size));
    return utf8_text(value);
}

std::string processor_text() {
    SYSTEM_INFO information{};
    GetSystemInfo(&information);
    return std::to_string(information.dwProcessorType) + ", " +
           std::to_string(information.dwNumberOfProcessors) + " cores";
}

std::string operating_system_name() {
    return system_name_of(system_version());
}

int host_number() {
    return host_number_of(network_adapters());
}

} // namespace korvat::platform
