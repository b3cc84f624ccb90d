// The scratch directory of a fuzz target.
#pragma once

#include "support/scratch_directory.hpp"

namespace korvat::test {

// One for the process, in the system's directory for temporary files; removed at a normal exit.
inline const ScratchDirectory& fuzz_scratch() {
    static const ScratchDirectory scratch;
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
