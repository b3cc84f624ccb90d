// The program on a desktop: its window while it runs, its exit codes as the system has them (Windows).
#include "../support/case.hpp"
#include "../support/process_windows.hpp"
#include "../support/scratch_directory.hpp"

#include <gtest/gtest.h>
#include <string>

namespace korvat::test {
namespace {

struct WindowOfProcess {
    DWORD process = 0;
    HWND window = nullptr;
};

BOOL CALLBACK note_window(HWND window, LPARAM target) {
    auto& sought = *reinterpret_cast<WindowOfProcess*>(target);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != sought.process || !IsWindowVisible(window)) return TRUE;
    sought.window = window;
    return FALSE;
}

// The visible window of a process; null without one.
HWND window_of(DWORD process) {
    WindowOfProcess sought{.process = process};
    EnumWindows(note_window, reinterpret_cast<LPARAM>(&sought));
    return sought.window;
}

std::wstring text_of(HWND window) {
    wchar_t text[100] = {};
    GetWindowTextW(window, text, 100);
    return text;
}

std::wstring class_of(HWND window) {
    wchar_t text[100] = {};
    GetClassNameW(window, text, 100);
    return text;
}

class OnTheDesktop : public testing::Test {
protected:
    void copy_deck(const std::filesystem::path& folder) {
        const auto target = directory.path() / "KORVAT.INP";
        std::filesystem::copy_file(folder / "KORVAT.INP", target,
                                   std::filesystem::copy_options::overwrite_existing);
    }
    DWORD code_of_case(const std::string& name) {
        copy_deck(std::filesystem::path(KORVAT_CASES_DIR) / name);
        return Process(KORVAT_PROGRAM, directory.path(), streams.path() / "output",
                       streams.path() / "error")
            .exit_code();
    }

    ScratchDirectory directory;
    ScratchDirectory streams;
};

// The largest deck runs long enough for the window to be seen.
TEST_F(OnTheDesktop, ARunShowsAMinimisedDisabledWindow) {
    copy_deck(std::filesystem::path(KORVAT_EXAMPLES_DIR) / "limits");
    const Process process(KORVAT_PROGRAM, directory.path(), streams.path() / "output",
                          streams.path() / "error");
    HWND window = nullptr;
    while (window == nullptr && process.is_running()) {
        window = window_of(process.number());
    }
    process.hold();
    ASSERT_NE(window, nullptr) << "no window before the end of the run";
    ASSERT_TRUE(process.is_running());
    EXPECT_EQ(text_of(window), L"Tolvan");
    EXPECT_EQ(class_of(window), L"WindowClass");
    EXPECT_FALSE(IsWindowEnabled(window));
    EXPECT_TRUE(IsIconic(window));
    EXPECT_EQ(GetClassLongW(window, GCL_STYLE) & 0x20000U, 0x20000U);
    EXPECT_EQ(GetWindow(window, GW_OWNER), nullptr);
    EXPECT_NE(GetForegroundWindow(), window);
    process.release();
    EXPECT_EQ(process.exit_code(), 0U);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(window_of(process.number()), nullptr);
}

TEST_F(OnTheDesktop, ExitCodesAreThoseOfTheRun) {
    EXPECT_EQ(code_of_case("revision-4"), 0U);
    EXPECT_EQ(code_of_case("build-tip-code"), 1U);
    EXPECT_EQ(code_of_case("save-displacement-on-dummy"), 2U);
    EXPECT_EQ(code_of_case("revision-date-none"), 0xFFFFFFFFU); // -1
    std::filesystem::remove(directory.path() / "KORVAT.INP");
    EXPECT_EQ(Process(KORVAT_PROGRAM, directory.path(), streams.path() / "output",
                      streams.path() / "error")
                  .exit_code(),
              1U);
}

TEST_F(OnTheDesktop, RunsInAFolderWithBlanksAndOtherLetters) {
    const std::filesystem::path folder = directory.path() / L"B\u00FCro S\u00FCd \u6869";
    std::filesystem::create_directory(folder);
    std::filesystem::copy_file(std::filesystem::path(KORVAT_EXAMPLES_DIR) / "jacket/KORVAT.INP",
                               folder / "KORVAT.INP");
    for (int run = 1; run <= 2; ++run) {
        const Process process(KORVAT_PROGRAM, folder, streams.path() / "output",
                              streams.path() / "error");
        EXPECT_EQ(process.exit_code(), 0U);
    }
    for (const char* const name : {"KORVAT.MLG", "KORVAT.LIS", "PILEPLOT.TXT"}) {
        EXPECT_TRUE(std::filesystem::exists(folder / name)) << name;
        EXPECT_TRUE(std::filesystem::exists(folder / (std::string(name) + ".bak"))) << name;
    }
}

} // namespace
} // namespace korvat::test
