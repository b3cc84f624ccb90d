#include "platform/console.hpp"

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <iostream>

namespace korvat::platform {
namespace {

constexpr int output_stream = 1;
constexpr int error_stream = 2;

void empty_buffers() {
    std::cout.flush();
    std::cerr.flush();
    std::fflush(stdout);
    std::fflush(stderr);
}

// Leads a stream to nowhere; returns a duplicate of what it was, or -1 when it stays as it is.
int lead_away(int stream) {
    const int nowhere = _open("NUL", _O_WRONLY | _O_NOINHERIT);
    if (nowhere < 0) return -1;
    const int kept = _dup(stream);
    if (kept >= 0) _dup2(nowhere, stream);
    _close(nowhere);
    return kept;
}

void lead_back(int stream, int kept) {
    if (kept < 0) return;
    _dup2(kept, stream);
    _close(kept);
}

} // namespace

bool is_output_on_terminal() {
    return _isatty(output_stream) != 0;
}

QuietStreams::QuietStreams() : output_(-1), error_(-1) {
    empty_buffers();
    output_ = lead_away(output_stream);
    error_ = lead_away(error_stream);
}

QuietStreams::~QuietStreams() {
    empty_buffers();
    lead_back(output_stream, output_);
    lead_back(error_stream, error_);
}

} // namespace korvat::platform
