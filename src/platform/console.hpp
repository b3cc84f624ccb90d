// Standard output and standard error as the user's console.
#pragma once

#include <memory>

namespace korvat::platform {

// Whether standard output is shown on a terminal that understands colour.
[[nodiscard]] bool is_output_on_terminal();

// As long as it lives, what is written to standard output and standard error goes nowhere. When they
// cannot be led away, they stay as they are.
class QuietStreams {
public:
    QuietStreams();
    ~QuietStreams();
    QuietStreams(const QuietStreams&) = delete;
    QuietStreams& operator=(const QuietStreams&) = delete;

private:
    int output_; // duplicates of the streams; negative where there is none
    int error_;
};

// As long as it lives, the standard streams carry bytes as they are: Windows adds no carriage returns and
// takes none away, its console shows the bytes as UTF-8 and, where it can, colour. Made before anything is
// read or written.
class ByteStreams {
public:
    ByteStreams();
    ~ByteStreams();
    ByteStreams(const ByteStreams&) = delete;
    ByteStreams& operator=(const ByteStreams&) = delete;

private:
    struct Before; // what is undone at the end
    std::unique_ptr<Before> before_;
};

} // namespace korvat::platform
