// The taskbar button: a minimised, disabled window without a procedure of its own.
#include "platform/taskbar_button.hpp"

#include <windows.h>

#include <shellapi.h>

namespace korvat::platform {
namespace {

constexpr int icon_resource = 101;
constexpr const wchar_t* class_name = L"WindowClass";
constexpr const wchar_t* title = L"Tolvan";

// A resource's number in place of its name, as the system wants it.
const wchar_t* resource(int number) {
    return MAKEINTRESOURCEW(number);
}

bool register_class(HINSTANCE module) {
    WNDCLASSEXW window{};
    window.cbSize = sizeof window;
    window.style = CS_DROPSHADOW;
    window.lpfnWndProc = DefWindowProcW;
    window.hInstance = module;
    window.hIcon = LoadIconW(module, resource(icon_resource));
    window.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    // A stock object of this number is a brush.
    window.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    window.lpszClassName = class_name;
    return RegisterClassExW(&window) != 0;
}

class WindowButton : public TaskbarButton {
public:
    explicit WindowButton(HINSTANCE module)
        : module_(module), window_(CreateWindowExW(0, class_name, title, WS_DISABLED, 0, 0, 0, 0,
                                                   nullptr, nullptr, module, nullptr)) {
        ShowWindow(window_, SW_SHOWMINNOACTIVE);
    }
    ~WindowButton() override {
        DestroyWindow(window_);
        UnregisterClassW(class_name, module_);
    }
    WindowButton(const WindowButton&) = delete;
    WindowButton& operator=(const WindowButton&) = delete;

private:
    HINSTANCE module_;
    HWND window_;
};

} // namespace

std::unique_ptr<TaskbarButton> show_taskbar_button() {
    const HINSTANCE module = GetModuleHandleW(nullptr);
    if (!register_class(module)) {
        MessageBoxW(nullptr, L"Window Registration Failed!", title, MB_ICONEXCLAMATION | MB_OK);
        return nullptr;
    }
    auto button = std::make_unique<WindowButton>(module);
    ShellExecuteW(nullptr, L"cmd", L"exit", nullptr, nullptr, SW_HIDE);
    return button;
}

} // namespace korvat::platform
