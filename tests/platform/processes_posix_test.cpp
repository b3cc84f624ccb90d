// Processes beside this one: how they end, what they write, and what becomes of what they start.
#include "platform/processes.hpp"

#include "support/scratch_directory.hpp"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace korvat::test {
namespace {

using platform::ProcessEnd;
using platform::Processes;
using platform::StartFault;

constexpr double long_enough = 60.0;

class ProcessesPosix : public testing::Test {
protected:
    // A program of the test, executable.
    [[nodiscard]] std::string script(const std::string& body) const {
        const auto path = scratch_.path() / "program";
        scratch_.write_file("program", "#!/bin/sh\n" + body);
        chmod(path.c_str(), 0755);
        return path.string();
    }

    [[nodiscard]] std::string directory() const { return scratch_.path().string(); }

    [[nodiscard]] ProcessEnd end_of(const std::string& body) {
        const auto started = processes_.start(script(body), directory());
        EXPECT_TRUE(std::holds_alternative<int>(started));
        const auto end = processes_.wait(long_enough);
        EXPECT_TRUE(end.has_value());
        return end.value_or(ProcessEnd{});
    }

    [[nodiscard]] StartFault fault_of(const std::string& program, const std::string& place) {
        const auto started = processes_.start(program, place);
        if (const auto* const fault = std::get_if<StartFault>(&started)) return *fault;
        ADD_FAILURE() << "it was started";
        return {};
    }

