// The private directory of a run under signals, and where there can be none.
#include "platform/scratch_directory.hpp"

#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvat::test {
namespace {

struct Child {
    int status = 0;
    std::string told; // path of its directory, and "alive" behind the signal
};

void tell(int pipe, std::string_view text) {
    [[maybe_unused]] const ssize_t written = write(pipe, text.data(), text.size());
}

// A process that gets a signal while it has a scratch directory.
Child interrupted(int signal) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
    const pid_t process = fork();
    if (process == 0) {
        {
            const platform::ScratchDirectory directory;
            tell(ends[1], directory.path());
            std::raise(signal);
            tell(ends[1], " alive");
        }
        tell(ends[1], " still alive");
        _exit(0);
    }
    close(ends[1]);
    Child child;
    std::array<char, 256> block{};
    for (ssize_t count = 0; (count = read(ends[0], block.data(), block.size())) > 0;) {
        child.told.append(block.data(), static_cast<std::size_t>(count));
    }
    close(ends[0]);
    waitpid(process, &child.status, 0);
    return child;
}

TEST(ScratchDirectory, AnInterruptWaitsUntilItIsGone) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const Child child = interrupted(signal);
        EXPECT_TRUE(WIFSIGNALED(child.status)) << signal;
        EXPECT_EQ(WTERMSIG(child.status), signal);
        const std::string_view end = " alive";
        ASSERT_TRUE(child.told.ends_with(end)) << child.told;
        const std::string path = child.told.substr(0, child.told.size() - end.size());
        EXPECT_EQ(path.find(end), std::string::npos) << path;
        EXPECT_FALSE(std::filesystem::exists(path)) << path;
    }
}

TEST(ScratchDirectory, IsForItsUserAlone) {
    const platform::ScratchDirectory directory;
    struct stat status {};
    ASSERT_EQ(stat(directory.path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST(ScratchDirectory, TellsWhyThereCanBeNone) {
    const char* const before = std::getenv("TMPDIR");
    const std::string kept = before == nullptr ? "" : before;
    setenv("TMPDIR", "/proc", 1);
    std::string reason;
    try {
        const platform::ScratchDirectory directory;
    } catch (const std::runtime_error& error) {
        reason = error.what();
    }
    if (before == nullptr) {
        unsetenv("TMPDIR");
    } else {
        setenv("TMPDIR", kept.c_str(), 1);
    }
    EXPECT_EQ(reason.substr(0, 33), "cannot make a directory in /proc:");
}

} // namespace
} // namespace korvat::test
