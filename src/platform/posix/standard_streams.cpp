#include "platform/posix/standard_streams.hpp"

#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace korvat::platform {

void occupy_standard_streams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) >= 0) continue;
        // The lowest free descriptor, which is this one; a directory is always there, and is for
        // reading only.
        static_cast<void>(open("/", O_RDONLY));
    }
}

} // namespace korvat::platform
