// Processes beside this one on Windows, shown with the program itself.
#include "platform/processes.hpp"

#include "support/scratch_directory.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using platform::Processes;
using platform::StartFault;

constexpr double long_enough = 120.0;

class ProcessesWindows : public testing::Test {
protected:
    [[nodiscard]] std::string directory() const { return scratch_.path().generic_string(); }

    [[nodiscard]] StartFault::Cause cause_of(const std::string& program, const std::string& place) {
        const auto started = processes_.start(program, place);
        if (const auto* const fault = std::get_if<StartFault>(&started)) return fault->cause;
        ADD_FAILURE() << "it was started";
        return StartFault::Cause::machine;
    }

    ScratchDirectory scratch_;
    Processes processes_;
};

// There is no deck.
TEST_F(ProcessesWindows, RunInTheirDirectory) {
    ASSERT_TRUE(std::holds_alternative<int>(processes_.start(KORVAT_PROGRAM, directory())));
    EXPECT_EQ(processes_.running(), 1U);
    const auto end = processes_.wait(long_enough);
    ASSERT_TRUE(end.has_value());
    EXPECT_FALSE(end->is_crash);
    EXPECT_EQ(end->exit_code, 1);
    EXPECT_EQ(end->standard_error.find("korvat: KORVAT.INP: SR/CONTRL  FILE KORVAT.INP OPEN"), 0U);
    EXPECT_TRUE(scratch_.has("KORVAT.MLG"));
    EXPECT_EQ(processes_.running(), 0U);
}

TEST_F(ProcessesWindows, TellWhyTheyCannotBeStarted) {
    using Cause = StartFault::Cause;
    scratch_.write_file("file", "no program");
    EXPECT_EQ(cause_of(KORVAT_PROGRAM, directory() + "/none"), Cause::directory);
    EXPECT_EQ(cause_of(KORVAT_PROGRAM, directory() + "/file"), Cause::directory);
    EXPECT_EQ(cause_of(directory() + "/none.exe", directory()), Cause::program);
    EXPECT_EQ(cause_of(directory() + "/file", directory()), Cause::program);
}

TEST_F(ProcessesWindows, OneRunsInADirectoryAtATime) {
    ASSERT_TRUE(std::holds_alternative<int>(processes_.start(KORVAT_PROGRAM, directory())));
    EXPECT_EQ(cause_of(KORVAT_PROGRAM, directory()), StartFault::Cause::held);
    EXPECT_TRUE(processes_.wait(long_enough).has_value());
    ASSERT_TRUE(std::holds_alternative<int>(processes_.start(KORVAT_PROGRAM, directory())));
    EXPECT_TRUE(processes_.wait(long_enough).has_value());
}

TEST_F(ProcessesWindows, OneThatIsEndedHasCrashed) {
    const auto started = processes_.start(KORVAT_PROGRAM, directory());
    ASSERT_TRUE(std::holds_alternative<int>(started));
    processes_.end(std::get<int>(started));
    const auto end = processes_.wait(long_enough);
    ASSERT_TRUE(end.has_value());
    EXPECT_TRUE(end->is_crash);
}

} // namespace
} // namespace korvat::test
