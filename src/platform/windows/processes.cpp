// Each process belongs to a job, which ends with this program and takes along whatever the process has started.
#include "platform/processes.hpp"

#include "platform/windows/text.hpp"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <csignal>
#include <system_error>
#include <utility>
#include <vector>
#include <windows.h>

namespace korvat::platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr DWORD most_kept = 65536; // bytes of standard error
// A process may fill its pipe while nobody waits for what it writes: it is looked at so often.
constexpr DWORD longest_sleep = 50; // ms

// With this code a process ends that is ended from outside.
constexpr DWORD ended_from_outside = 0xC000013A; // as by Ctrl-C

volatile LONG requested_end = 0;
HANDLE end_event = nullptr;

// Runs in a thread of the system.
BOOL WINAPI note_request(DWORD kind) {
    if (kind == CTRL_LOGOFF_EVENT) return FALSE;
    InterlockedExchange(&requested_end, kind == CTRL_C_EVENT ? SIGINT : SIGTERM);
    SetEvent(end_event);
    return TRUE;
}

std::error_code last_error() {
    return {static_cast<int>(GetLastError()), std::system_category()};
}

class Handle {
public:
    explicit Handle(HANDLE handle = nullptr) : handle_(handle) {}
    ~Handle() {
        if (is_open()) CloseHandle(handle_);
    }
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }

    [[nodiscard]] HANDLE get() const { return handle_; }
    [[nodiscard]] bool is_open() const {
        return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE;
    }

private:
    HANDLE handle_;
};

struct Running {
    int id = 0;
    Handle process;
    Handle job;
    Handle directory; // where it is open, no second run is started in it
    Handle error;
    Clock::time_point start;
    std::string text; // of standard error
};

void drain(Running& running) {
    std::array<char, 4096> block;
    while (true) {
        DWORD waiting = 0;
        if (!PeekNamedPipe(running.error.get(), nullptr, 0, nullptr, &waiting, nullptr)) return;
        if (waiting == 0) return;
        DWORD size = 0;
        const DWORD wanted = std::min<DWORD>(waiting, block.size());
        if (!ReadFile(running.error.get(), block.data(), wanted, &size, nullptr)) return;
        const std::size_t room = most_kept - running.text.size();
        running.text.append(block.data(), std::min<std::size_t>(size, room));
    }
}

StartFault fault(StartFault::Cause cause) {
    return {cause, last_error().message()};
}

// A job that ends all its processes when its last handle is closed.
Handle made_job() {
    Handle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    if (job.is_open()) {
        SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits,
                                sizeof limits);
    }
    return job;
}

// What a process gets of its parent: only these handles.
class Inheritance {
public:
    explicit Inheritance(std::array<HANDLE, 2> handles) : handles_(handles) {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        memory_.resize(size);
        is_made_ = InitializeProcThreadAttributeList(list(), 1, 0, &size) != 0;
        if (is_made_) {
            UpdateProcThreadAttribute(list(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles_.data(),
                                      sizeof handles_, nullptr, nullptr);
        }
    }
    ~Inheritance() {
        if (is_made_) DeleteProcThreadAttributeList(list());
    }
    Inheritance(const Inheritance&) = delete;
    Inheritance& operator=(const Inheritance&) = delete;

    LPPROC_THREAD_ATTRIBUTE_LIST list() {
        return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory_.data());
    }

private:
    std::array<HANDLE, 2> handles_;
    std::vector<char> memory_;
    bool is_made_ = false;
};

// Codes of exceptions are above this one; a process that ends with -1 has not crashed.
bool is_exception(DWORD code) {
    constexpr DWORD first = 0xC0000000;
    return code >= first && code != 0xFFFFFFFF;
}

} // namespace

struct Processes::State {
    Handle asked_to_end;
    Handle nowhere;
    std::vector<Running> running;
    int last_id = 0;

    [[nodiscard]] std::optional<ProcessEnd> reaped();
};

Processes::Processes() : state_(std::make_unique<State>()) {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    state_->asked_to_end = Handle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    state_->nowhere =
        Handle(CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                           &inherited, OPEN_EXISTING, 0, nullptr));
    if (!state_->asked_to_end.is_open() || !state_->nowhere.is_open())
        throw std::system_error(last_error(), "NUL");
    requested_end = 0;
    end_event = state_->asked_to_end.get();
    SetConsoleCtrlHandler(note_request, TRUE);
}

Processes::~Processes() {
    SetConsoleCtrlHandler(note_request, FALSE);
    for (const Running& running : state_->running) {
        TerminateJobObject(running.job.get(), ended_from_outside);
        WaitForSingleObject(running.process.get(), INFINITE);
    }
}

int Processes::most_at_once() {
    return MAXIMUM_WAIT_OBJECTS - 1; // one is the request to end
}

