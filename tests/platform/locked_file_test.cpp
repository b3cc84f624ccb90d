// A file that one program at a time adds to.
#include "platform/locked_file.hpp"

#include "support/scratch_directory.hpp"

#include <gtest/gtest.h>
#include <optional>
#include <system_error>

namespace korvat::test {
namespace {

using platform::HeldByAnother;
using platform::LockedFile;

TEST(LockedFile, GrowsAtItsEnd) {
    const ScratchDirectory directory;
    const std::string name = (directory.path() / "lines").string();
    {
        LockedFile file(name);
        EXPECT_TRUE(file.is_locked());
        EXPECT_EQ(file.size(), 0U);
        file.append("one\n");
        file.append("two\n");
        EXPECT_EQ(file.size(), 8U);
    }
    LockedFile again(name);
    again.append("three\n");
    EXPECT_EQ(directory.read_file("lines"), "one\ntwo\nthree\n");
    again.cut(5);
    again.append("!\n");
    EXPECT_EQ(directory.read_file("lines"), "one\nt!\n");
}

TEST(LockedFile, BelongsToOneAtATime) {
    const ScratchDirectory directory;
    const std::string name = (directory.path() / "lines").string();
    std::optional<LockedFile> first(name);
    EXPECT_THROW(LockedFile{name}, HeldByAnother);
    first->append("kept\n");
    first.reset();
    EXPECT_NO_THROW(LockedFile{name});
    EXPECT_EQ(directory.read_file("lines"), "kept\n");
}

TEST(LockedFile, TellsWhereThereCanBeNone) {
    const ScratchDirectory directory;
    EXPECT_THROW(LockedFile((directory.path() / "none" / "lines").string()), std::system_error);
    EXPECT_THROW(LockedFile(directory.path().string()), std::system_error);
}

} // namespace
} // namespace korvat::test
