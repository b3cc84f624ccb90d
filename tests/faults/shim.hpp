// What a test and the preloaded library in the program share: the fault that is asked for, and what happened.
#pragma once

#include <cstddef>
#include <cstdint>

namespace korvat::test {

// The kinds of calls that are counted, each by itself, from 1.
enum class Call : std::uint32_t {
    open,     // of a file or a directory, for any purpose
    read,     // of a block of a file
    write,    // of a block of a file; the standard streams are left alone
    seek,     // asking for a position in a file, or going there
    truncate, // of a file
    flush,    // of a stream
    close,    // of a stream
    rename,
    remove,
    status,   // asking whether there is a file of some name
    list,     // of a directory's next entry
    allocate, // of memory
    count_of_calls
};
constexpr std::size_t call_kinds = static_cast<std::size_t>(Call::count_of_calls);

enum class Action : std::uint32_t {
    fail,            // the call fails and does nothing, but a stream is closed even so
    kill,            // the process is killed before the call
    remove_directory // the current directory goes with all its files before the call
};

// The name of the environment variable with the path of the board's file.
constexpr const char* board_variable = "KORVAT_FAULT_BOARD";

// Lies in a file that both processes map, so that it outlives a killed program.
struct FaultBoard {
    static constexpr std::size_t most_files = 16;
    static constexpr std::size_t name_size = 64;

    // Set by the test. A fault at call 0 never comes.
    Call call;
    Action action;
    std::uint64_t at;
    bool all_after;            // else only the one
    int error;                 // errno of the failing call
    std::uint32_t buffer_size; // of the blocks, up to 4096; 0 leaves them as the system makes them

    // Set by the library.
    std::uint64_t counts[call_kinds];
    std::uint64_t fired;
    std::uint64_t bytes_written;
    std::uint32_t files;                    // names below
    char file_names[most_files][name_size]; // each file that was hit, once, in order
};

} // namespace korvat::test
