// One process of the sweep: takes copies of a deck in turn, runs and judges them.
#pragma once

#include "damage.hpp"
#include "message_forms.hpp"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace korvat::test {

constexpr std::size_t most_kinds = 16;

// Exit codes in the order of the table: 0, 1, 2, -1.
constexpr std::size_t outcomes = 4;

// What the program says in a worker's directory.
constexpr const char* console_name = "console";

struct KindCounts {
    std::atomic<std::uint64_t> runs;
    std::array<std::atomic<std::uint64_t>, outcomes> ended;
    std::atomic<std::uint64_t> faults;
    std::atomic<std::uint64_t> slowest; // processor time, microseconds
};

// Shared by the processes of a sweep; zeros at first.
struct SharedCounts {
    std::atomic<std::uint64_t> next;      // the copy that is next to be taken
    std::atomic<std::uint64_t> unchanged; // copies equal to the deck, not run
    std::array<KindCounts, most_kinds> kinds;
};

// The copy that a worker is at, for the case that it dies.
struct WorkerState {
    std::atomic<std::uint64_t> number;
    std::atomic<bool> running;
};

struct SweepJob {
    const Damages& damages;
    const MessageForms& forms;
    std::size_t stride;
    std::filesystem::path fault_directory; // gets a folder for each fault found
    std::string deck_name;
};

// Runs in its process until no copy is left. A run that takes more than a second of processor time,
// or a minute, ends the process with a signal, and so does a fault that a sanitizer finds.
void work(const SweepJob& job, const std::filesystem::path& directory, SharedCounts& counts,
          WorkerState& state);

// Keeps the copy, what the run left in the directory, and what is wrong.
void keep_fault(const SweepJob& job, std::size_t number, const std::filesystem::path& directory,
                const std::string& fault, SharedCounts& counts);

} // namespace korvat::test
