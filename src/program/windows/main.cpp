// Program entry.
#include "platform/windows/text.hpp"
#include "program/tell.hpp"

#include <cstdlib>
#include <string>
#include <vector>
#include <windows.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    _set_error_mode(_OUT_TO_STDERR); // a failed assertion ends the run and asks nobody
    const std::vector<const wchar_t*> wide_arguments(__wargv, __wargv + __argc);
    std::vector<std::string> texts;
    std::vector<const char*> arguments;
    for (const wchar_t* const argument : wide_arguments) {
        texts.push_back(korvat::platform::utf8_text(argument));
    }
    for (const std::string& text : texts) {
        arguments.push_back(text.c_str());
    }
    return korvat::tell(korvat::run_program(__argc, arguments.data()));
}