std::variant<int, StartFault> Processes::start(const std::string& program,
                                               const std::string& directory) {
    using Cause = StartFault::Cause;
    const std::wstring folder_name = wide_text(directory);
    // Others may make files in it, but not open it like this: a second run is refused.
    Handle folder(CreateFileW(folder_name.c_str(), FILE_LIST_DIRECTORY | FILE_ADD_FILE,
                              FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                              nullptr));
    if (!folder.is_open() && GetLastError() == ERROR_SHARING_VIOLATION) return fault(Cause::held);
    const DWORD attributes = GetFileAttributesW(folder_name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return fault(Cause::directory);
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        SetLastError(ERROR_DIRECTORY);
        return fault(Cause::directory);
    }
    HANDLE ends[2] = {nullptr, nullptr};
    if (!CreatePipe(&ends[0], &ends[1], nullptr, most_kept)) return fault(Cause::machine);
    Handle out(ends[0]);
    Handle in(ends[1]);
    SetHandleInformation(in.get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    Handle job = made_job();
    if (!job.is_open()) return fault(Cause::machine);

    Inheritance inheritance({state_->nowhere.get(), in.get()});
    STARTUPINFOEXW startup{};
    startup.StartupInfo.cb = sizeof startup;
    startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    startup.StartupInfo.hStdInput = state_->nowhere.get();
    startup.StartupInfo.hStdOutput = state_->nowhere.get();
    startup.StartupInfo.hStdError = in.get();
    startup.lpAttributeList = inheritance.list();
    std::wstring command = L'"' + wide_text(program) + L'"';
    PROCESS_INFORMATION made{};
    const auto start = Clock::now();
    constexpr DWORD flags = CREATE_SUSPENDED | CREATE_NO_WINDOW | CREATE_NEW_PROCESS_GROUP |
                            EXTENDED_STARTUPINFO_PRESENT;
    if (!CreateProcessW(wide_text(program).c_str(), command.data(), nullptr, nullptr, TRUE, flags,
                        nullptr, folder_name.c_str(), &startup.StartupInfo, &made)) {
        const DWORD reason = GetLastError();
        const bool is_short_of_memory =
            reason == ERROR_NOT_ENOUGH_MEMORY || reason == ERROR_NO_SYSTEM_RESOURCES;
        return fault(reason == ERROR_DIRECTORY ? Cause::directory
                     : is_short_of_memory      ? Cause::machine
                                               : Cause::program);
    }
    Handle process(made.hProcess);
    const Handle thread(made.hThread);
    AssignProcessToJobObject(job.get(), process.get());
    ResumeThread(thread.get());
    state_->running.push_back({.id = ++state_->last_id,
                               .process = std::move(process),
                               .job = std::move(job),
                               .directory = std::move(folder),
                               .error = std::move(out),
                               .start = start,
                               .text = {}});
    return state_->last_id;
}

// A process that has ended.
std::optional<ProcessEnd> Processes::State::reaped() {
    for (auto each = running.begin(); each != running.end(); ++each) {
        drain(*each);
        if (WaitForSingleObject(each->process.get(), 0) != WAIT_OBJECT_0) continue;
        drain(*each);
        DWORD code = 0;
        GetExitCodeProcess(each->process.get(), &code);
        const bool is_crash = is_exception(code);
        const std::chrono::duration<double> time = Clock::now() - each->start;
        // Elsewhere a code has eight bits: -1 is 255 here too.
        ProcessEnd end{.id = each->id,
                       .is_crash = is_crash,
                       .exit_code = static_cast<int>(is_crash ? code : code & 0xFFU),
                       .seconds = time.count(),
                       .standard_error = std::move(each->text)};
        running.erase(each);
        return end;
    }
    return std::nullopt;
}

std::optional<ProcessEnd> Processes::wait(double seconds) {
    const auto until = Clock::now() + std::chrono::duration<double>(std::min(seconds, 1.0e6));
    while (true) {
        if (auto end = state_->reaped()) return end;
        const std::chrono::duration<double, std::milli> rest = until - Clock::now();
        if (rest.count() <= 0.0 || end_request() != 0) return std::nullopt;
        std::vector<HANDLE> handles{state_->asked_to_end.get()};
        for (const Running& each : state_->running)
            handles.push_back(each.process.get());
        const double time = std::min(std::ceil(rest.count()), static_cast<double>(longest_sleep));
        WaitForMultipleObjects(static_cast<DWORD>(handles.size()), handles.data(), FALSE,
                               static_cast<DWORD>(time));
    }
}

void Processes::end(int id) {
    const auto found = std::ranges::find(state_->running, id, &Running::id);
    if (found != state_->running.end()) TerminateJobObject(found->job.get(), ended_from_outside);
}

std::size_t Processes::running() const {
    return state_->running.size();
}

int Processes::end_request() const {
    return requested_end;
}

} // namespace korvat::platform
