// The program on a desktop: its window while it runs, its exit codes as the system has them (Windows).
#include <winsock2.h>

#include "../support/case.hpp"
#include "../support/expected_page.hpp"
#include "../support/process_windows.hpp"
#include "../support/scratch_directory.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <iphlpapi.h>
#include <optional>
#include <string>
#include <vector>

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

// The largest deck runs long enough for the window to be seen; on a busy machine a run may end
// unseen all the same, and another is started.
TEST_F(OnTheDesktop, ARunShowsAMinimisedDisabledWindow) {
    copy_deck(std::filesystem::path(KORVAT_EXAMPLES_DIR) / "limits");
    constexpr int most_runs = 20;
    std::optional<Process> started;
    HWND window = nullptr;
    for (int i = 0; i < most_runs && window == nullptr; ++i) {
        started.emplace(KORVAT_PROGRAM, directory.path(), streams.path() / "output",
                        streams.path() / "error");
        while (window == nullptr && started->is_running()) {
            window = window_of(started->number());
        }
        started->hold();
        if (!started->is_running()) window = nullptr;
    }
    ASSERT_NE(window, nullptr) << "no window before the end of any run";
    const Process& process = *started;
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

// The value of a line of the identification page; line ends and blanks around it are dropped.
std::string page_value(const std::string& log, const std::string& label) {
    const std::size_t start = log.find("    " + label);
    if (start == std::string::npos) return "(no " + label + ")";
    const std::size_t end = log.find('\n', start);
    const std::string value = log.substr(start + 4 + label.size(), end - start - 4 - label.size());
    return value.substr(0, value.find_last_not_of(' ') + 1);
}

std::string narrow(const std::wstring& text) {
    return {text.begin(), text.end()};
}

// What the system says when it is asked by other calls than the program's.
TEST_F(OnTheDesktop, TheIdentificationPageTellsOfTheSystem) {
    ASSERT_TRUE(SetEnvironmentVariableW(L"USERNAME", L"A user with a name beyond 20"));
    copy_deck(std::filesystem::path(KORVAT_EXAMPLES_DIR) / "jacket");
    EXPECT_EQ(Process(KORVAT_PROGRAM, directory.path(), streams.path() / "output",
                      streams.path() / "error")
                  .exit_code(),
              0U);
    const std::string log = directory.read_file("KORVAT.MLG");
    EXPECT_EQ(page_value(log, "Program id   : "), "Korvat 7.6.0.81");
    EXPECT_EQ(page_value(log, "User id      : "), "A user with a name b");

    wchar_t computer[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    ASSERT_TRUE(GetComputerNameW(computer, &size));
    std::string machine = narrow(computer);
    machine.resize(25, ' ');
    const DWORD processors = GetActiveProcessorCount(ALL_PROCESSOR_GROUPS);
    EXPECT_EQ(page_value(log, "Computer         : "),
              machine + " 8664, " + std::to_string(processors) + " cores");

    OSVERSIONINFOEXW version{};
    version.dwOSVersionInfoSize = sizeof version;
    ASSERT_TRUE(GetVersionExW(reinterpret_cast<OSVERSIONINFOW*>(&version)));
    const std::string system = page_value(log, "Operating system : ");
    EXPECT_EQ(system.substr(0, 7), "Windows");
    if (version.dwMajorVersion == 6 && version.dwMinorVersion == 1) {
        EXPECT_EQ(system, version.wProductType == VER_NT_WORKSTATION ? "Windows 7"
                                                                     : "Windows Server 2008 R2");
    }

    ULONG bytes = 0;
    GetAdaptersInfo(nullptr, &bytes);
    std::vector<IP_ADAPTER_INFO> adapters(bytes / sizeof(IP_ADAPTER_INFO) + 1);
    std::vector<std::string> numbers;
    if (GetAdaptersInfo(adapters.data(), &bytes) == NO_ERROR) {
        for (const IP_ADAPTER_INFO* one = adapters.data(); one != nullptr; one = one->Next) {
            const BYTE* const a = one->Address;
            const unsigned number =
                ((a[3] * 0x1000000U) + (a[2] * 0x10000U) + (a[5] * 0x100U) + a[4]) & 0x7FFFFFFFU;
            std::string digits = std::to_string(number);
            digits.insert(0, 10 - digits.size(), '0');
            numbers.push_back(digits);                 // the last adapter's number is positive,
            numbers.push_back("-" + digits.substr(1)); // another's is negative, in nine digits
        }
    }
    if (numbers.empty()) numbers.push_back("0000000000");
    const std::string found = page_value(log, "CPU id           : ");
    EXPECT_NE(std::find(numbers.begin(), numbers.end(), found), numbers.end()) << found;

    // With these, every line of the page, release date and access time among them.
    const HostFacts host = {.user = "A user with a name beyond 20",
                            .computer = narrow(computer),
                            .processor = "8664, " + std::to_string(processors) + " cores",
                            .operating_system = system,
                            .host_number = found};
    const std::vector<std::string> page = page_of_log(log);
    ASSERT_EQ(page.size(), 40U);
    EXPECT_EQ(std::vector<std::string>(page.begin() + 12, page.end()), expected_page(log, host));
}

// A program that a desktop starts has no standard output, where a log goes that cannot be made.
TEST_F(OnTheDesktop, ABlockedLogLeavesTheExitCode) {
    copy_deck(std::filesystem::path(KORVAT_EXAMPLES_DIR) / "jacket");
    directory.write_file("KORVAT.MLG", "earlier");
    std::filesystem::create_directories(directory.path() / "KORVAT.MLG.bak" / "held");
    const auto error = streams.path() / "error";
    EXPECT_EQ(Process(KORVAT_PROGRAM, directory.path(), {}, error).exit_code(), 0U);
    const std::string told = streams.read_file("error");
    EXPECT_TRUE(told.starts_with("korvat: warning: cannot open KORVAT.MLG: cannot rename it to "
                                 "KORVAT.MLG.bak: "))
        << told;
    EXPECT_NE(told.find("korvat: warning: cannot write standard output: "), std::string::npos)
        << told;
    EXPECT_GT(directory.read_file("PILE.07").size(), 1000U);
    EXPECT_EQ(directory.read_file("KORVAT.MLG"), "earlier");
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
