// The damage sweep: runs every damaged copy of the decks and prints what became of them.
#include "../support/scratch_directory.hpp"
#include "worker_posix.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <new>
#include <stdexcept>
#include <string>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace korvat::test {
namespace {

constexpr const char* usage =
    "usage: korvat_damage_sweep FORMS FAULT_DIRECTORY STRIDE OFFSET WORKERS DECK_DIRECTORY...";

struct Shared {
    SharedCounts counts;
    std::array<WorkerState, 16> workers;
};

// Zeroed memory that child processes share.
Shared& shared_memory() {
    void* const memory =
        mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::runtime_error("no shared memory");
    return *new (memory) Shared{};
}

std::size_t number_of(const char* text) {
    const std::string_view digits = text;
    std::size_t value = 0;
    const auto end = digits.data() + digits.size();
    const auto [last, error] = std::from_chars(digits.data(), end, value);
    if (error != std::errc() || last != end) throw std::runtime_error(usage);
    return value;
}

struct Options {
    std::filesystem::path forms;
    std::filesystem::path faults;
    std::size_t stride = 1;
    std::size_t offset = 0;
    std::size_t workers = 1;
    std::vector<std::filesystem::path> decks;
};

Options parse(int argc, char** argv) {
    if (argc < 7) throw std::runtime_error(usage);
    Options options{.forms = argv[1],
                    .faults = std::filesystem::absolute(argv[2]),
                    .stride = number_of(argv[3]),
                    .offset = number_of(argv[4]),
                    .workers = number_of(argv[5]),
                    .decks = {}};
    if (options.stride < 1 || options.workers < 1 || options.workers > 16) {
        throw std::runtime_error(usage);
    }
    for (int i = 6; i < argc; ++i)
        options.decks.emplace_back(argv[i]);
    return options;
}

std::string end_of(int status) {
    if (WIFSIGNALED(status)) {
        const int signal = WTERMSIG(status);
        if (signal == SIGPROF) return "more than a second";
        if (signal == SIGALRM) return "more than a minute";
        return "ended by signal " + std::to_string(signal);
    }
    return "ended the process, code " + std::to_string(WEXITSTATUS(status));
}

// The processes of the sweep of one deck.
class Crew {
public:
    Crew(const SweepJob& job, const std::filesystem::path& scratch, Shared& shared,
         std::size_t workers)
        : job_(job), scratch_(scratch), shared_(shared), processes_(workers) {}

    // Returns when no copy is left. A worker that a run has ended is replaced.
    void sweep() {
        for (std::size_t w = 0; w < processes_.size(); ++w)
            start(w);
        for (std::size_t left = processes_.size(); left > 0;) {
            int status = 0;
            const std::size_t w = worker_of(wait(&status));
            WorkerState& state = shared_.workers.at(w);
            if (state.running) {
                keep_fault(job_, state.number, directory_of(w), end_of(status), shared_.counts);
                std::filesystem::remove_all(directory_of(w));
                state.running = false;
                start(w);
            } else if (status == 0) {
                --left;
            } else {
                throw std::runtime_error("a worker failed behind its last run\n" +
                                         read_whole_file(directory_of(w) / console_name));
            }
        }
    }

private:
    std::filesystem::path directory_of(std::size_t w) const {
        return scratch_ / ("worker-" + std::to_string(w));
    }

    std::size_t worker_of(pid_t process) const {
        const auto found = std::find(processes_.begin(), processes_.end(), process);
        if (found == processes_.end()) throw std::runtime_error("cannot wait for a worker");
        return static_cast<std::size_t>(found - processes_.begin());
    }

    void start(std::size_t w) {
        processes_[w] = fork();
        if (processes_[w] < 0) throw std::runtime_error("cannot make a process");
        if (processes_[w] > 0) return;
        try {
            work(job_, directory_of(w), shared_.counts, shared_.workers.at(w));
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
            std::_Exit(EXIT_FAILURE);
        }
        // Not past the sanitizer's search for leaks.
        std::exit(EXIT_SUCCESS);
    }

    const SweepJob& job_;
    std::filesystem::path scratch_;
    Shared& shared_;
    std::vector<pid_t> processes_;
};

struct Row {
    std::uint64_t runs = 0;
    std::array<std::uint64_t, outcomes> ended{};
    std::uint64_t faults = 0;
    std::uint64_t slowest = 0;

    void add(const KindCounts& kind) {
        runs += kind.runs;
        for (std::size_t i = 0; i < outcomes; ++i)
            ended.at(i) += kind.ended.at(i);
        faults += kind.faults;
        slowest = std::max<std::uint64_t>(slowest, kind.slowest);
    }
};

void print_row(std::string_view title, const Row& row) {
    std::cout << "  " << std::left << std::setw(22) << title << std::right << std::setw(9)
              << row.runs;
    for (const std::uint64_t count : row.ended)
        std::cout << std::setw(9) << count;
    std::cout << std::setw(9) << row.faults << std::setw(9) << row.slowest / 1000 << '\n';
}

// Prints the table of one deck, and adds its runs to a total.
void print_table(const std::string& name, const SharedCounts& counts, Row& total) {
    std::cout << std::left << std::setw(24) << name
              << "     runs   exit 0   exit 1   exit 2  exit -1   faults       ms\n";
    Row all;
    for (std::size_t i = 0; i < damage_kinds().size(); ++i) {
        Row row;
        row.add(counts.kinds.at(i));
        all.add(counts.kinds.at(i));
        total.add(counts.kinds.at(i));
        print_row(damage_kinds()[i], row);
    }
    print_row("all", all);
    std::cout << "  " << counts.unchanged << " copies equal to the deck were not run\n"
              << std::endl;
}

int run(const Options& options) {
    const MessageForms forms(read_whole_file(options.forms));
    Row total;
    for (const std::filesystem::path& deck : options.decks) {
        const Damages damages(read_whole_file(deck / "KORVAT.INP"));
        const ScratchDirectory scratch;
        Shared& shared = shared_memory();
        shared.counts.next = options.offset % options.stride;
        const std::string name = deck.filename().string();
        const SweepJob job{.damages = damages,
                           .forms = forms,
                           .stride = options.stride,
                           .fault_directory = options.faults,
                           .deck_name = name};
        Crew(job, scratch.path(), shared, options.workers).sweep();
        print_table(name, shared.counts, total);
        munmap(&shared, sizeof(Shared));
    }
    print_row("all decks", total);
    std::cout.flush();
    return total.faults == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace
} // namespace korvat::test

int main(int argc, char** argv) {
    try {
        return korvat::test::run(korvat::test::parse(argc, argv));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
}
