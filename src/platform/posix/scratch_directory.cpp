#include "platform/scratch_directory.hpp"

#include "platform/files.hpp"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <unistd.h>

namespace korvat::platform {
namespace {

[[noreturn]] void refuse(const std::string& what) {
    throw std::runtime_error("cannot " + what + ": " + error_text(errno));
}

// Holds back the signals that ask the process to end, as long as it lives; then they arrive.
class HeldSignals {
public:
    HeldSignals() {
        sigset_t held;
        sigemptyset(&held);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
            sigaddset(&held, signal);
        }
        sigprocmask(SIG_BLOCK, &held, &before_);
    }
    ~HeldSignals() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

private:
    sigset_t before_{};
};

// The directory that is current now, by its descriptor: it can be entered again whatever its name is
// by then.
class CurrentDirectory {
public:
    CurrentDirectory() : descriptor_(open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}
    ~CurrentDirectory() {
        if (descriptor_ < 0) return;
        // Where it has been removed meanwhile, nothing is lost: the process had no use for it.
        [[maybe_unused]] const int result = fchdir(descriptor_);
        close(descriptor_);
    }
    CurrentDirectory(const CurrentDirectory&) = delete;
    CurrentDirectory& operator=(const CurrentDirectory&) = delete;

private:
    int descriptor_;
};

class FreshDirectory {
public:
    FreshDirectory() {
        std::error_code error;
        const auto parent = std::filesystem::temp_directory_path(error);
        if (error) throw std::runtime_error("no directory for temporary files: " + error.message());
        path = (parent / "korvat-XXXXXX").string();
        if (mkdtemp(path.data()) == nullptr) refuse("make a directory in " + parent.string());
    }
    ~FreshDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    FreshDirectory(const FreshDirectory&) = delete;
    FreshDirectory& operator=(const FreshDirectory&) = delete;

    std::string path;
};

} // namespace

// Undone in the opposite order.
struct ScratchDirectory::State {
    HeldSignals signals;
    FreshDirectory fresh;
    CurrentDirectory before;
};

ScratchDirectory::ScratchDirectory() : state_(std::make_unique<State>()) {
    if (chdir(path().c_str()) != 0) refuse("enter " + path());
}

ScratchDirectory::~ScratchDirectory() = default;

const std::string& ScratchDirectory::path() const {
    return state_->fresh.path;
}

} // namespace korvat::platform
