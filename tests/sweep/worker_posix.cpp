// One process of the sweep: takes copies of a deck in turn, runs and judges them.
#include "worker_posix.hpp"

#include "../support/scratch_directory.hpp"
#include "run/entry.hpp"
#include "verdict.hpp"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

namespace korvat::test {

namespace {

constexpr std::array<const char*, 7> run_files = {"KORVAT.INP",     "KORVAT.MLG", "KORVAT.LIS",
                                                  "PILE.07",        "LOAD.09",    "PILEPLOT.TXT",
                                                  "fem_io_unit_012"};
constexpr int processor_seconds = 1;
constexpr unsigned wall_seconds = 60;

std::uint64_t processor_microseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1000000U +
           static_cast<std::uint64_t>(now.tv_nsec) / 1000U;
}

// Both timers end the process when they run out.
void set_timers(int processor, unsigned wall) {
    itimerval timer{};
    timer.it_value.tv_sec = processor;
    setitimer(ITIMER_PROF, &timer, nullptr);
    alarm(wall);
}

// Tells how far the sweep of a deck is, on what was standard error.
class Progress {
public:
    explicit Progress(const SweepJob& job) : job_(job), console_(dup(STDERR_FILENO)) {}

    void tell(std::size_t number) const {
        constexpr std::size_t steps = 10;
        const std::size_t count = job_.damages.count();
        const std::size_t step = number * steps / count;
        if (number < job_.stride || step == (number - job_.stride) * steps / count) return;
        dprintf(console_, "%s: %zu %%\n", job_.deck_name.c_str(), step * (100 / steps));
    }

private:
    const SweepJob& job_;
    int console_; // open until the process ends
};

// What the program says goes to a file, which each run finds empty.
void redirect_console() {
    const int file = open(console_name, O_WRONLY | O_CREAT | O_APPEND, 0666);
    if (file < 0 || dup2(file, STDOUT_FILENO) < 0 || dup2(file, STDERR_FILENO) < 0) {
        throw std::runtime_error("cannot redirect the console");
    }
    close(file);
}

std::string console_text() {
    std::fflush(stdout);
    struct stat status {};
    if (stat(console_name, &status) != 0 || status.st_size == 0) return "";
    std::string text = read_whole_file(console_name);
    if (truncate(console_name, 0) != 0) throw std::runtime_error("cannot empty the console file");
    return text;
}

void raise_to(std::atomic<std::uint64_t>& highest, std::uint64_t value) {
    std::uint64_t seen = highest;
    while (seen < value && !highest.compare_exchange_weak(seen, value)) {
    }
}

std::size_t outcome_of(int exit_code) {
    return exit_code < 0 ? outcomes - 1 : static_cast<std::size_t>(exit_code);
}

void run_copy(const SweepJob& job, std::size_t number, const DamagedDeck& damaged,
              SharedCounts& counts) {
    KindCounts& kind = counts.kinds.at(damaged.kind);
    ++kind.runs;
    write_whole_file("KORVAT.INP", damaged.text);
    set_timers(processor_seconds, wall_seconds);
    const std::uint64_t start = processor_microseconds();
    const RunEnd end_of_run = run_program(0, nullptr);
    const std::uint64_t end = processor_microseconds();
    set_timers(0, 0);
    const RunTraces traces{.exit_code = end_of_run.exit_code,
                           .deck = damaged.text,
                           .log = read_whole_file("KORVAT.MLG"),
                           .console = console_text(),
                           .report = end_of_run.report};
    const std::string fault = fault_of_run(traces, job.forms);
    if (!fault.empty()) {
        keep_fault(job, number, ".", fault + "\n" + traces.report + traces.console, counts);
    }
    if (traces.exit_code >= -1 && traces.exit_code <= 2) {
        ++kind.ended.at(outcome_of(traces.exit_code));
    }
    raise_to(kind.slowest, end - start);
    for (const char* name : run_files)
        unlink(name);
}

} // namespace

void keep_fault(const SweepJob& job, std::size_t number, const std::filesystem::path& directory,
                const std::string& fault, SharedCounts& counts) {
    const DamagedDeck damaged = job.damages.copy(number);
    ++counts.kinds.at(damaged.kind).faults;
    const auto folder = job.fault_directory / (job.deck_name + "-" + std::to_string(number));
    std::filesystem::create_directories(folder);
    const auto keep = [&](const char* name) {
        std::error_code none; // not every run has every file
        std::filesystem::copy_file(directory / name, folder / name,
                                   std::filesystem::copy_options::overwrite_existing, none);
    };
    for (const char* name : run_files)
        keep(name);
    keep(console_name);
    write_whole_file(folder / "KORVAT.INP", damaged.text);
    write_whole_file(folder / "fault.txt",
                     job.deck_name + ", " + std::string(damage_kinds()[damaged.kind]) + ", copy " +
                         std::to_string(number) + ": " + fault + "\n");
}

void work(const SweepJob& job, const std::filesystem::path& directory, SharedCounts& counts,
          WorkerState& state) {
    std::filesystem::create_directories(directory);
    std::filesystem::current_path(directory);
    const Progress progress(job);
    redirect_console();
    for (;;) {
        const std::size_t number = counts.next.fetch_add(job.stride);
        if (number >= job.damages.count()) return;
        progress.tell(number);
        const DamagedDeck damaged = job.damages.copy(number);
        if (damaged.text == job.damages.deck()) {
            ++counts.unchanged;
            continue;
        }
        state.number = number;
        state.running = true;
        run_copy(job, number, damaged, counts);
        state.running = false;
    }
}

} // namespace korvat::test
