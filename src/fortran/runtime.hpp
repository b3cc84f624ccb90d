// Units and records: the door to the Fortran-emulation runtime's open, close, rewind, read, write.
#pragma once

#include "fortran/item.hpp"
#include "fortran/text.hpp"
#include "fortran/unit_stream.hpp"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::fortran {

class FormatProgram;

enum class OpenStatus { old_file, new_file };

// The file of unit 6 while no file is open on it.
inline constexpr std::string_view standard_output_name = "standard output";

// A file that could not be written whole.
struct WriteFault {
    std::string file;
    int error = 0; // the system's error number (errno) of the first call that failed
};

// One run's unit table and command line. Units 0, 5 and 6 start on standard error, input and
// output. A record of unit 0 that equals the one before it is not shown again; when another follows,
// and when the unit is closed, a line tells how often it came. A unit that no open has connected is
// connected at its first use, whatever that is, to a fresh scratch file `fem_io_unit_NNN` in the
// current directory.
//
// The runtime takes every FORMAT apart anew at each write, sends each number through printf and each
// line to the system. A run writes hundreds of thousands of lines, so the way of the characters is
// taken over here: a FORMAT is taken apart once, by the runtime's own tokens (FormatProgram); items
// are edited straight into the buffer of their unit (edit_items and the editors of i, f and e, the
// last by the runtime's conversion); lines are found in blocks that are read at once (UnitStream).
// The runtime opens, cuts, rewinds, closes and deletes the files and converts the numbers of the deck.
// Every byte is what the runtime writes: tests/differential compares both ways, item by item.
//
// Where a scratch file cannot be made, a std::exception leaves the call. Any other write that fails
// is silent, as in the runtime; wrote_all and write_faults report it.
class Runtime {
public:
    // Hands the program's arguments to the runtime, which looks for its own option only.
    Runtime(int argc, const char* const* argv);

    // Closes every unit, the one that an open put on unit 6 included.
    ~Runtime();
    Runtime(const Runtime&) = delete;
    Runtime& operator=(const Runtime&) = delete;

    // Opens `file` on `unit` for formatted sequential access. Returns the I/O status: 0 on success,
    // 1 when it cannot be opened (old_file: it does not exist; new_file: it exists already). After
    // a failure unit 6 is standard output again, any other unit is unconnected.
    [[nodiscard]] int open(int unit, std::string_view file, OpenStatus status);

    // The system's error number (errno) of the open that failed last.
    [[nodiscard]] int open_error() const;

    // Closes the unit; closing an unconnected one does nothing. The I/O status is always 0.
    int close(int unit);

    // Closes every unit; nothing may be read or written afterwards.
    void close_all();

    // Whether every write to the unit has succeeded so far.
    [[nodiscard]] bool wrote_all(int unit);

    // The files, each once, of which a write or the closing failed, in the order of the failures.
    // Unit 6 is named "standard output" when no file was opened on it; unit 0 is not watched.
    [[nodiscard]] const std::vector<WriteFault>& write_faults() const;

    void rewind(int unit);

    // Writes one formatted record (or several, as the FORMAT says). An item whose kind is not the
    // one its edit descriptor takes is a fault of the program, not of a deck: std::logic_error.
    // A real that the runtime cannot print under its descriptor appears as w asterisks.
    template <Writable... Items>
    void write(int unit, std::string_view format, const Items&... items) {
        if constexpr (sizeof...(Items) == 0) {
            write_items(unit, format, {});
        } else {
            const Item list[] = {Item(items)...};
            write_items(unit, format, list);
        }
    }
    void write_items(int unit, std::string_view format, std::span<const Item> items);

    // Reads the next line with the format "(aN)", N being the text's own width: characters beyond
    // it are skipped, a shorter line is blank-padded. `line` is unchanged unless a line came.
    template <std::size_t N>
    [[nodiscard]] ReadStatus read_line(int unit, Text<N>& line) {
        return read_characters(unit, std::span<char>(line.data(), N));
    }

    // Reads and drops one line. An end of file or a read error leaves as the runtime's exception.
    void skip_line(int unit);

private:
    struct State;

    void write_error_record(const FormatProgram& program, std::span<const Item> items);
    ReadStatus read_characters(int unit, std::span<char> characters);

    std::unique_ptr<State> state_;
};

} // namespace korvat::fortran
