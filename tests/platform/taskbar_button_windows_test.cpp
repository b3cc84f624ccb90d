// The taskbar button: what the desktop knows of it, and what happens when it is refused (Windows).
#include "platform/taskbar_button.hpp"

#include "run/entry.hpp"
#include "run/run_fixture.hpp"
#include "support/import_windows.hpp"
#include "support/process_windows.hpp"

#include <string>
#include <vector>
#include <windows.h>

namespace korvat::test {
namespace {

constexpr const wchar_t* class_name = L"WindowClass";
constexpr const wchar_t* title = L"Tolvan";

std::wstring text_of(HWND window) {
    wchar_t text[100] = {};
    GetWindowTextW(window, text, 100);
    return text;
}

TEST(TaskbarButton, IsAMinimisedDisabledWindow) {
    const auto button = platform::show_taskbar_button();
    ASSERT_NE(button, nullptr);
    const HWND window = FindWindowW(class_name, title);
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(IsIconic(window));
    EXPECT_FALSE(IsWindowEnabled(window));
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(GetParent(window), nullptr);
    EXPECT_EQ(GetMenu(window), nullptr);
    EXPECT_NE(GetForegroundWindow(), window);
    EXPECT_EQ(GetWindowThreadProcessId(window, nullptr), GetCurrentThreadId());
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    ASSERT_TRUE(GetWindowPlacement(window, &placement));
    EXPECT_EQ(placement.showCmd, static_cast<UINT>(SW_SHOWMINIMIZED));
}

TEST(TaskbarButton, HasItsClass) {
    const auto button = platform::show_taskbar_button();
    WNDCLASSEXW found{};
    found.cbSize = sizeof found;
    ASSERT_TRUE(GetClassInfoExW(GetModuleHandleW(nullptr), class_name, &found));
    EXPECT_EQ(found.style, 0x20000U); // drop shadow
    EXPECT_EQ(found.lpfnWndProc, DefWindowProcW);
    EXPECT_EQ(found.hCursor, LoadCursorW(nullptr, MAKEINTRESOURCEW(32512)));
    EXPECT_EQ(found.hbrBackground, GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(found.cbClsExtra, 0);
    EXPECT_EQ(found.cbWndExtra, 0);
    EXPECT_EQ(found.lpszMenuName, nullptr);
}

// The tests' program has the resources of the program itself.
TEST(TaskbarButton, HasTheIcon101) {
    const auto button = platform::show_taskbar_button();
    WNDCLASSEXW found{};
    found.cbSize = sizeof found;
    ASSERT_TRUE(GetClassInfoExW(GetModuleHandleW(nullptr), class_name, &found));
    ASSERT_NE(found.hIcon, nullptr);
    EXPECT_EQ(found.hIcon, LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(101)));
}

struct ShellCall {
    HWND owner;
    std::wstring verb, file;
    bool has_parameters, has_directory;
    int show;
};

std::vector<ShellCall>& shell_calls() {
    static std::vector<ShellCall> calls;
    return calls;
}

HINSTANCE WINAPI note_shell_call(HWND owner, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters,
                                 LPCWSTR directory, INT show) {
    shell_calls().push_back({owner, verb, file, parameters != nullptr, directory != nullptr, show});
    return nullptr;
}

TEST(TaskbarButton, HasTheShellCarryOutCmdOnExitHidden) {
    shell_calls().clear();
    const ReplacedImport shell("ShellExecuteW", reinterpret_cast<void*>(note_shell_call));
    EXPECT_NE(platform::show_taskbar_button(), nullptr);
    ASSERT_EQ(shell_calls().size(), 1U);
    const ShellCall& call = shell_calls().front();
    EXPECT_EQ(call.owner, nullptr);
    EXPECT_EQ(call.verb, L"cmd");
    EXPECT_EQ(call.file, L"exit");
    EXPECT_FALSE(call.has_parameters);
    EXPECT_FALSE(call.has_directory);
    EXPECT_EQ(call.show, 0);
}

TEST(TaskbarButton, IsGoneWithItsOwner) {
    for (int i = 0; i < 2; ++i) {
        const auto button = platform::show_taskbar_button();
        EXPECT_NE(button, nullptr);
        EXPECT_NE(FindWindowW(class_name, title), nullptr);
    }
    EXPECT_EQ(FindWindowW(class_name, title), nullptr);
    WNDCLASSEXW found{};
    found.cbSize = sizeof found;
    EXPECT_FALSE(GetClassInfoExW(GetModuleHandleW(nullptr), class_name, &found));
}

// Takes the class's name, so that the program cannot have it.
class TakenClass {
public:
    TakenClass() {
        WNDCLASSW other{};
        other.lpfnWndProc = DefWindowProcW;
        other.hInstance = GetModuleHandleW(nullptr);
        other.lpszClassName = class_name;
        RegisterClassW(&other);
    }
    ~TakenClass() { UnregisterClassW(class_name, GetModuleHandleW(nullptr)); }
    TakenClass(const TakenClass&) = delete;
    TakenClass& operator=(const TakenClass&) = delete;
};

struct MessageBoxSeen {
    bool seen = false;
    std::wstring caption;
    std::vector<std::wstring> texts; // of its controls
    int buttons = 0;
    bool has_exclamation = false;
};

BOOL CALLBACK note_control(HWND control, LPARAM target) {
    auto& box = *reinterpret_cast<MessageBoxSeen*>(target);
    const std::wstring text = text_of(control);
    if (!text.empty()) box.texts.push_back(text);
    wchar_t control_class[20] = {};
    GetClassNameW(control, control_class, 20);
    if (std::wstring(control_class) == L"Button") ++box.buttons;
    const auto icon = reinterpret_cast<HICON>(SendMessageW(control, STM_GETICON, 0, 0));
    if (icon != nullptr && icon == LoadIconW(nullptr, MAKEINTRESOURCEW(32515))) {
        box.has_exclamation = true;
    }
    return TRUE;
}

// Waits for the message box, notes it and presses its button.
DWORD WINAPI answer_message_box(void* target) {
    auto& box = *static_cast<MessageBoxSeen*>(target);
    HWND window = nullptr;
    constexpr int attempts = 2000; // 20 s
    for (int i = 0; i < attempts && (window == nullptr || !IsWindowVisible(window)); ++i) {
        Sleep(10);
        window = FindWindowW(L"#32770", title); // the class of dialogues
    }
    if (window == nullptr) return 0;
    box.seen = true;
    box.caption = text_of(window);
    EnumChildWindows(window, note_control, reinterpret_cast<LPARAM>(&box));
    PostMessageW(window, WM_COMMAND, IDOK, 0);
    return 0;
}

class RefusedButton : public RunTest {};

TEST_F(RefusedButton, TellsTheUserAndEndsWith1) {
    directory.write_file("KORVAT.INP", small_deck);
    directory.write_file("KORVAT.MLG", "earlier\n");
    const TakenClass taken;
    MessageBoxSeen box;
    const Handle observer(CreateThread(nullptr, 0, answer_message_box, &box, 0, nullptr));
    ASSERT_TRUE(observer.valid());
    EXPECT_EQ(run_program(0, nullptr).exit_code, 1);
    WaitForSingleObject(observer.get(), INFINITE);
    ASSERT_TRUE(box.seen);
    EXPECT_EQ(box.caption, title);
    EXPECT_NE(std::find(box.texts.begin(), box.texts.end(), L"Window Registration Failed!"),
              box.texts.end());
    EXPECT_EQ(box.buttons, 1);
    EXPECT_NE(std::find(box.texts.begin(), box.texts.end(), L"OK"), box.texts.end());
    EXPECT_TRUE(box.has_exclamation);
    // No file is touched.
    EXPECT_EQ(directory.list(), (std::vector<std::string>{"KORVAT.INP", "KORVAT.MLG"}));
    EXPECT_EQ(directory.read_file("KORVAT.INP"), small_deck);
    EXPECT_EQ(directory.read_file("KORVAT.MLG"), "earlier\n");
    EXPECT_EQ(FindWindowW(class_name, title), nullptr);
}

} // namespace
} // namespace korvat::test
