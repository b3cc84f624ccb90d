// The scratch directory of a fuzz target.
#pragma once

#include "support/scratch_directory.hpp"

#include <cstdlib>
#include <unistd.h>

namespace korvat::test {

// Where TMPDIR says; without it in memory if the system has a place there.
inline std::filesystem::path fuzz_scratch_parent() {
    constexpr const char* memory = "/dev/shm";
    const bool is_memory = std::getenv("TMPDIR") == nullptr && access(memory, W_OK) == 0;
    return is_memory ? memory : std::filesystem::temp_directory_path();
}

// One for the process; removed at a normal exit.
inline const ScratchDirectory& fuzz_scratch() {
    static const ScratchDirectory scratch(fuzz_scratch_parent());
    return scratch;
}

// Makes it the current directory for one run. The fuzzer's own, relative paths are wrong meanwhile.
class InFuzzScratch {
public:
    InFuzzScratch() : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(fuzz_scratch().path());
    }
    ~InFuzzScratch() { std::filesystem::current_path(before_); }
    InFuzzScratch(const InFuzzScratch&) = delete;
    InFuzzScratch& operator=(const InFuzzScratch&) = delete;

private:
    std::filesystem::path before_;
};

} // namespace korvat::test
