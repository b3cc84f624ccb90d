#include "platform/locked_file.hpp"

#include "platform/windows/text.hpp"

#include <system_error>
#include <windows.h>

namespace korvat::platform {
namespace {

// The byte that is locked: one that the file does not have, as what is locked cannot be read by others.
constexpr DWORD lock_offset_high = 0x40000000;

LARGE_INTEGER position(std::uint64_t offset) {
    LARGE_INTEGER result;
    result.QuadPart = static_cast<LONGLONG>(offset);
    return result;
}

} // namespace

struct LockedFile::State {
    explicit State(const std::string& of_file)
        : name(of_file), handle(CreateFileW(wide_text(name).c_str(), GENERIC_READ | GENERIC_WRITE,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                            OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)) {
        if (handle == INVALID_HANDLE_VALUE) refuse();
        OVERLAPPED place{};
        place.OffsetHigh = lock_offset_high;
        constexpr DWORD flags = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
        is_locked = LockFileEx(handle, flags, 0, 1, 0, &place) != 0;
        const DWORD reason = GetLastError();
        if (is_locked || (reason != ERROR_LOCK_VIOLATION && reason != ERROR_IO_PENDING)) return;
        CloseHandle(handle);
        throw HeldByAnother(name);
    }
    ~State() { CloseHandle(handle); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    [[noreturn]] void refuse() const {
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), name);
    }

    std::string name;
    HANDLE handle;
    bool is_locked = false;
};

LockedFile::LockedFile(const std::string& name) : state_(std::make_unique<State>(name)) {}

LockedFile::~LockedFile() = default;

bool LockedFile::is_locked() const {
    return state_->is_locked;
}

std::uint64_t LockedFile::size() const {
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(state_->handle, &size)) return 0;
    return static_cast<std::uint64_t>(size.QuadPart);
}

void LockedFile::append(std::string_view bytes) {
    const std::uint64_t before = size();
    DWORD written = 0;
    const bool is_at_end = SetFilePointerEx(state_->handle, position(0), nullptr, FILE_END) != 0;
    const bool is_fine =
        is_at_end && WriteFile(state_->handle, bytes.data(), static_cast<DWORD>(bytes.size()),
                               &written, nullptr);
    if (is_fine && written == bytes.size()) return;
    const DWORD reason = is_fine ? ERROR_DISK_FULL : GetLastError();
    if (written > 0) cut(before);
    SetLastError(reason);
    state_->refuse();
}

void LockedFile::cut(std::uint64_t size) {
    if (!SetFilePointerEx(state_->handle, position(size), nullptr, FILE_BEGIN) ||
        !SetEndOfFile(state_->handle)) {
        state_->refuse();
    }
}

} // namespace korvat::platform
