// A locked file on a disk that is full.
#include "platform/locked_file.hpp"

#include "support/file_size_limit.hpp"
#include "support/scratch_directory.hpp"

#include <cerrno>
#include <gtest/gtest.h>
#include <system_error>

namespace korvat::test {
namespace {

using platform::LockedFile;

TEST(LockedFilePosix, IsAsBeforeWhereTheDiskTakesOnlyAPart) {
    const ScratchDirectory directory;
    LockedFile file((directory.path() / "lines").string());
    const FileSizeLimit limit(10);
    file.append("12345\n");
    EXPECT_THROW(file.append("67890\n"), std::system_error);
    EXPECT_EQ(directory.read_file("lines"), "12345\n");
    file.append("678\n");
    EXPECT_EQ(directory.read_file("lines"), "12345\n678\n");
}

TEST(LockedFilePosix, TellsThatTheDiskIsFull) {
    LockedFile file("/dev/full");
    EXPECT_EQ(file.size(), 0U);
    try {
        file.append("line\n");
        ADD_FAILURE() << "it was written";
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code().value(), ENOSPC);
    }
}

} // namespace
} // namespace korvat::test
