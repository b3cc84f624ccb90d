// With xdg-open, which knows the user's programs; no shell reads the path.
#include "platform/open_file.hpp"

#include <cerrno>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace korvat::platform {
namespace {

// Whether a process has ended well.
bool has_succeeded(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0) {
        if (errno != EINTR) return false;
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

bool open_file(const std::string& path) {
    std::string program = "xdg-open";
    std::string argument = path;
    char* const arguments[] = {program.data(), argument.data(), nullptr};
    pid_t process = 0;
    const int error = posix_spawnp(&process, program.c_str(), nullptr, nullptr, arguments, environ);
    return error == 0 && has_succeeded(process);
}

} // namespace korvat::platform
