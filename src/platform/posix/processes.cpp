// A directory is locked as long as a process runs in it: the process has the lock too, and keeps it when this
// program is killed.
#include "platform/processes.hpp"

#include "platform/posix/standard_streams.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace korvat::platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t most_kept = 65536; // bytes of standard error
constexpr int lock_descriptor = 3;       // of the lock in the process

// What the handler of signals can reach.
volatile std::sig_atomic_t requested_end = 0;
volatile std::sig_atomic_t waker = -1;

void note_signal(int signal) {
    const int before = errno;
    if (signal != SIGCHLD) requested_end = signal;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(waker, &byte, 1); // a full pipe wakes as well
    errno = before;
}

[[noreturn]] void refuse(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

class Descriptor {
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }

    [[nodiscard]] int get() const { return number_; }

private:
    int number_;
};

struct Pipe {
    Descriptor out;
    Descriptor in;
};

// Both ends do not block where `is_quick`; the reading end never does. None where there are too many files.
std::optional<Pipe> made_pipe(bool is_quick) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | (is_quick ? O_NONBLOCK : 0)) != 0) return std::nullopt;
    Pipe pipe{Descriptor(ends[0]), Descriptor(ends[1])};
    if (!is_quick) fcntl(ends[0], F_SETFL, O_NONBLOCK);
    return pipe;
}

// The signals are handled here as long as it lives, and as before afterwards. One that was ignored, as
// nohup ignores a hangup, stays so.
class NotedSignals {
public:
    explicit NotedSignals(int wake) {
        requested_end = 0;
        waker = wake;
        struct sigaction action {};
        action.sa_handler = note_signal;
        action.sa_flags = SA_RESTART | SA_NOCLDSTOP;
        sigset_t open;
        sigemptyset(&open);
        for (std::size_t i = 0; i < signals.size(); ++i) {
            sigaction(signals[i], nullptr, &before_[i]);
            const bool is_ignored = before_[i].sa_handler == SIG_IGN && signals[i] != SIGCHLD;
            if (!is_ignored) sigaction(signals[i], &action, nullptr);
            sigaddset(&open, signals[i]);
        }
        sigprocmask(SIG_UNBLOCK, &open, &mask_);
        // To write into a closed pipe or beyond a limit is an error like any other.
        action.sa_handler = SIG_IGN;
        for (std::size_t i = 0; i < ignored.size(); ++i)
            sigaction(ignored[i], &action, &before_ignored_[i]);
    }
    ~NotedSignals() {
        sigprocmask(SIG_SETMASK, &mask_, nullptr);
        for (std::size_t i = 0; i < signals.size(); ++i)
            sigaction(signals[i], &before_[i], nullptr);
        for (std::size_t i = 0; i < ignored.size(); ++i)
            sigaction(ignored[i], &before_ignored_[i], nullptr);
        waker = -1;
    }
    NotedSignals(const NotedSignals&) = delete;
    NotedSignals& operator=(const NotedSignals&) = delete;

private:
    static constexpr std::array signals{SIGCHLD, SIGINT, SIGTERM, SIGHUP};
    static constexpr std::array ignored{SIGPIPE, SIGXFSZ};
    std::array<struct sigaction, ignored.size()> before_ignored_{};
    std::array<struct sigaction, signals.size()> before_{};
    sigset_t mask_{};
};

class SpawnActions {
public:
    SpawnActions() { posix_spawn_file_actions_init(&actions_); }
    ~SpawnActions() { posix_spawn_file_actions_destroy(&actions_); }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;

    posix_spawn_file_actions_t* get() { return &actions_; }

private:
    posix_spawn_file_actions_t actions_{};
};

// A group of its own, no signal held back, and those that are handled or ignored here as at first.
class SpawnAttributes {
public:
    SpawnAttributes() {
        posix_spawnattr_init(&attributes_);
        sigset_t none;
        sigemptyset(&none);
        sigset_t usual = none;
        for (const int signal : {SIGCHLD, SIGINT, SIGTERM, SIGPIPE, SIGXFSZ})
            sigaddset(&usual, signal);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK |
                                                   POSIX_SPAWN_SETSIGDEF);
        posix_spawnattr_setpgroup(&attributes_, 0);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setsigdefault(&attributes_, &usual);
    }
    ~SpawnAttributes() { posix_spawnattr_destroy(&attributes_); }
    SpawnAttributes(const SpawnAttributes&) = delete;
    SpawnAttributes& operator=(const SpawnAttributes&) = delete;

    [[nodiscard]] const posix_spawnattr_t* get() const { return &attributes_; }

private:
    posix_spawnattr_t attributes_{};
};

struct Running {
    int id = 0;
    pid_t process = 0;
    Descriptor directory; // locked
    Descriptor error;
    Clock::time_point start;
    std::string text; // of standard error
};

void drain(Running& running) {
    std::array<char, 4096> block;
    while (true) {
        const ssize_t size = read(running.error.get(), block.data(), block.size());
        if (size < 0 && errno == EINTR) continue;
        if (size < 0 && errno == EAGAIN) return;
        if (size <= 0) break;
        const std::size_t room = most_kept - running.text.size();
        running.text.append(block.data(), std::min(static_cast<std::size_t>(size), room));
    }
    running.error = Descriptor(); // nobody writes into it any more
}

StartFault fault(StartFault::Cause cause, int reason) {
    return {cause, std::generic_category().message(reason)};
}

bool is_of_machine(int reason) {
    return reason == EMFILE || reason == ENFILE || reason == ENOMEM || reason == EAGAIN;
}

} // namespace

struct Processes::State {
    Pipe wake;
    NotedSignals signals;
    Descriptor nowhere;
    SpawnAttributes attributes;
    std::vector<Running> running;
    int last_id = 0;

