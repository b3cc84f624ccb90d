// What the running system says of itself, for the identification page.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace korvat::platform {

// Value of an environment variable; empty when it is not set.
[[nodiscard]] std::string environment_variable(const char* name);

// Kind and number of processors, as "KIND, N cores".
[[nodiscard]] std::string processor_text();

[[nodiscard]] std::string operating_system_name();

// Number formed from the hardware addresses of the network adapters; 0 without an adapter.
[[nodiscard]] int host_number();

using HardwareAddress = std::array<std::uint8_t, 6>;

// The host number of these adapters, in the order in which the system lists them; an adapter whose
// query failed has no address. The number of the last adapter; where that is 0 and an earlier one
// gave a positive number, the negative of the first such.
[[nodiscard]] int host_number_of(std::span<const std::optional<HardwareAddress>> adapters);

} // namespace korvat::platform
