// What the running system says of itself: uname, online processors, network adapters.
#include "platform/system_identification.hpp"

#include <algorithm>
#include <cstdlib>
#include <ifaddrs.h>
#include <memory>
#include <net/if.h>
#include <net/if_arp.h>
#include <netpacket/packet.h>
#include <sys/utsname.h>
#include <unistd.h>
#include <vector>

namespace korvat::platform {
namespace {

utsname system_names() {
    utsname names{};
    uname(&names);
    return names;
}

// The adapter's address; nothing where it is not one of six bytes.
std::optional<HardwareAddress> address_of(const sockaddr_ll& link) {
    HardwareAddress address{};
    if (link.sll_halen != address.size()) return std::nullopt;
    std::copy_n(link.sll_addr, address.size(), address.begin());
    return address;
}

std::vector<std::optional<HardwareAddress>> network_adapters() {
    ifaddrs* list = nullptr;
    if (getifaddrs(&list) != 0) return {};
    const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> owner(list, &freeifaddrs);
    std::vector<std::optional<HardwareAddress>> adapters;
    for (const ifaddrs* entry = list; entry != nullptr; entry = entry->ifa_next) {
        if (entry->ifa_addr == nullptr || entry->ifa_addr->sa_family != AF_PACKET) continue;
        if ((entry->ifa_flags & IFF_LOOPBACK) != 0) continue; // no adapter
        // The system hands out every address as a sockaddr; AF_PACKET says which it is.
        const auto* link = reinterpret_cast<const sockaddr_ll*>(entry->ifa_addr);
        if (link->sll_hatype != ARPHRD_ETHER) continue;
        adapters.push_back(address_of(*link));
    }
    return adapters;
}

} // namespace

std::string environment_variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

std::string processor_text() {
    const long processors = sysconf(_SC_NPROCESSORS_ONLN);
    return std::string(system_names().machine) + ", " + std::to_string(processors) + " cores";
}

std::string operating_system_name() {
    const utsname names = system_names();
    return std::string(names.sysname) + " " + names.release;
}

int host_number() {
    return host_number_of(network_adapters());
}

} // namespace korvat::platform
