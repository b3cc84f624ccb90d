// Runs the program under a fault of the machine, and tells how the run ended.
#include "faulty_run.hpp"

#include "../support/scratch_directory.hpp"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <grp.h>
#include <new>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvat::test {

namespace {

constexpr int not_started = 127;
constexpr unsigned longest_run = 10; // seconds
constexpr uid_t nobody = 65534;

// A stream of the program. A pipe, for a limit of the size of files must not hold for it; it takes
// more than the program says.
class Pipe {
public:
    Pipe() {
        if (pipe2(ends_.data(), O_CLOEXEC) != 0) throw std::runtime_error("cannot make a pipe");
    }
    ~Pipe() {
        close(ends_[0]);
        close(ends_[1]);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int entrance() const { return ends_[1]; }

    // After the program has ended.
    std::string content() const {
        fcntl(ends_[0], F_SETFL, O_NONBLOCK);
        std::string text;
        std::array<char, 4096> block{};
        for (;;) {
            const ssize_t count = read(ends_[0], block.data(), block.size());
            if (count <= 0) return text;
            text.append(block.data(), static_cast<std::size_t>(count));
        }
    }

private:
    std::array<int, 2> ends_{};
};

// A descriptor that is closed at the end.
class Descriptor {
public:
    Descriptor(int descriptor, const std::string& what) : number_(descriptor) {
        if (number_ < 0) throw std::runtime_error("cannot open " + what);
    }
    ~Descriptor() { close(number_); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return number_; }

private:
    int number_;
};

// The board in memory; the program opens it through the descriptor that it inherits.
class Board {
public:
    explicit Board(const Fault& fault)
        : memory_(memfd_create("fault board", 0), "the fault board") {
        if (ftruncate(memory_.number(), sizeof(FaultBoard)) != 0) {
            throw std::runtime_error("cannot size the fault board");
        }
        void* const mapped = mmap(nullptr, sizeof(FaultBoard), PROT_READ | PROT_WRITE, MAP_SHARED,
                                  memory_.number(), 0);
        if (mapped == MAP_FAILED) throw std::runtime_error("cannot map the fault board");
        board_ = new (mapped) FaultBoard{};
        if (fault.call) board_->call = *fault.call;
        board_->action = fault.action;
        board_->at = fault.at;
        board_->all_after = fault.all_after;
        board_->error = fault.error;
        board_->buffer_size = fault.buffer_size;
    }
    ~Board() { munmap(board_, sizeof(FaultBoard)); }
    Board(const Board&) = delete;
    Board& operator=(const Board&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(memory_.number()); }

    void tell(Outcome& outcome) const {
        for (std::size_t i = 0; i < call_kinds; ++i)
            outcome.counts[i] = board_->counts[i];
        outcome.fired = board_->fired;
        outcome.bytes_written = board_->bytes_written;
        for (std::uint32_t i = 0; i < board_->files; ++i)
            outcome.hit.emplace_back(board_->file_names[i]);
    }

private:
    Descriptor memory_;
    FaultBoard* board_ = nullptr;
};

std::vector<std::string> environment(const Surroundings& surroundings, const Board& board) {
    std::vector<std::string> variables = {
        "PATH=/usr/bin:/bin",
        // A report of a sanitizer must not look like an end that is due. What the runtime leaves
        // behind when the system fails it is of no interest here.
        "ASAN_OPTIONS=exitcode=99:detect_leaks=0", "UBSAN_OPTIONS=exitcode=99"};
    if (surroundings.fault.call) {
        variables.push_back(std::string(board_variable) + "=" + board.path());
        variables.emplace_back("LD_PRELOAD=" KORVAT_PRELOADED);
    }
    return variables;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> list;
    for (std::string& text : texts)
        list.push_back(text.data());
    list.push_back(nullptr);
    return list;
}

bool drop_rights() {
    if (geteuid() != 0) return true;
    return setgroups(0, nullptr) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0;
}

bool limit_files(std::optional<std::uint64_t> largest) {
    if (!largest) return true;
    const rlimit limit{*largest, *largest};
    return setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

// Of the child, where only async-signal-safe functions are allowed.
struct Start {
    const char* directory;
    int program;
    std::array<int, 3> streams;
    char* const* environment;
    const Surroundings* surroundings;

    [[noreturn]] void run() const {
        std::array<char*, 2> arguments = {const_cast<char*>(KORVAT_PROGRAM), nullptr};
        bool ready = chdir(directory) == 0;
        for (int stream = 0; stream < 3; ++stream) {
            const auto index = static_cast<std::size_t>(stream);
            ready = ready && dup2(streams[index], stream) >= 0;
            if (surroundings->closed[index]) close(stream);
        }
        ready = ready && limit_files(surroundings->largest_file) &&
                (!surroundings->as_nobody || drop_rights());
        alarm(longest_run);
        if (ready) fexecve(program, arguments.data(), environment);
        _exit(not_started);
    }
};

int exit_code_of(int status) {
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

// Looks at the clock all the time: a sleep would be too long for a program that takes milliseconds.
int wait_and_kill(pid_t child, double seconds) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    int status = 0;
    for (;;) {
        if (waitpid(child, &status, WNOHANG) == child) return exit_code_of(status);
        if (Clock::now() >= end) break;
    }
    kill(child, SIGKILL);
    waitpid(child, &status, 0);
    return exit_code_of(status);
}

int wait_for(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) throw std::runtime_error("cannot wait for the program");
    }
    return exit_code_of(status);
}

} // namespace

std::map<std::string, std::string> files_in(const std::filesystem::path& directory) {
    std::map<std::string, std::string> files;
    if (!std::filesystem::exists(directory)) return files;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
        if (!entry.is_regular_file()) continue;
        files[entry.path().filename().string()] = read_whole_file(entry.path());
    }
    return files;
}

Outcome faulty_run(const std::filesystem::path& directory, const Surroundings& surroundings) {
    const Board board(surroundings.fault);
    const Pipe output;
    const Pipe error;
    const Descriptor no_input(open("/dev/null", O_RDONLY | O_CLOEXEC), "/dev/null");
    const Descriptor program(open(KORVAT_PROGRAM, O_RDONLY | O_CLOEXEC), KORVAT_PROGRAM);
    const std::filesystem::path& other = surroundings.standard_output;
    const Descriptor chosen_output(other.empty() ? fcntl(output.entrance(), F_DUPFD_CLOEXEC, 3)
                                                 : open(other.c_str(), O_WRONLY | O_CLOEXEC),
                                   other.string());
    const std::string directory_name = directory.string();
    std::vector<std::string> variables = environment(surroundings, board);
    const std::vector<char*> variable_pointers = pointers(variables);
    const Start start{.directory = directory_name.c_str(),
                      .program = program.number(),
                      .streams = {no_input.number(), chosen_output.number(), error.entrance()},
                      .environment = variable_pointers.data(),
                      .surroundings = &surroundings};
    const pid_t child = fork();
    if (child == 0) start.run();
    if (child < 0) throw std::runtime_error("cannot make a process");
    Outcome outcome;
    outcome.exit_code = surroundings.killed_after ? wait_and_kill(child, *surroundings.killed_after)
                                                  : wait_for(child);
    if (outcome.exit_code == not_started) throw std::runtime_error("cannot start the program");
    outcome.standard_output = output.content();
    outcome.standard_error = error.content();
    board.tell(outcome);
    outcome.files = files_in(directory);
    return outcome;
}

} // namespace korvat::test
