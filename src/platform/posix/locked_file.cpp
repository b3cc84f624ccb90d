#include "platform/locked_file.hpp"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace korvat::platform {

struct LockedFile::State {
    explicit State(const std::string& of_file)
        : name(of_file),
          descriptor(open(name.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0666)) {
        if (descriptor < 0) refuse(errno);
        is_locked = flock(descriptor, LOCK_EX | LOCK_NB) == 0;
        if (is_locked || errno != EWOULDBLOCK) return;
        close(descriptor);
        throw HeldByAnother(name);
    }
    ~State() { close(descriptor); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    [[noreturn]] void refuse(int reason) const {
        throw std::system_error(reason, std::generic_category(), name);
    }

    std::string name;
    int descriptor;
    bool is_locked = false;
};

LockedFile::LockedFile(const std::string& name) : state_(std::make_unique<State>(name)) {}

LockedFile::~LockedFile() = default;

bool LockedFile::is_locked() const {
    return state_->is_locked;
}

std::uint64_t LockedFile::size() const {
    struct stat found {};
    if (fstat(state_->descriptor, &found) != 0 || !S_ISREG(found.st_mode)) return 0;
    return static_cast<std::uint64_t>(found.st_size);
}

void LockedFile::append(std::string_view bytes) {
    const std::uint64_t before = size();
    ssize_t written = 0;
    do {
        written = write(state_->descriptor, bytes.data(), bytes.size());
    } while (written < 0 && errno == EINTR);
    if (written == static_cast<ssize_t>(bytes.size())) return;
    const int reason = written < 0 ? errno : ENOSPC;
    if (written > 0) cut(before);
    state_->refuse(reason);
}

void LockedFile::cut(std::uint64_t size) {
    if (ftruncate(state_->descriptor, static_cast<off_t>(size)) != 0) state_->refuse(errno);
}

} // namespace korvat::platform
