// What of the machine this process may use.
#pragma once

#include <cstdint>
#include <string>

namespace korvat::platform {

// Cores that the process may run on, at least 1: those that it is bound to, fewer where its control group
// (Linux) or job (Windows) has a smaller share of their time. `root` is where the system's files are.
[[nodiscard]] int usable_cores(const std::string& root = "/");

// Bytes of memory that are free for it, within the limits of its control groups; the largest number where
// the system does not say.
[[nodiscard]] std::uint64_t usable_memory(const std::string& root = "/");

} // namespace korvat::platform
