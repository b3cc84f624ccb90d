#include "study/progress.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ostream>

namespace korvat::study {
namespace {

constexpr double terminal_period = 0.1;
constexpr double line_period = 10.0;
constexpr int least_bar = 10;
constexpr int most_bar = 40;

std::string rate_text(double rate) {
    std::array<char, 32> text{};
    const int digits = rate < 10.0 ? 1 : 0;
    const int length = std::snprintf(text.data(), text.size(), "%.*f/s", digits, rate);
    return {text.data(), static_cast<std::size_t>(length)};
}

std::string two_digits(std::int64_t number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string bar(std::uint64_t done, std::uint64_t total, int room) {
    const int width = std::min(room - 3, most_bar); // two brackets and a blank
    if (width < least_bar || total == 0) return {};
    const auto full = static_cast<int>(static_cast<double>(width) * static_cast<double>(done) /
                                       static_cast<double>(total));
    const auto signs = static_cast<std::size_t>(std::clamp(full, 0, width));
    return '[' + std::string(signs, '#') +
           std::string(static_cast<std::size_t>(width) - signs, ' ') + "] ";
}

} // namespace

std::string duration_text(double seconds) {
    constexpr double longest = 3.6e9; // a million hours
    const auto whole = static_cast<std::int64_t>(std::llround(std::clamp(seconds, 0.0, longest)));
    const std::int64_t hours = whole / 3600;
    const std::int64_t minutes = whole / 60 % 60;
    const std::string rest = two_digits(whole % 60);
    if (hours == 0) return std::to_string(minutes) + ':' + rest;
    return std::to_string(hours) + ':' + two_digits(minutes) + ':' + rest;
}

std::string progress_text(const BatchCounts& counts, std::optional<std::uint64_t> total,
                          double seconds) {
    std::string text = std::to_string(counts.done());
    if (total) text += " of " + std::to_string(*total);
    const double rate = seconds > 0.0 ? static_cast<double>(counts.run) / seconds : 0.0;
    if (rate > 0.0) {
        text += ", " + rate_text(rate);
        if (total && *total >= counts.done()) {
            const auto rest = static_cast<double>(*total - counts.done());
            text += ", " + duration_text(rest / rate) + " to go";
        }
    }
    if (counts.skipped > 0) text += ", " + std::to_string(counts.skipped) + " skipped";
    if (counts.failed > 0) text += ", " + std::to_string(counts.failed) + " failed";
    return text;
}

std::string progress_line(const BatchCounts& counts, std::optional<std::uint64_t> total,
                          double seconds, int columns) {
    std::string text = progress_text(counts, total, seconds);
    const int room = columns - static_cast<int>(text.size());
    if (total) text = bar(counts.done(), *total, room) + text;
    return text.substr(0, static_cast<std::size_t>(std::max(columns, 0)));
}

Progress::Progress(std::ostream& out, std::optional<std::uint64_t> total,
                   std::optional<int> columns, bool is_quiet)
    : out_(out), total_(total), columns_(columns), is_quiet_(is_quiet), start_(Clock::now()),
      last_(start_) {}

double Progress::seconds() const {
    return std::chrono::duration<double>(Clock::now() - start_).count();
}

double Progress::period() const {
    return columns_ ? terminal_period : line_period;
}

void Progress::show(const BatchCounts& counts) {
    if (is_quiet_) return;
    const auto now = Clock::now();
    if (std::chrono::duration<double>(now - last_).count() < period()) return;
    last_ = now;
    if (!columns_) {
        out_ << progress_text(counts, total_, seconds()) << std::endl;
        return;
    }
    const std::string line = progress_line(counts, total_, seconds(), *columns_ - 1);
    const std::size_t rest = shown_ > line.size() ? shown_ - line.size() : 0;
    out_ << '\r' << line << std::string(rest, ' ') << std::flush;
    shown_ = line.size();
}

void Progress::tell(const std::string& text) {
    finish();
    out_ << text << std::endl;
}

void Progress::finish() {
    if (shown_ == 0) return;
    out_ << '\r' << std::string(shown_, ' ') << '\r' << std::flush;
    shown_ = 0;
}

} // namespace korvat::study
