// The taskbar button on a system without a taskbar: it needs nothing and shows nothing.
#include "platform/taskbar_button.hpp"

#include "run/entry.hpp"
#include "run/run_fixture.hpp"
#include "support/environment.hpp"

#include <cstdlib>
#include <set>
#include <string>

namespace korvat::test {
namespace {

// Names of the entries of a directory of the process: its open files, its threads.
std::set<std::string> entries(const std::string& name) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/" + name))
        names.insert(entry.path().filename());
    return names;
}

// A connection to a desktop would be an open file or a thread.
TEST(TaskbarButton, OpensNothing) {
    const auto files = entries("fd");
    const auto threads = entries("task");
    const auto button = platform::show_taskbar_button();
    EXPECT_NE(button, nullptr);
    EXPECT_EQ(entries("fd"), files);
    EXPECT_EQ(entries("task"), threads);
}

class RunWithoutDesktop : public RunTest {
protected:
    RunWithoutDesktop() {
        if (const char* const display = std::getenv("DISPLAY")) former_ = display;
        set_environment_variable("DISPLAY", ":no-such-display");
    }
    ~RunWithoutDesktop() override {
        unset_environment_variable("DISPLAY");
        if (!former_.empty()) set_environment_variable("DISPLAY", former_);
    }

private:
    std::string former_;
};

// A button that is refused would end the run with code 1 and without a file.
TEST_F(RunWithoutDesktop, IsNotRefused) {
    directory.write_file("KORVAT.INP", small_deck);
    const RunEnd end = run_program(0, nullptr);
    EXPECT_EQ(end.exit_code, 0);
    EXPECT_EQ(end.report, "");
    EXPECT_TRUE(directory.has("PILE.07"));
}

} // namespace
} // namespace korvat::test
