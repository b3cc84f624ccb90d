#include "platform/scratch_directory.hpp"

#include "platform/windows/text.hpp"

#include <filesystem>
#include <stdexcept>
#include <windows.h>

namespace korvat::platform {
namespace {

// Held as long as there is a scratch directory.
SRWLOCK directory_lock = SRWLOCK_INIT;

// Runs in a thread of its own when the process is asked to end: waits for the directory to be gone,
// and leaves the rest to the handler of the system.
BOOL WINAPI wait_for_removal(DWORD) {
    AcquireSRWLockExclusive(&directory_lock);
    ReleaseSRWLockExclusive(&directory_lock);
    return FALSE;
}

class HeldInterrupts {
public:
    HeldInterrupts() {
        AcquireSRWLockExclusive(&directory_lock);
        SetConsoleCtrlHandler(wait_for_removal, TRUE);
    }
    ~HeldInterrupts() {
        ReleaseSRWLockExclusive(&directory_lock);
        SetConsoleCtrlHandler(wait_for_removal, FALSE);
    }
    HeldInterrupts(const HeldInterrupts&) = delete;
    HeldInterrupts& operator=(const HeldInterrupts&) = delete;
};

class CurrentDirectory {
public:
    CurrentDirectory() : path_(std::filesystem::current_path()) {}
    ~CurrentDirectory() {
        std::error_code ignored;
        std::filesystem::current_path(path_, ignored);
    }
    CurrentDirectory(const CurrentDirectory&) = delete;
    CurrentDirectory& operator=(const CurrentDirectory&) = delete;

private:
    std::filesystem::path path_;
};

// The directory for temporary files belongs to the user, and what is made in it too.
class FreshDirectory {
public:
    FreshDirectory() {
        const std::filesystem::path parent = std::filesystem::temp_directory_path();
        constexpr int most_attempts = 100;
        for (int i = 0; i < most_attempts; ++i) {
            LARGE_INTEGER moment; // in tenths of a microsecond or finer: a tick lasts 16 ms
            QueryPerformanceCounter(&moment);
            path = parent / ("korvat-" + std::to_string(GetCurrentProcessId()) + "-" +
                             std::to_string(moment.QuadPart));
            if (std::filesystem::create_directory(path)) return; // else the name is taken
        }
        throw std::runtime_error("cannot make a directory in " + utf8_text(parent.native()));
    }
    ~FreshDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    FreshDirectory(const FreshDirectory&) = delete;
    FreshDirectory& operator=(const FreshDirectory&) = delete;

    std::filesystem::path path;
};

} // namespace

// Undone in the opposite order.
struct ScratchDirectory::State {
    HeldInterrupts interrupts;
    FreshDirectory fresh;
    std::string name = utf8_text(fresh.path.native());
    CurrentDirectory before;
};

ScratchDirectory::ScratchDirectory() : state_(std::make_unique<State>()) {
    std::filesystem::current_path(state_->fresh.path);
}

ScratchDirectory::~ScratchDirectory() = default;

const std::string& ScratchDirectory::path() const {
    return state_->name;
}

} // namespace korvat::platform
