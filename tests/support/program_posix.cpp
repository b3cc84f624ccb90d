// Runs a program in a directory and keeps what it wrote to its standard streams (POSIX).
#include "program.hpp"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <stdexcept>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvat::test {

namespace {

constexpr int not_started = 127;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// Nameless files instead of pipes: neither stream can block the program, however much it writes.
File nameless_file() {
    File file(std::tmpfile());
    if (!file) throw std::runtime_error("cannot make a temporary file");
    return file;
}

std::string content_of(std::FILE* file) {
    std::rewind(file);
    std::string text;
    std::array<char, 4096> block{};
    for (;;) {
        const std::size_t count = std::fread(block.data(), 1, block.size(), file);
        if (count == 0) return text;
        text.append(block.data(), count);
    }
}

// Runs in the child, where only async-signal-safe functions are allowed.
[[noreturn]] void become_program(const char* program, const char* directory, int output_file,
                                 int error_file) {
    std::array<char*, 2> arguments = {const_cast<char*>(program), nullptr};
    const int input_file = open("/dev/null", O_RDONLY);
    const bool ready = input_file >= 0 && dup2(input_file, STDIN_FILENO) >= 0 &&
                       dup2(output_file, STDOUT_FILENO) >= 0 &&
                       dup2(error_file, STDERR_FILENO) >= 0 && chdir(directory) == 0;
    if (ready) execv(program, arguments.data());
    _exit(not_started);
}

int wait_for(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) throw std::runtime_error("cannot wait for the program");
    }
    if (WIFSIGNALED(status)) return 128 + WTERMSIG(status);
    return WEXITSTATUS(status);
}

} // namespace

int run_program(const std::filesystem::path& program, const std::filesystem::path& directory,
                ProgramOutput& output) {
    const std::string program_name = std::filesystem::absolute(program).string();
    const std::string directory_name = directory.string();
    if (access(program_name.c_str(), X_OK) != 0) {
        throw std::runtime_error("cannot start " + program_name);
    }
    const File output_file = nameless_file();
    const File error_file = nameless_file();
    const int output_number = fileno(output_file.get());
    const int error_number = fileno(error_file.get());
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("cannot make a process for " + program_name);
    if (child == 0) {
        become_program(program_name.c_str(), directory_name.c_str(), output_number, error_number);
    }
    const int exit_code = wait_for(child);
    output.standard_output = content_of(output_file.get());
    output.standard_error = content_of(error_file.get());
    return exit_code;
}

} // namespace korvat::test
