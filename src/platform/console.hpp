// Standard output and standard error as the user's console.
#pragma once

namespace korvat::platform {

// Whether standard output is shown on a terminal.
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

} // namespace korvat::platform
