// Runs a program in a directory and keeps what it wrote to its standard streams (Windows).
#include "program.hpp"

#include "scratch_directory.hpp"

#include <stdexcept>
#include <windows.h>

namespace korvat::test {

namespace {

class Handle {
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() {
        if (valid()) CloseHandle(handle_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    [[nodiscard]] HANDLE get() const { return handle_; }
    [[nodiscard]] bool valid() const {
        return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE;
    }

private:
    HANDLE handle_;
};

SECURITY_ATTRIBUTES inheritable() {
    return {.nLength = sizeof(SECURITY_ATTRIBUTES),
            .lpSecurityDescriptor = nullptr,
            .bInheritHandle = TRUE};
}

HANDLE open_inheritable(const std::filesystem::path& file, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES attributes = inheritable();
    return CreateFileW(file.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &attributes,
                       disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

// Starts the program and waits for its end. Its streams are files: none can block it, however much
// it writes.
DWORD exit_code_of(const std::filesystem::path& program, const std::filesystem::path& directory,
                   const std::filesystem::path& output, const std::filesystem::path& error) {
    const Handle input_file(open_inheritable(L"NUL", GENERIC_READ, OPEN_EXISTING));
    const Handle output_file(open_inheritable(output, GENERIC_WRITE, CREATE_ALWAYS));
    const Handle error_file(open_inheritable(error, GENERIC_WRITE, CREATE_ALWAYS));
    if (!input_file.valid() || !output_file.valid() || !error_file.valid()) {
        throw std::runtime_error("cannot make the files of the standard streams");
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = input_file.get();
    startup.hStdOutput = output_file.get();
    startup.hStdError = error_file.get();
    std::wstring command = L"\"" + program.wstring() + L"\""; // the system may write into it
    PROCESS_INFORMATION process{};
    const BOOL started = CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, TRUE, 0,
                                        nullptr, directory.c_str(), &startup, &process);
    if (started == FALSE) throw std::runtime_error("cannot start " + program.string());
    const Handle thread(process.hThread);
    const Handle running(process.hProcess);
    DWORD code = 0;
    if (WaitForSingleObject(running.get(), INFINITE) != WAIT_OBJECT_0 ||
        GetExitCodeProcess(running.get(), &code) == FALSE) {
        throw std::runtime_error("cannot wait for " + program.string());
    }
    return code;
}

} // namespace

int run_program(const std::filesystem::path& program, const std::filesystem::path& directory,
                ProgramOutput& output) {
    const ScratchDirectory streams;
    const DWORD code =
        exit_code_of(std::filesystem::absolute(program), directory,
                     streams.path() / "standard-output", streams.path() / "standard-error");
    output.standard_output = streams.read_file("standard-output");
    output.standard_error = streams.read_file("standard-error");
    // A shell shows the code -1 as 255. The code of a program that died, 0xC0000000 or more, stays
    // as it is: no program of ours ends with it.
    constexpr DWORD minus_one = 0xFFFFFFFF;
    return code == minus_one ? 255 : static_cast<int>(code);
}

} // namespace korvat::test
