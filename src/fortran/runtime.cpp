#include "fortran/runtime.hpp"

#include "fortran/fem_runtime.hpp"
#include "fortran/format_program.hpp"
#include "fortran/formatted_write.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>

namespace korvat::fortran {
namespace {

constexpr int standard_error_unit = 0;
constexpr int message_log_unit = 6;

std::string scratch_name(int unit) {
    std::string digits = std::to_string(unit);
    if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
    return "fem_io_unit_" + digits;
}

bool is_standard_stream(const std::FILE* file) {
    return file == stdin || file == stdout || file == stderr;
}

// Why a scratch file cannot be made; the runtime's own attempts have left the reason of the last.
int reason_against_creating(const std::string& name) {
    errno = 0;
    std::FILE* const file = std::fopen(name.c_str(), "ab+");
    if (file == nullptr) return errno;
    std::fclose(file);
    return 0;
}

// A unit that is being read or written, and its characters.
struct Connection {
    explicit Connection(fem::io_unit& connected) : unit(connected), stream(connected.stream.ptr) {}

    fem::io_unit& unit;
    UnitStream stream;
};

// What standard error was given last, and how often in a row.
struct LastRecord {
    std::string text;
    int count = 0;
};

} // namespace

struct Runtime::State {
    State(int argc, const char* const* argv)
        : common(argc, const_cast<const char**>(argv)) {} // the runtime only reads them

    void note_fault(const std::string& file, int error) {
        const auto is_file = [&](const WriteFault& fault) { return fault.file == file; };
        if (std::ranges::any_of(write_faults, is_file)) return;
        write_faults.push_back({file, error != 0 ? error : EIO});
    }

    void note_fault(const fem::io_unit& unit, int error) {
        if (unit.number == standard_error_unit) return;
        faulty_units.insert(unit.number);
        note_fault(unit.file_name.empty() ? std::string(standard_output_name) : unit.file_name,
                   error);
    }

    void check(const Connection& connection) {
        if (connection.stream.error() != 0) note_fault(connection.unit, connection.stream.error());
    }

    // Writes what the unit's buffer holds; a failure becomes a fault.
    void empty(Connection& connection) {
        connection.stream.empty();
        check(connection);
    }

    void empty(int unit) {
        const auto found = connections.find(unit);
        if (found != connections.end()) empty(found->second);
    }

    void disconnect(int unit) {
        last_connection = nullptr;
        connections.erase(unit);
    }

    // Connects the unit to a scratch file if it has no file yet.
    Connection& connected(int unit) {
        if (last_connection != nullptr && last_connection->unit.number == unit) {
            return *last_connection;
        }
        auto found = connections.find(unit);
        if (found == connections.end()) found = connections.try_emplace(unit, opened(unit)).first;
        last_connection = &found->second;
        return *last_connection;
    }

    // The runtime cuts the file at its present position where writing begins.
    void begin_writing(Connection& connection) {
        fem::io_unit& unit = connection.unit;
        written_units.insert(unit.number);
        errno = 0;
        try {
            if (!connection.stream.end_reading()) {
                throw fem::io_err("Cannot position file : " + unit.file_name);
            }
            common.io.simple_ostream(unit.number);
        } catch (const fem::io_err&) {
            note_fault(unit, errno);
            throw;
        }
    }

    UnitStream& stream_for_reading(int unit) {
        Connection& connection = connected(unit);
        if (connection.unit.prev_op_was_write) {
            empty(connection);
            connection.unit.prev_op_was_write = false;
        }
        return connection.stream;
    }

    // Edits a record for standard error. Nothing where it is the record before it, which is counted.
    std::optional<std::string> new_record(const FormatProgram& program,
                                          std::span<const Item> items) {
        TextSink record;
        edit_items(record, program, items, "\n");
        if (last_record.count > 0 && record.text() == last_record.text) {
            ++last_record.count;
            return std::nullopt;
        }
        tell_repetitions();
        last_record = {.text = record.text(), .count = 1};
        return last_record.text;
    }

    // Without the runtime, so that nothing is raised where the run ends.
    void tell_repetitions() {
        const auto error_unit = common.io.units.find(standard_error_unit);
        if (last_record.count > 1 && error_unit != common.io.units.end() &&
            error_unit->second.stream.ptr != nullptr) {
            std::fprintf(error_unit->second.stream.ptr, " (the message above came %d times)\n",
                         last_record.count);
        }
        last_record.count = 0;
    }

    fem::io_unit& opened(int unit);

