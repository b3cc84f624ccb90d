#include "platform/capacity.hpp"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <optional>
#include <sstream>
#include <string_view>
#include <unistd.h>
#include <vector>

#ifdef __linux__
#include <sched.h>
#endif

namespace korvat::platform {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t unlimited = std::numeric_limits<std::uint64_t>::max();

int bound_cores() {
#ifdef __linux__
    cpu_set_t cores;
    if (sched_getaffinity(0, sizeof cores, &cores) == 0) return std::max(CPU_COUNT(&cores), 1);
#endif
    return static_cast<int>(std::max(sysconf(_SC_NPROCESSORS_ONLN), 1L));
}

// The control groups of the process, from its own to the root of the hierarchy, as directories. A container
// may see its own group as the root whatever the path says.
std::vector<fs::path> groups(const fs::path& root, const std::string& controller) {
    std::vector<fs::path> found;
    std::ifstream lines(root / "proc/self/cgroup");
    for (std::string line; std::getline(lines, line);) {
        // number:controllers:path; version 2 has no controllers
        const std::size_t first = line.find(':');
        const std::size_t second = line.find(':', first + 1);
        if (first == std::string::npos || second == std::string::npos) continue;
        const std::string controllers = line.substr(first + 1, second - first - 1);
        const bool is_second_version = controllers.empty();
        if (!is_second_version &&
            ("," + controllers + ",").find("," + controller + ",") == std::string::npos)
            continue;
        const std::vector<std::string> mounts =
            is_second_version ? std::vector<std::string>{"", "unified"}
                              : std::vector<std::string>{controller, controllers};
        for (const std::string& mount : mounts) {
            const fs::path top = (root / "sys/fs/cgroup" / mount).lexically_normal();
            fs::path group = fs::path(line.substr(second + 1)).relative_path();
            while (!group.empty()) {
                found.push_back(top / group);
                group = group.parent_path();
            }
            found.push_back(top);
        }
    }
    return found;
}

std::optional<std::vector<std::string>> words(const fs::path& file) {
    std::ifstream stream(file);
    std::vector<std::string> found;
    for (std::string word; stream >> word;)
        found.push_back(word);
    if (found.empty()) return std::nullopt;
    return found;
}

std::optional<double> number(const std::string& word) {
    std::istringstream stream(word);
    double value = 0.0;
    if (!(stream >> value)) return std::nullopt; // "max"
    return value;
}

// A group's share of the cores' time, in cores.
std::optional<double> share(const fs::path& group) {
    const auto both = words(group / "cpu.max"); // quota and period
    if (both && both->size() == 2) {
        const auto quota = number(both->front());
        const auto period = number(both->back());
        if (quota && period && *period > 0.0) return *quota / *period;
    }
    const auto quota = words(group / "cpu.cfs_quota_us");
    const auto period = words(group / "cpu.cfs_period_us");
    if (!quota || !period) return std::nullopt;
    const auto time = number(quota->front());
    const auto of_time = number(period->front());
    if (!time || !of_time || *time <= 0.0 || *of_time <= 0.0) return std::nullopt; // -1: no limit
    return *time / *of_time;
}

// What a group may still take.
std::uint64_t free_memory(const fs::path& group) {
    constexpr double largest = 1.0e18; // version 1 shows a number like this for no limit
    for (const auto& [limit_name, use_name] :
         {std::pair{"memory.max", "memory.current"},
          std::pair{"memory.limit_in_bytes", "memory.usage_in_bytes"}}) {
        const auto limit_words = words(group / limit_name);
        const auto limit = limit_words ? number(limit_words->front()) : std::nullopt;
        if (!limit || *limit >= largest || *limit < 0.0) continue;
        const auto use_words = words(group / use_name);
        const double use = use_words ? number(use_words->front()).value_or(0.0) : 0.0;
        // Pages of files count as used and can be taken back.
        double cached = 0.0;
        const auto statistics = words(group / "memory.stat");
        for (std::size_t i = 0; statistics && i + 1 < statistics->size(); i += 2) {
            const std::string& name = (*statistics)[i];
            if (name == "inactive_file" || name == "active_file")
                cached += number((*statistics)[i + 1]).value_or(0.0);
        }
        return static_cast<std::uint64_t>(std::max(*limit - std::max(use - cached, 0.0), 0.0));
    }
    return unlimited;
}

std::uint64_t free_memory_of_machine(const fs::path& root) {
    const auto lines = words(root / "proc/meminfo");
    for (std::size_t i = 0; lines && i + 1 < lines->size(); ++i) {
        if ((*lines)[i] != "MemAvailable:") continue;
        if (const auto kilobytes = number((*lines)[i + 1]))
            return static_cast<std::uint64_t>(*kilobytes * 1024.0);
    }
    return unlimited;
}

} // namespace

int usable_cores(const std::string& root) {
    double cores = bound_cores();
    for (const fs::path& group : groups(root, "cpu"))
        cores = std::min(cores, share(group).value_or(cores));
    return std::max(static_cast<int>(std::ceil(cores)), 1);
}

std::uint64_t usable_memory(const std::string& root) {
    std::uint64_t memory = free_memory_of_machine(root);
    for (const fs::path& group : groups(root, "memory"))
        memory = std::min(memory, free_memory(group));
    return memory;
}

} // namespace korvat::platform
