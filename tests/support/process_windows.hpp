// A program that runs beside the test (Windows).
#pragma once

#include <filesystem>
#include <windows.h>

namespace korvat::test {

// Closes a handle of the system.
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

// Runs in a directory, without arguments, with its streams on these files; without standard output when
// there is no name, as a program is that a desktop starts. The constructor throws
// std::runtime_error when the program cannot be started; the destructor ends it.
class Process {
public:
    Process(const std::filesystem::path& program, const std::filesystem::path& directory,
            const std::filesystem::path& output, const std::filesystem::path& error);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    [[nodiscard]] DWORD number() const { return information_.dwProcessId; }
    [[nodiscard]] bool is_running() const;
    // Holds the program where it is, and lets it go on.
    void hold() const;
    void release() const;
    // Waits for the end; the exit code as the system has it.
    [[nodiscard]] DWORD exit_code() const;

private:
    PROCESS_INFORMATION information_{};
};

} // namespace korvat::test
