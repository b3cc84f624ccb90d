#include "platform/console.hpp"

#include "platform/led_streams.hpp"

#include <fcntl.h>
#include <unistd.h>

namespace korvat::platform {

int lead_away(int stream) {
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere < 0) return -1;
    const int kept = fcntl(stream, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (kept >= 0) dup2(nowhere, stream);
    close(nowhere);
    return kept;
}

void lead_back(int stream, int kept) {
    if (kept < 0) return;
    dup2(kept, stream);
    close(kept);
}

bool is_output_on_terminal() {
    return isatty(output_stream) != 0;
}

// Streams and terminals are so already.
struct ByteStreams::Before {};
ByteStreams::ByteStreams() = default;
ByteStreams::~ByteStreams() = default;

} // namespace korvat::platform
