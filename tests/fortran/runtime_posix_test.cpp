// Units of the runtime: open file descriptors, and a current directory that is gone (POSIX).
#include "runtime_fixture.hpp"

#include <filesystem>
#include <iterator>

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

} // namespace
} // namespace korvat::test
