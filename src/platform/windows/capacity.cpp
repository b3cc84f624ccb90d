#include "platform/capacity.hpp"

#include <algorithm>
#include <bit>
#include <limits>
#include <windows.h>

namespace korvat::platform {

// A job's limit of the time of all cores, in hundredths of a percent, where it has a hard one.
int usable_cores(const std::string&) {
    DWORD_PTR own = 0;
    DWORD_PTR all = 0;
    if (!GetProcessAffinityMask(GetCurrentProcess(), &own, &all)) return 1;
    const int cores = std::max(std::popcount(own), 1);
    JOBOBJECT_CPU_RATE_CONTROL_INFORMATION rate{};
    constexpr DWORD hard =
        JOB_OBJECT_CPU_RATE_CONTROL_ENABLE | JOB_OBJECT_CPU_RATE_CONTROL_HARD_CAP;
    if (!QueryInformationJobObject(nullptr, JobObjectCpuRateControlInformation, &rate, sizeof rate,
                                   nullptr) ||
        (rate.ControlFlags & hard) != hard) {
        return cores;
    }
    constexpr DWORD whole = 10000;
    const DWORD machine = static_cast<DWORD>(std::max(std::popcount(all), 1));
    const DWORD share = (rate.CpuRate * machine + whole - 1) / whole;
    return std::clamp(static_cast<int>(share), 1, cores);
}

std::uint64_t usable_memory(const std::string&) {
    std::uint64_t memory = std::numeric_limits<std::uint64_t>::max();
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    if (GlobalMemoryStatusEx(&status)) memory = status.ullAvailPhys;
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    if (QueryInformationJobObject(nullptr, JobObjectExtendedLimitInformation, &limits,
                                  sizeof limits, nullptr) &&
        (limits.BasicLimitInformation.LimitFlags & JOB_OBJECT_LIMIT_JOB_MEMORY) != 0) {
        memory = std::min<std::uint64_t>(memory, limits.JobMemoryLimit);
    }
    return memory;
}

} // namespace korvat::platform
