// A limit of the size of every file that the process writes (POSIX).
#include "file_size_limit.hpp"

#include <csignal>
#include <stdexcept>
#include <sys/resource.h>

namespace korvat::test {
namespace {

// Sets the limit; returns the former one.
rlim_t set_limit(rlim_t bytes) {
    rlimit limit{};
    if (getrlimit(RLIMIT_FSIZE, &limit) != 0) throw std::runtime_error("no limit of file sizes");
    const rlim_t former = limit.rlim_cur;
    limit.rlim_cur = bytes;
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) throw std::runtime_error("the limit is refused");
    return former;
}

} // namespace

FileSizeLimit::FileSizeLimit(std::size_t bytes)
    : former_limit_(set_limit(bytes)), former_handler_(std::signal(SIGXFSZ, SIG_IGN)) {}

FileSizeLimit::~FileSizeLimit() {
    set_limit(former_limit_);
    std::signal(SIGXFSZ, former_handler_);
}

} // namespace korvat::test
