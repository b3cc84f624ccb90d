// Programs that run beside this one, each in a directory of its own.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace korvat::platform {

// How a process ended.
struct ProcessEnd {
    int id = 0;
    bool is_crash = false; // the system ended it: a signal, or an exception on Windows
    // 0 to 255; of a crash 128 + the number of the signal, on Windows the code of the exception.
    int exit_code = 0;
    double seconds = 0.0;       // by a clock that nobody sets
    std::string standard_error; // its first 64 KB
};

// Why a process could not be started.
struct StartFault {
    enum class Cause {
        directory, // there is none, or it cannot be entered
        held,    // a process that was started in it by this class, in whatever program, still runs
        program, // it is not there, or the system cannot run it
        machine  // too many processes or files are open, or memory is short
    };
    Cause cause = Cause::machine;
    std::string reason; // of the system
};

// Processes without arguments, their standard input empty, their standard output led to nowhere. As long as
// it lives, a request to end this program (Ctrl-C, a hangup, SIGTERM) is noted instead of followed. One
// object at a time. Its end ends every process that still runs.
class Processes {
public:
    // Raises std::system_error where the system refuses.
    Processes();
    ~Processes();
    Processes(const Processes&) = delete;
    Processes& operator=(const Processes&) = delete;

    // How many the system lets run at once.
    [[nodiscard]] static int most_at_once();

    // Starts a program, an absolute path, in a directory; its id, which no other process of this object has.
    [[nodiscard]] std::variant<int, StartFault> start(const std::string& program,
                                                      const std::string& directory);

    // The next process that ends; none when that takes longer, or a request to end has come. Raises
    // std::system_error.
    [[nodiscard]] std::optional<ProcessEnd> wait(double seconds);

    // Ends a process at once, with all that it has started; `wait` returns it.
    void end(int id);

    [[nodiscard]] std::size_t running() const;

    // The signal that has asked this program to end; 0 as long as none has.
    [[nodiscard]] int end_request() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace korvat::platform
