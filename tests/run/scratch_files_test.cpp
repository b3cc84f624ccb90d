// The clean-up of the runtime's scratch files.
#include "run/scratch_files.hpp"

#include "support/model_fixture.hpp"
#include "support/scratch_directory.hpp"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

using Names = std::vector<std::string>;

class ScratchFiles : public testing::Test {
protected:
    // What the clean-up writes to standard error.
    std::string messages_of_removal(const std::string& from) {
        testing::internal::CaptureStderr();
        remove_scratch_files(from);
        return testing::internal::GetCapturedStderr();
    }

    ScratchDirectory directory;
};

TEST_F(ScratchFiles, AreKnownByTheirNames) {
    for (const char* const name :
         {"fem_io_unit_012", "fem_io_unit_123", "fem_io", "fem_io.txt", "fem_i", "fem_unit",
          "a_fem_io", "KORVAT.INP", ".fem_io", "Fem_io_unit_013"}) {
        directory.write_file(name, "content");
    }
    EXPECT_EQ(messages_of_removal(directory.path().string()), "");
    EXPECT_EQ(directory.list(),
              (Names{".fem_io", "Fem_io_unit_013", "KORVAT.INP", "a_fem_io", "fem_i", "fem_unit"}));
}

TEST_F(ScratchFiles, AreSoughtInTheCurrentDirectory) {
    const CurrentDirectory current(directory.path());
    directory.write_file("fem_io_unit_012", "");
    directory.write_file("kept", "");
    remove_scratch_files();
    EXPECT_EQ(directory.list(), Names{"kept"});
}

TEST_F(ScratchFiles, AreNotSoughtInSubdirectories) {
    std::filesystem::create_directory(directory.path() / "sub");
    directory.write_file("sub/fem_io_unit_012", "");
    EXPECT_EQ(messages_of_removal(directory.path().string()), "");
    EXPECT_TRUE(directory.has("sub/fem_io_unit_012"));
}

TEST_F(ScratchFiles, ThatCannotBeRemovedAreLeft) {
    std::filesystem::create_directories(directory.path() / "fem_io_unit_012" / "inside");
    directory.write_file("fem_io_unit_099", "");
    EXPECT_EQ(messages_of_removal(directory.path().string()), "");
    EXPECT_EQ(directory.list(), Names{"fem_io_unit_012"});
}

TEST_F(ScratchFiles, OfAnUnreadableDirectoryAreReported) {
    const std::string missing = (directory.path() / "missing").string();
    EXPECT_EQ(messages_of_removal(missing), "Exception ::Error While Accessing :" + missing + "\n");
}

TEST_F(ScratchFiles, OfAFileInsteadOfADirectoryAreReported) {
    directory.write_file("file", "");
    const std::string file = (directory.path() / "file").string();
    EXPECT_EQ(messages_of_removal(file), "Exception ::Error While Accessing :" + file + "\n");
    EXPECT_TRUE(directory.has("file"));
}

} // namespace
} // namespace korvat::test
