// The private directory of a run that nobody keeps.
#include "platform/scratch_directory.hpp"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace korvat::test {
namespace {

TEST(ScratchDirectory, IsTheCurrentOneAndThenGone) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::path made;
    {
        const platform::ScratchDirectory directory;
        made = directory.path();
        EXPECT_TRUE(std::filesystem::equivalent(made, std::filesystem::current_path()));
        EXPECT_TRUE(std::filesystem::is_empty(made));
        std::filesystem::create_directory("inner");
        std::ofstream("inner/file") << "text";
        std::ofstream("KORVAT.INP") << "text";
    }
    EXPECT_EQ(std::filesystem::current_path(), before);
    EXPECT_FALSE(std::filesystem::exists(made));
}

TEST(ScratchDirectory, EachHasANameOfItsOwn) {
    std::string first;
    {
        const platform::ScratchDirectory directory;
        first = directory.path();
        std::filesystem::current_path("..");
    }
    EXPECT_FALSE(std::filesystem::exists(first));
    const platform::ScratchDirectory directory;
    EXPECT_NE(directory.path(), first);
}

} // namespace
} // namespace korvat::test
