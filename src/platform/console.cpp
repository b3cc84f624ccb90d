#include "platform/console.hpp"

#include "platform/led_streams.hpp"

#include <cstdio>
#include <iostream>

namespace korvat::platform {
namespace {

void empty_buffers() {
    std::cout.flush();
    std::cerr.flush();
    std::fflush(stdout);
    std::fflush(stderr);
}

} // namespace

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
