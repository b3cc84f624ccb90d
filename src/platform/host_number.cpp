// The host number of a list of network adapters.
#include "platform/system_identification.hpp"

namespace korvat::platform {
namespace {

// Four bytes of the address, high to low, masked to 31 bits. 0 for a failed query.
int adapter_number(const std::optional<HardwareAddress>& adapter) {
    if (!adapter) return 0;
    constexpr std::size_t order[] = {3, 2, 5, 4};
    std::uint32_t number = 0;
    for (const std::size_t position : order) {
        number = (number << 8) | (*adapter)[position];
    }
    return static_cast<int>(number & 0x7FFFFFFFU);
}

} // namespace

int host_number_of(std::span<const std::optional<HardwareAddress>> adapters) {
    int first_positive = 0;
    int last = 0;
    for (const auto& adapter : adapters) {
        last = adapter_number(adapter);
        if (first_positive == 0) first_positive = last;
    }
    return last != 0 ? last : -first_positive;
}

} // namespace korvat::platform
