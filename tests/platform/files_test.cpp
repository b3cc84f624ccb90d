// Files by name: removing, renaming, listing.
#include "platform/files.hpp"

#include "support/scratch_directory.hpp"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

using Names = std::vector<std::string>;

class Files : public testing::Test {
protected:
    std::string path(const std::string& name) { return (directory.path() / name).string(); }

    Names entries(const std::string& of) {
        Names names = platform::directory_entries(of);
        std::sort(names.begin(), names.end());
        return names;
    }

    ScratchDirectory directory;
};

TEST_F(Files, RemoveTellsWhetherTheFileIsGone) {
    directory.write_file("a", "x");
    EXPECT_TRUE(platform::remove_file(path("a")));
    EXPECT_FALSE(directory.has("a"));
    EXPECT_FALSE(platform::remove_file(path("a")));
    EXPECT_FALSE(platform::remove_file(""));
}

TEST_F(Files, AFilledDirectoryIsNotRemoved) {
    std::filesystem::create_directories(path("folder/inside"));
    EXPECT_FALSE(platform::remove_file(path("folder")));
    EXPECT_TRUE(directory.has("folder/inside"));
}

TEST_F(Files, RenameKeepsTheContent) {
    directory.write_file("a", "content");
    EXPECT_EQ(platform::rename_file(path("a"), path("b")), 0);
    EXPECT_EQ(directory.list(), Names{"b"});
    EXPECT_EQ(directory.read_file("b"), "content");
}

TEST_F(Files, RenameFailsWithoutTheFile) {
    directory.write_file("b", "content");
    EXPECT_NE(platform::rename_file(path("a"), path("b")), 0);
    EXPECT_EQ(directory.read_file("b"), "content");
    EXPECT_EQ(platform::rename_file(path("b"), path("nowhere/b")), ENOENT);
    EXPECT_EQ(directory.list(), Names{"b"});
}

TEST_F(Files, RenameDoesNotReplaceAFilledDirectory) {
    directory.write_file("a", "content");
    std::filesystem::create_directories(path("b/inside"));
    EXPECT_NE(platform::rename_file(path("a"), path("b")), 0);
    EXPECT_EQ(directory.list(), (Names{"a", "b"}));
}

TEST_F(Files, EntriesAreAllNames) {
    EXPECT_EQ(entries(directory.path().string()), Names());
    directory.write_file("b.txt", "");
    directory.write_file(".hidden", "");
    directory.write_file("with blank", "");
    std::filesystem::create_directories(path("folder/inside"));
    EXPECT_EQ(entries(directory.path().string()),
              (Names{".hidden", "b.txt", "folder", "with blank"}));
}

TEST_F(Files, AMissingDirectoryCannotBeListed) {
    const std::string missing = path("missing");
    try {
        (void)platform::directory_entries(missing);
        FAIL() << "nothing was raised";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), "Error While Accessing :" + missing);
    }
}

TEST_F(Files, AFileCannotBeListed) {
    directory.write_file("file", "");
    try {
        (void)platform::directory_entries(path("file"));
        FAIL() << "nothing was raised";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), "Error While Accessing :" + path("file"));
    }
}

} // namespace
} // namespace korvat::test
