// A program that runs beside the test (Windows).
#include "process_windows.hpp"

#include <stdexcept>
#include <string>

namespace korvat::test {

namespace {

HANDLE open_inheritable(const std::filesystem::path& file, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES attributes{};
    attributes.nLength = sizeof attributes;
    attributes.bInheritHandle = TRUE;
    return CreateFileW(file.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &attributes,
                       disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

} // namespace

// The streams are files: none can block the program, however much it writes.
Process::Process(const std::filesystem::path& program, const std::filesystem::path& directory,
                 const std::filesystem::path& output, const std::filesystem::path& error) {
    const Handle input_file(open_inheritable(L"NUL", GENERIC_READ, OPEN_EXISTING));
    const bool has_output = !output.empty();
    const Handle output_file(
        open_inheritable(has_output ? output : L"NUL", GENERIC_WRITE, CREATE_ALWAYS));
    const Handle error_file(open_inheritable(error, GENERIC_WRITE, CREATE_ALWAYS));
    if (!input_file.valid() || !output_file.valid() || !error_file.valid()) {
        throw std::runtime_error("cannot make the files of the standard streams");
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = input_file.get();
    startup.hStdOutput = has_output ? output_file.get() : nullptr;
    startup.hStdError = error_file.get();
    const std::filesystem::path absolute = std::filesystem::absolute(program);
    std::wstring command = L"\"" + absolute.wstring() + L"\""; // the system may write into it
    // Wine may refuse a program at first when it starts many at once; none has then been started.
    constexpr int attempts = 5;
    for (int i = 0; i < attempts; ++i) {
        if (CreateProcessW(absolute.c_str(), command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                           directory.c_str(), &startup, &information_) != FALSE) {
            return;
        }
    }
    throw std::runtime_error("cannot start " + absolute.string() + ", error " +
                             std::to_string(GetLastError()));
}

Process::~Process() {
    if (is_running()) TerminateProcess(information_.hProcess, 1);
    CloseHandle(information_.hThread);
    CloseHandle(information_.hProcess);
}

bool Process::is_running() const {
    return WaitForSingleObject(information_.hProcess, 0) == WAIT_TIMEOUT;
}

void Process::hold() const {
    SuspendThread(information_.hThread);
}

void Process::release() const {
    ResumeThread(information_.hThread);
}

DWORD Process::exit_code() const {
    DWORD code = 0;
    if (WaitForSingleObject(information_.hProcess, INFINITE) != WAIT_OBJECT_0 ||
        GetExitCodeProcess(information_.hProcess, &code) == FALSE) {
        throw std::runtime_error("cannot wait for the program");
    }
    return code;
}

} // namespace korvat::test