    [[nodiscard]] std::optional<ProcessEnd> reaped();
    void sleep(double seconds);
};

namespace {

Pipe wake_pipe() {
    occupy_standard_streams();
    auto pipe = made_pipe(/*is_quick*/ true);
    if (!pipe) refuse("pipe");
    return std::move(*pipe);
}

} // namespace

Processes::Processes() {
    Pipe wake = wake_pipe();
    const int in = wake.in.get();
    Descriptor nowhere(open("/dev/null", O_RDWR | O_CLOEXEC));
    if (nowhere.get() < 0) refuse("/dev/null");
    state_.reset(new State{.wake = std::move(wake),
                           .signals = NotedSignals(in),
                           .nowhere = std::move(nowhere),
                           .attributes = {},
                           .running = {}});
}

Processes::~Processes() {
    for (const Running& running : state_->running) {
        kill(-running.process, SIGKILL);
        while (waitpid(running.process, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
}

int Processes::most_at_once() {
    constexpr rlim_t most = 1000;
    constexpr rlim_t others = 40; // files of the program itself
    constexpr rlim_t of_each = 3; // directory, pipe, and the pipe's other end for a moment
    rlimit files{};
    if (getrlimit(RLIMIT_NOFILE, &files) != 0 || files.rlim_cur == RLIM_INFINITY) return most;
    if (files.rlim_cur <= others + of_each) return 1;
    return static_cast<int>(std::min((files.rlim_cur - others) / of_each, most));
}

std::variant<int, StartFault> Processes::start(const std::string& program,
                                               const std::string& directory) {
    using Cause = StartFault::Cause;
    Descriptor folder(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.get() < 0)
        return fault(is_of_machine(errno) ? Cause::machine : Cause::directory, errno);
    // Where the file system has no locks, runs in one directory cannot be told apart.
    if (flock(folder.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return fault(Cause::held, errno);
    auto pipe = made_pipe(/*is_quick*/ false);
    if (!pipe) return fault(Cause::machine, errno);
    SpawnActions actions;
    posix_spawn_file_actions_addfchdir_np(actions.get(), folder.get());
    posix_spawn_file_actions_adddup2(actions.get(), state_->nowhere.get(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(actions.get(), state_->nowhere.get(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(actions.get(), pipe->in.get(), STDERR_FILENO);
    posix_spawn_file_actions_adddup2(actions.get(), folder.get(), lock_descriptor);
    std::string name = program;
    std::array<char*, 2> arguments{name.data(), nullptr};
    pid_t process = 0;
    const auto start = Clock::now();
    const int reason = posix_spawn(&process, program.c_str(), actions.get(),
                                   state_->attributes.get(), arguments.data(), environ);
    if (reason == EACCES && access(program.c_str(), X_OK) == 0)
        return fault(Cause::directory, reason); // it may be read, but not entered
    if (reason != 0) return fault(is_of_machine(reason) ? Cause::machine : Cause::program, reason);
    state_->running.push_back({.id = ++state_->last_id,
                               .process = process,
                               .directory = std::move(folder),
                               .error = std::move(pipe->out),
                               .start = start,
                               .text = {}});
    return state_->last_id;
}

// A process that has ended.
std::optional<ProcessEnd> Processes::State::reaped() {
    for (auto each = running.begin(); each != running.end(); ++each) {
        int status = 0;
        const pid_t found = waitpid(each->process, &status, WNOHANG);
        if (found == 0 || (found < 0 && errno == EINTR)) continue;
        const std::chrono::duration<double> time = Clock::now() - each->start;
        if (each->error.get() >= 0) drain(*each);
        const bool is_crash = found < 0 || WIFSIGNALED(status);
        ProcessEnd end{.id = each->id,
                       .is_crash = is_crash,
                       .exit_code = is_crash ? 128 + WTERMSIG(status) : WEXITSTATUS(status),
                       .seconds = time.count(),
                       .standard_error = std::move(each->text)};
        running.erase(each);
        return end;
    }
    return std::nullopt;
}

// Until a process has written or ended, a signal has come or the time is over.
void Processes::State::sleep(double seconds) {
    std::vector<pollfd> files{{wake.out.get(), POLLIN, 0}};
    for (const Running& each : running)
        files.push_back({each.error.get(), POLLIN, 0}); // one below 0 is left out
    constexpr double longest = 1.0e6;                   // in milliseconds it must fit an int
    const double limited = std::clamp(seconds, 0.0, longest);
    const int count =
        poll(files.data(), files.size(), static_cast<int>(std::ceil(limited * 1000.0)));
    if (count < 0 && errno != EINTR) refuse("poll");
    if (count <= 0) return;
    std::array<char, 256> bytes;
    while (read(wake.out.get(), bytes.data(), bytes.size()) > 0) {
    }
    for (std::size_t i = 0; i < running.size(); ++i) {
        if (files[i + 1].revents != 0) drain(running[i]);
    }
}

std::optional<ProcessEnd> Processes::wait(double seconds) {
    const auto until = Clock::now() + std::chrono::duration<double>(std::min(seconds, 1.0e6));
    while (true) {
        if (auto end = state_->reaped()) return end;
        const std::chrono::duration<double> rest = until - Clock::now();
        if (rest.count() <= 0.0 || end_request() != 0) return std::nullopt;
        state_->sleep(rest.count());
    }
}

void Processes::end(int id) {
    const auto found = std::ranges::find(state_->running, id, &Running::id);
    if (found != state_->running.end()) kill(-found->process, SIGKILL);
}

std::size_t Processes::running() const {
    return state_->running.size();
}

int Processes::end_request() const {
    return requested_end;
}

} // namespace korvat::platform
