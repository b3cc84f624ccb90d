// A handle of the system that is closed when its owner goes, for GoogleTest's death tests.
#include <gtest/internal/custom/gtest-port.h>

#include <windows.h>

namespace testing::internal {

AutoHandle::AutoHandle() : AutoHandle(INVALID_HANDLE_VALUE) {}

AutoHandle::AutoHandle(Handle handle) : handle_(handle) {}

AutoHandle::~AutoHandle() {
    Reset();
}

AutoHandle::Handle AutoHandle::Get() const {
    return handle_;
}

void AutoHandle::Reset() {
    Reset(INVALID_HANDLE_VALUE);
}

void AutoHandle::Reset(Handle handle) {
    if (handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
    handle_ = handle;
}

} // namespace testing::internal
