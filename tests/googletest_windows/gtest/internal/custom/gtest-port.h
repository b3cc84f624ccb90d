// GoogleTest's own place for adaptations: what its death tests miss in a build without threads.
#pragma once

namespace testing::internal {

// A handle of the system that is closed when its owner goes; GoogleTest has it with threads only.
class AutoHandle {
public:
    using Handle = void*;

    AutoHandle();
    explicit AutoHandle(Handle handle);
    ~AutoHandle();
    AutoHandle(const AutoHandle&) = delete;
    AutoHandle& operator=(const AutoHandle&) = delete;

    Handle Get() const;
    void Reset();
    void Reset(Handle handle);

private:
    Handle handle_;
};

} // namespace testing::internal
