// A limit of the size of every file that the process writes (POSIX).
#pragma once

#include <cstddef>

namespace korvat::test {

// While it lives, a write beyond the limit fails with EFBIG, as a write to a full disk fails.
class FileSizeLimit {
public:
    explicit FileSizeLimit(std::size_t bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    std::size_t former_limit_;
    void (*former_handler_)(int);
};

} // namespace korvat::test
