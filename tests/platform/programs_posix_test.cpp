// Programs by their names.
#include "platform/programs.hpp"

#include "support/environment.hpp"
#include "support/scratch_directory.hpp"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace korvat::test {
namespace {

TEST(ProgramsPosix, OneIsAFileThatMayBeRun) {
    const ScratchDirectory directory;
    directory.write_file("tool", "");
    const std::string tool = (directory.path() / "tool").string();
    chmod(tool.c_str(), 0755);
    EXPECT_TRUE(platform::is_program(tool));
    chmod(tool.c_str(), 0644);
    EXPECT_FALSE(platform::is_program(tool));
    EXPECT_FALSE(platform::is_program(directory.path().string()));
    EXPECT_FALSE(platform::is_program(tool + "none"));
    EXPECT_TRUE(platform::is_program(platform::own_program()));
}

TEST(ProgramsPosix, TheFirstOnThePathIsFound) {
    const ScratchDirectory directory;
    const std::string top = directory.path().string();
    for (const std::string name : {"a", "b"}) {
        std::filesystem::create_directory(directory.path() / name);
        directory.write_file(name + "/tool", "");
        chmod((top + "/" + name + "/tool").c_str(), 0755);
    }
    const std::string before = std::getenv("PATH");
    set_environment_variable("PATH", top + "/none:" + top + "/b:" + top + "/a");
    EXPECT_EQ(platform::program_on_path("tool"), top + "/b/tool");
    EXPECT_EQ(platform::program_on_path("other"), std::nullopt);
    set_environment_variable("PATH", before);
}

} // namespace
} // namespace korvat::test
