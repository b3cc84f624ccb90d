// Units of the runtime: open file descriptors, and a current directory that is gone (POSIX).
#include "runtime_fixture.hpp"
#include "support/file_size_limit.hpp"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace korvat::test {
namespace {

using fortran::OpenStatus;
using fortran::Runtime;

class UnitsOnPosix : public RuntimeTest {};

// A log that stayed open would hold one file descriptor a run.
TEST_F(UnitsOnPosix, NoFileDescriptorIsLeftOpen) {
    const auto open_files = [] {
        const std::filesystem::directory_iterator list("/proc/self/fd");
        return std::distance(begin(list), end(list));
    };
    end_runtime();
    const auto before = open_files();
    for (int i = 0; i < 5; ++i) {
        Runtime run(0, nullptr);
        std::filesystem::remove("log");
        ASSERT_EQ(run.open(6, "log", OpenStatus::new_file), 0);
        run.write(6, "(' text')");
        run.rewind(12);
        ASSERT_EQ(run.open(13, "missing", OpenStatus::old_file), 1);
    }
    EXPECT_EQ(open_files(), before);
}

// The current directory is gone, so that no file can be made in it.
TEST_F(UnitsOnPosix, AScratchFileThatCannotBeMadeRaises) {
    std::filesystem::create_directory("gone");
    std::filesystem::current_path("gone");
    std::filesystem::remove(directory.path() / "gone");
    EXPECT_THROW(runtime().rewind(12), std::exception);
    EXPECT_THROW(runtime().write(12, "(' text')"), std::exception);
    EXPECT_THROW((void)next(12), std::exception);
    EXPECT_THROW(runtime().skip_line(12), std::exception);
    std::filesystem::current_path(directory.path());
    runtime().write(12, "(' text')");
    runtime().rewind(12);
    EXPECT_EQ(next(12), " text   ");
}

using Faults = std::vector<std::pair<std::string, int>>;

Faults faults_of(const Runtime& runtime) {
    Faults faults;
    for (const fortran::WriteFault& fault : runtime.write_faults())
        faults.emplace_back(fault.file, fault.error);
    return faults;
}

TEST_F(UnitsOnPosix, AFileThatIsWrittenWholeIsNoFault) {
    ASSERT_EQ(runtime().open(13, "out", OpenStatus::new_file), 0);
    runtime().write(13, "(' text')");
    runtime().write(0, "()");
    EXPECT_TRUE(runtime().wrote_all(13));
    runtime().close_all();
    EXPECT_EQ(faults_of(runtime()), Faults{});
    EXPECT_EQ(directory.read_file("out"), " text\n");
}

// The record of 11 bytes does not fit, so that 10 are written; what comes later does not heal it.
TEST_F(UnitsOnPosix, AFailedWriteIsKeptOnceWithItsReason) {
    ASSERT_EQ(runtime().open(13, "out", OpenStatus::new_file), 0);
    {
        const FileSizeLimit limit(10);
        EXPECT_NO_THROW(runtime().write(13, "('0123456789')"));
        EXPECT_FALSE(runtime().wrote_all(13));
        EXPECT_TRUE(runtime().wrote_all(14));
        EXPECT_NO_THROW(runtime().write(13, "('more')"));
    }
    runtime().close(13);
    EXPECT_EQ(faults_of(runtime()), (Faults{{"out", EFBIG}}));
    EXPECT_EQ(directory.read_file("out").substr(0, 10), "0123456789");
}

TEST_F(UnitsOnPosix, EveryFaultyFileIsKept) {
    ASSERT_EQ(runtime().open(6, "log", OpenStatus::new_file), 0);
    ASSERT_EQ(runtime().open(13, "listing", OpenStatus::new_file), 0);
    const FileSizeLimit limit(1);
    runtime().write(13, "('ab')");
    runtime().write(12, "('ab')");
    runtime().write(6, "('ab')");
    runtime().close_all();
    // The log is written at once, the others when they are closed.
    EXPECT_EQ(faults_of(runtime()),
              (Faults{{"log", EFBIG}, {"fem_io_unit_012", EFBIG}, {"listing", EFBIG}}));
}

// A file in memory that the system does not let anyone shorten, by its name among the descriptors.
TEST_F(UnitsOnPosix, AFileThatCannotBeCutRaisesAndIsKept) {
    const int descriptor = memfd_create("kept", MFD_ALLOW_SEALING);
    ASSERT_GE(descriptor, 0);
    ASSERT_EQ(write(descriptor, "text\n", 5), 5);
    ASSERT_EQ(fcntl(descriptor, F_ADD_SEALS, F_SEAL_SHRINK), 0);
    const std::string name = "/proc/self/fd/" + std::to_string(descriptor);
    ASSERT_EQ(runtime().open(13, name, OpenStatus::old_file), 0);
    EXPECT_THROW(runtime().write(13, "(' text')"), std::exception);
    EXPECT_EQ(faults_of(runtime()), (Faults{{name, EPERM}}));
    // Behind its last line there is nothing to cut.
    runtime().skip_line(13);
    EXPECT_EQ(next(13), "(end)");
    runtime().write(13, "('more')");
    runtime().close(13);
    EXPECT_EQ(directory.read_file(name), "text\nmore\n");
    close(descriptor);
}

// A device that is always full, where there is nothing to cut.
TEST_F(UnitsOnPosix, ADeviceWithoutRoomIsKept) {
    ASSERT_EQ(runtime().open(13, "/dev/full", OpenStatus::old_file), 0);
    runtime().write(13, "(' text')");
    runtime().close(13);
    EXPECT_EQ(faults_of(runtime()), (Faults{{"/dev/full", ENOSPC}}));
}

TEST_F(UnitsOnPosix, AScratchFileThatCannotBeMadeIsKeptWithItsReason) {
    std::filesystem::create_directory("gone");
    std::filesystem::current_path("gone");
    std::filesystem::remove(directory.path() / "gone");
    EXPECT_THROW(runtime().rewind(12), std::exception);
    std::filesystem::current_path(directory.path());
    EXPECT_EQ(faults_of(runtime()), (Faults{{"fem_io_unit_012", ENOENT}}));
}

// Closing everything twice is harmless, and the runtime that goes has nothing left to close.
TEST_F(UnitsOnPosix, CloseAllLeavesNothing) {
    ASSERT_EQ(runtime().open(6, "log", OpenStatus::new_file), 0);
    runtime().write(6, "(' text')");
    runtime().close_all();
    runtime().close_all();
    end_runtime();
    EXPECT_EQ(directory.read_file("log"), " text\n");
}

} // namespace
} // namespace korvat::test