    fem::common common;
    FormatPrograms formats;
    LastRecord last_record;
    std::map<int, Connection> connections; // of the units that have been read or written
    Connection* last_connection = nullptr; // most calls go to the unit of the one before
    int open_error = 0;
    std::set<int> written_units;
    std::set<int> faulty_units;
    std::vector<WriteFault> write_faults;
};

Runtime::Runtime(int argc, const char* const* argv) : state_(std::make_unique<State>(argc, argv)) {}

Runtime::~Runtime() {
    state_->tell_repetitions();
    for (auto& [unit, connection] : state_->connections) {
        connection.stream.empty();
    }
    // The runtime takes unit 6 for a terminal and never closes it, whatever file it is on.
    const auto log = state_->common.io.units.find(message_log_unit);
    if (log == state_->common.io.units.end()) return;
    std::FILE* const file = log->second.stream.ptr;
    if (file != nullptr && file != stdout) std::fclose(file);
}

int Runtime::open(int unit, std::string_view file, OpenStatus status) {
    fem::io& io = state_->common.io;
    close(unit);
    // Opened by hand: the runtime's chain of options opens the file in a destructor that must not
    // raise, and raises where memory is short.
    fem::io_unit& opened =
        io.units.insert(std::make_pair(unit, fem::io_unit(unit, std::string(file)))).first->second;
    opened.status = status == OpenStatus::old_file ? fem::io_unit::st_old : fem::io_unit::st_new;
    opened.form = fem::io_unit::fm_formatted;
    opened.access = fem::io_unit::ac_sequential;
    int iostat = 0; // the runtime stores a failure only
    errno = 0;
    opened.open(&iostat);
    if (iostat == 0) return 0;
    // The runtime refuses by itself, without a call that fails, to make a file that is there.
    state_->open_error = errno != 0 ? errno : EEXIST;
    // The failed unit stays in the runtime's table without a file, and its next use would crash.
    io.units.erase(unit);
    if (unit == message_log_unit) {
        io.units.insert(std::make_pair(unit, fem::io_unit(unit, "", fem::std_file(stdout))));
    }
    return iostat;
}

int Runtime::open_error() const {
    return state_->open_error;
}

// Closes the stream of a unit, which then has none; a standard stream is flushed only.
void Runtime::close_stream(int unit) {
    if (unit == standard_error_unit) state_->tell_repetitions();
    const auto found = state_->common.io.units.find(unit);
    if (found == state_->common.io.units.end()) return;
    fem::io_unit& connected = found->second;
    std::FILE* const file = connected.stream.ptr;
    if (file == nullptr) return;
    state_->empty(unit);
    state_->disconnect(unit);
    const bool was_written = state_->written_units.erase(unit) != 0;
    errno = 0;
    if (is_standard_stream(file)) {
        if (was_written && std::fflush(file) != 0) state_->note_fault(connected, errno);
        return;
    }
    connected.stream.ptr = nullptr;
    if (std::fclose(file) != 0 && was_written) state_->note_fault(connected, errno);
}

int Runtime::close(int unit) {
    close_stream(unit);
    int iostat = 0;
    state_->common.io.close(unit).iostat(iostat);
    return iostat;
}

void Runtime::close_all() {
    fem::io& io = state_->common.io;
    while (!io.units.empty()) {
        const int unit = io.units.begin()->first;
        close_stream(unit);
        io.units.erase(unit);
    }
}

bool Runtime::wrote_all(int unit) {
    state_->empty(unit);
    return !state_->faulty_units.contains(unit);
}

const std::vector<WriteFault>& Runtime::write_faults() const {
    return state_->write_faults;
}

// The unit in the runtime's table, with a scratch file if it has no file yet.
fem::io_unit& Runtime::State::opened(int unit) {
    fem::io& io = common.io;
    if (fem::io_unit* const known = io.unit_ptr(unit)) return *known;
    const std::string name = scratch_name(unit);
    // A stopped run may have left its scratch file, which would otherwise be read as this run's.
    std::remove(name.c_str());
    try {
        return *io.unit_ptr(unit, /*auto_open*/ true);
    } catch (const fem::io_err&) {
        io.units.erase(unit);
        note_fault(name, reason_against_creating(name));
        throw;
    } catch (...) {
        io.units.erase(unit);
        throw;
    }
}

void Runtime::rewind(int unit) {
    Connection& connection = state_->connected(unit);
    state_->empty(connection);
    connection.stream.forget_reading();
    state_->common.io.rewind(unit);
}

void Runtime::write_items(int unit, std::string_view format, std::span<const Item> items) {
    const FormatProgram& program = state_->formats.of(format);
    std::optional<std::string> error_record;
    if (unit == standard_error_unit) {
        error_record = state_->new_record(program, items);
        if (!error_record) return;
    }
    Connection& connection = state_->connected(unit);
    if (!connection.unit.prev_op_was_write) state_->begin_writing(connection);
    if (error_record) {
        connection.stream.put(*error_record);
    } else {
        edit_items(connection.stream, program, items, "\n");
    }
    // Whoever watches a run sees each line of the log.
    const bool is_written_through = unit == message_log_unit || unit == standard_error_unit;
    if (is_written_through) connection.stream.empty();
    state_->check(connection);
}

ReadStatus Runtime::read_characters(int unit, std::span<char> characters) {
    return state_->stream_for_reading(unit).read_line(characters);
}

void Runtime::skip_line(int unit) {
    switch (read_characters(unit, {})) {
    case ReadStatus::line:
        return;
    case ReadStatus::end:
        throw fem::read_end("End of input during read");
    case ReadStatus::error:
        throw fem::io_err("Error during read");
    }
}

} // namespace korvat::fortran