    ScratchDirectory scratch_;
    Processes processes_;
};

TEST_F(ProcessesPosix, RunInTheirDirectoryWithNothingToRead) {
    const ProcessEnd end = end_of("pwd > where; cat > read; echo lost; exit 7\n");
    EXPECT_FALSE(end.is_crash);
    EXPECT_EQ(end.exit_code, 7);
    EXPECT_EQ(end.standard_error, "");
    EXPECT_EQ(scratch_.read_file("where"),
              std::filesystem::canonical(scratch_.path()).string() + "\n");
    EXPECT_EQ(scratch_.read_file("read"), "");
}

TEST_F(ProcessesPosix, ASignalIsACrash) {
    const ProcessEnd end = end_of("kill -SEGV $$\n");
    EXPECT_TRUE(end.is_crash);
    EXPECT_EQ(end.exit_code, 128 + SIGSEGV);
}

// More than a pipe holds: whoever did not read on would wait for ever.
TEST_F(ProcessesPosix, TheBeginningOfStandardErrorIsKept) {
    const ProcessEnd end =
        end_of("echo first >&2; head -c 300000 /dev/zero | tr '\\0' x >&2; exit 1\n");
    EXPECT_EQ(end.exit_code, 1);
    EXPECT_EQ(end.standard_error, "first\n" + std::string(65536 - 6, 'x'));
}

TEST_F(ProcessesPosix, RunSideBySide) {
    // Each waits for the other.
    std::filesystem::create_directory(scratch_.path() / "one");
    std::filesystem::create_directory(scratch_.path() / "two");
    const std::string program =
        script("touch here; while [ ! -e ../one/here -o ! -e ../two/here ]; do :; done\n");
    const auto one = processes_.start(program, directory() + "/one");
    const auto two = processes_.start(program, directory() + "/two");
    EXPECT_EQ(processes_.running(), 2U);
    ASSERT_TRUE(std::holds_alternative<int>(one) && std::holds_alternative<int>(two));
    EXPECT_NE(std::get<int>(one), std::get<int>(two));
    EXPECT_TRUE(processes_.wait(long_enough).has_value());
    EXPECT_TRUE(processes_.wait(long_enough).has_value());
    EXPECT_EQ(processes_.running(), 0U);
}

TEST_F(ProcessesPosix, AreEndedWithAllThatTheyHaveStarted) {
    const auto started = processes_.start(
        script("sleep 1000 & echo $! > child.new; mv child.new child; wait\n"), directory());
    ASSERT_TRUE(std::holds_alternative<int>(started));
    while (!scratch_.has("child"))
        EXPECT_FALSE(processes_.wait(0.001).has_value());
    processes_.end(std::get<int>(started));
    const auto end = processes_.wait(long_enough);
    ASSERT_TRUE(end.has_value());
    EXPECT_EQ(end->exit_code, 128 + SIGKILL);
    // Nobody may be there to take the end of the child: then its status says that it has ended.
    const pid_t child = std::stoi(scratch_.read_file("child"));
    const std::string status = "/proc/" + std::to_string(child) + "/stat";
    const auto is_gone = [&] {
        if (kill(child, 0) != 0) return true;
        std::string text;
        try {
            text = read_whole_file(status);
        } catch (const std::runtime_error&) {
            return true;
        }
        return text.find(") Z ") != std::string::npos;
    };
    while (!is_gone()) {
    }
}

TEST_F(ProcessesPosix, TellWhyTheyCannotBeStarted) {
    using Cause = StartFault::Cause;
    const std::string program = script("exit 0\n");
    EXPECT_EQ(fault_of(program, directory() + "/none").cause, Cause::directory);
    EXPECT_EQ(fault_of(program, program).cause, Cause::directory); // a file
    const StartFault missing = fault_of(directory() + "/none", directory());
    EXPECT_EQ(missing.cause, Cause::program);
    EXPECT_EQ(missing.reason, "No such file or directory");
    scratch_.write_file("program", "neither a script nor a program\n");
    EXPECT_EQ(fault_of(directory() + "/program", directory()).reason, "Exec format error");
    chmod((scratch_.path() / "program").c_str(), 0644);
    EXPECT_EQ(fault_of(directory() + "/program", directory()).reason, "Permission denied");
    EXPECT_EQ(processes_.running(), 0U);
}

TEST_F(ProcessesPosix, OneRunsInADirectoryAtATime) {
    const std::string program = script("while [ ! -e go ]; do :; done\n");
    ASSERT_TRUE(std::holds_alternative<int>(processes_.start(program, directory())));
    EXPECT_EQ(fault_of(program, directory() + "/.").cause, StartFault::Cause::held);
    scratch_.write_file("go", "");
    EXPECT_TRUE(processes_.wait(long_enough).has_value());
    EXPECT_TRUE(std::holds_alternative<int>(processes_.start(program, directory())));
    EXPECT_TRUE(processes_.wait(long_enough).has_value());
}

// When this program is killed, the process still has the lock of its directory.
TEST_F(ProcessesPosix, AProcessHoldsItsDirectoryItself) {
    const ProcessEnd end = end_of("flock -n -x . true && echo free >&2\n"
                                  "flock -n -x 3 || exit 4\n"
                                  "[ \"$(readlink /proc/$$/fd/3)\" = \"$(pwd -P)\" ] || exit 5\n");
    EXPECT_EQ(end.exit_code, 0);
    EXPECT_EQ(end.standard_error, "");
}

TEST_F(ProcessesPosix, ARequestToEndIsNoted) {
    ASSERT_TRUE(std::holds_alternative<int>(
        processes_.start(script("while :; do :; done\n"), directory())));
    EXPECT_EQ(processes_.end_request(), 0);
    raise(SIGTERM);
    EXPECT_FALSE(processes_.wait(long_enough).has_value());
    EXPECT_EQ(processes_.end_request(), SIGTERM);
}

TEST_F(ProcessesPosix, WaitNoLongerThanAsked) {
    ASSERT_TRUE(std::holds_alternative<int>(
        processes_.start(script("while [ ! -e go ]; do :; done\n"), directory())));
    EXPECT_FALSE(processes_.wait(0.0).has_value());
    EXPECT_FALSE(processes_.wait(0.01).has_value());
    scratch_.write_file("go", "");
    EXPECT_TRUE(processes_.wait(long_enough).has_value());
}

TEST(ProcessesMostAtOnce, LeavesRoomForTheFilesOfEach) {
    EXPECT_GE(Processes::most_at_once(), 1);
    EXPECT_LE(Processes::most_at_once(), 1000);
}

} // namespace
} // namespace korvat::test
