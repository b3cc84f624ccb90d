#include "platform/console.hpp"

#include <cstdio>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>

namespace korvat::platform {
namespace {

void empty_buffers() {
    std::cout.flush();
    std::cerr.flush();
    std::fflush(stdout);
    std::fflush(stderr);
}

// Leads a stream to nowhere; returns a duplicate of what it was, or -1 when it stays as it is.
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

} // namespace

bool is_output_on_terminal() {
    return isatty(STDOUT_FILENO) != 0;
}

QuietStreams::QuietStreams() : output_(-1), error_(-1) {
    empty_buffers();
    output_ = lead_away(STDOUT_FILENO);
    error_ = lead_away(STDERR_FILENO);
}

QuietStreams::~QuietStreams() {
    empty_buffers();
    lead_back(STDOUT_FILENO, output_);
    lead_back(STDERR_FILENO, error_);
}

} // namespace korvat::platform
