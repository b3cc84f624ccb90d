// Cores and memory under the limits of control groups of both versions.
#include "platform/capacity.hpp"

#include "support/scratch_directory.hpp"

#include <gtest/gtest.h>
#include <limits>
#include <unistd.h>

namespace korvat::test {
namespace {

using platform::usable_cores;
using platform::usable_memory;

constexpr std::uint64_t megabyte = std::uint64_t{1} << 20U;

// A share of less than a core leaves one; the machine of the test has at least that.
class Capacity : public testing::Test {
protected:
    void write(const std::string& name, const std::string& text) const {
        std::filesystem::create_directories((scratch_.path() / name).parent_path());
        scratch_.write_file(name, text);
    }

    [[nodiscard]] int cores() const { return usable_cores(scratch_.path().string()); }
    [[nodiscard]] std::uint64_t memory() const { return usable_memory(scratch_.path().string()); }

    ScratchDirectory scratch_;
    int all_ = cores(); // nothing is written yet, so that only the binding counts
};

TEST_F(Capacity, WithoutLimitsIsThatOfTheMachine) {
    EXPECT_GE(all_, 1);
    EXPECT_LE(all_, static_cast<int>(sysconf(_SC_NPROCESSORS_CONF)));
    EXPECT_EQ(memory(), std::numeric_limits<std::uint64_t>::max());
    EXPECT_GE(usable_memory(), megabyte);
}

TEST_F(Capacity, OfTheSecondVersionIsTheSmallestOnTheWayUp) {
    write("proc/self/cgroup", "0::/study/task\n");
    write("sys/fs/cgroup/cpu.max", "max 100000\n");
    write("sys/fs/cgroup/study/cpu.max", "50000 100000\n");
    write("sys/fs/cgroup/study/task/cpu.max", "max 100000\n");
    EXPECT_EQ(cores(), 1); // half a core
    write("sys/fs/cgroup/study/cpu.max", "100000000 100000\n");
    EXPECT_EQ(cores(), all_); // a thousand
}

TEST_F(Capacity, OfTheFirstVersionIsQuotaByPeriod) {
    write("proc/self/cgroup", "9:name=systemd:/\n4:memory:/job\n1:cpu,cpuacct:/job\n");
    write("sys/fs/cgroup/cpu,cpuacct/job/cpu.cfs_quota_us", "-1\n");
    write("sys/fs/cgroup/cpu,cpuacct/job/cpu.cfs_period_us", "100000\n");
    EXPECT_EQ(cores(), all_);
    write("sys/fs/cgroup/cpu,cpuacct/job/cpu.cfs_quota_us", "20000\n");
    EXPECT_EQ(cores(), 1);
}

// A container sees its own group as the root, though the path names it as the host does.
TEST_F(Capacity, OfAContainerStandsAtTheRoot) {
    write("proc/self/cgroup", "1:cpu:/docker/4f5\n4:memory:/docker/4f5\n");
    write("sys/fs/cgroup/cpu/cpu.cfs_quota_us", "10000\n");
    write("sys/fs/cgroup/cpu/cpu.cfs_period_us", "100000\n");
    write("sys/fs/cgroup/memory/memory.limit_in_bytes", std::to_string(100 * megabyte) + "\n");
    EXPECT_EQ(cores(), 1);
    EXPECT_EQ(memory(), 100 * megabyte);
}

TEST_F(Capacity, OfMemoryIsWhatIsLeft) {
    write("proc/meminfo", "MemTotal: 8388608 kB\nMemFree: 1024 kB\nMemAvailable: 4194304 kB\n");
    EXPECT_EQ(memory(), 4096 * megabyte);
    write("proc/self/cgroup", "0::/job\n");
    write("sys/fs/cgroup/job/memory.max", std::to_string(512 * megabyte) + "\n");
    write("sys/fs/cgroup/job/memory.current", std::to_string(300 * megabyte) + "\n");
    EXPECT_EQ(memory(), 212 * megabyte);
    // Of what is used, 100 MB are pages of files.
    write("sys/fs/cgroup/job/memory.stat", "anon 1\ninactive_file " +
                                               std::to_string(60 * megabyte) + "\nactive_file " +
                                               std::to_string(40 * megabyte) + "\n");
    EXPECT_EQ(memory(), 312 * megabyte);
    write("sys/fs/cgroup/job/memory.max", "max\n");
    EXPECT_EQ(memory(), 4096 * megabyte);
}

TEST_F(Capacity, TakesNothingForALimitThatIsNone) {
    write("proc/self/cgroup", "no colons\n0::\n:::\n0::/x\n");
    write("sys/fs/cgroup/x/cpu.max", "0 0\n");
    write("sys/fs/cgroup/x/memory.max", "words\n");
    write("sys/fs/cgroup/cpu.max", "");
    EXPECT_EQ(cores(), all_);
    EXPECT_EQ(memory(), std::numeric_limits<std::uint64_t>::max());
}

} // namespace
} // namespace korvat::test
