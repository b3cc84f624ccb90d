// How far a batch is, for who waits for it.
#pragma once

#include <chrono>
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

namespace korvat::study {

// Cases so far.
struct BatchCounts {
    std::uint64_t run = 0;
    std::uint64_t skipped = 0; // they stood in the journal
    std::uint64_t failed = 0;  // of both

    [[nodiscard]] std::uint64_t done() const { return run + skipped; }
};

// "450 of 1000, 120/s, 0:05 to go, 2 failed"; the rate is that of the cases that were run.
[[nodiscard]] std::string progress_text(const BatchCounts& counts,
                                        std::optional<std::uint64_t> total, double seconds);

// The same behind a bar where there is room for one and the total is known; at most as wide as `columns`.
[[nodiscard]] std::string progress_line(const BatchCounts& counts,
                                        std::optional<std::uint64_t> total, double seconds,
                                        int columns);

// A duration as 0:07, 12:34 or 1:02:03.
[[nodiscard]] std::string duration_text(double seconds);

// Writes the line anew a few times a second on a terminal, a line every ten seconds elsewhere.
class Progress {
public:
    // `columns` of the terminal; none where there is none. Quiet: nothing at all.
    Progress(std::ostream& out, std::optional<std::uint64_t> total, std::optional<int> columns,
             bool is_quiet);

    void show(const BatchCounts& counts);

    // A line of text above the progress.
    void tell(const std::string& text);

    // Takes the line away.
    void finish();

    // Seconds after which `show` has something new to show.
    [[nodiscard]] double period() const;

    [[nodiscard]] double seconds() const;

private:
    using Clock = std::chrono::steady_clock;

    std::ostream& out_;
    std::optional<std::uint64_t> total_;
    std::optional<int> columns_;
    bool is_quiet_;
    Clock::time_point start_;
    Clock::time_point last_;
    std::size_t shown_ = 0; // columns of the line that stands there
};

} // namespace korvat::study
