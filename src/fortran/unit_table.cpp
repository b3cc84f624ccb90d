#include "fortran/unit_table.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>

namespace korvat::fortran {
namespace {

std::string scratch_name(int unit) {
    std::string digits = std::to_string(unit);
    if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
    return "fem_io_unit_" + digits;
}

// Why a scratch file cannot be made; the runtime's own attempts have left the reason of the last.
int reason_against_creating(const std::string& name) {
    errno = 0;
    std::FILE* const file = std::fopen(name.c_str(), "ab+");
    if (file == nullptr) return errno;
    std::fclose(file);
    return 0;
}

} // namespace

UnitTable::UnitTable(int argc, const char* const* argv)
    : common_(argc, const_cast<const char**>(argv)) {} // the runtime only reads them

UnitTable::~UnitTable() {
    for (auto& [unit, connection] : connections_) {
        connection.stream.empty();
    }
    // The runtime takes unit 6 for a terminal and never closes it, whatever file it is on.
    std::FILE* const log = file_of(message_log_unit);
    if (log != nullptr && log != stdout) std::fclose(log);
}

std::FILE* UnitTable::file_of(int unit) const {
    const auto found = common_.io.units.find(unit);
    return found == common_.io.units.end() ? nullptr : found->second.stream.ptr;
}

void UnitTable::note_fault(const std::string& file, int error) {
    const auto is_file = [&](const WriteFault& fault) { return fault.file == file; };
    if (std::ranges::any_of(write_faults_, is_file)) return;
    write_faults_.push_back({file, error != 0 ? error : EIO});
}

void UnitTable::note_fault(const fem::io_unit& unit, int error) {
    if (unit.number == standard_error_unit) return;
    faulty_units_.insert(unit.number);
    note_fault(unit.file_name.empty() ? std::string(standard_output_name) : unit.file_name, error);
}

void UnitTable::check(const Connection& connection) {
    if (connection.stream.error() != 0) note_fault(connection.unit, connection.stream.error());
}

void UnitTable::check(int unit) {
    check(connected(unit));
}

// Writes what the unit's buffer holds; a failure becomes a fault.
void UnitTable::empty(Connection& connection) {
    connection.stream.empty();
    check(connection);
}

void UnitTable::empty(int unit) {
    const auto found = connections_.find(unit);
    if (found != connections_.end()) empty(found->second);
}

int UnitTable::open(int unit, std::string_view file, OpenStatus status) {
    fem::io& io = common_.io;
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
    open_error_ = errno != 0 ? errno : EEXIST;
    // The failed unit stays in the runtime's table without a file, and its next use would crash.
    io.units.erase(unit);
    if (unit == message_log_unit) {
        io.units.insert(std::make_pair(unit, fem::io_unit(unit, "", fem::std_file(stdout))));
    }
    return iostat;
}

// Closes the stream of a unit, which then has none; a standard stream is flushed only.
void UnitTable::close_stream(int unit) {
    const auto found = common_.io.units.find(unit);
    if (found == common_.io.units.end()) return;
    fem::io_unit& connected = found->second;
    std::FILE* const file = connected.stream.ptr;
    if (file == nullptr) return;
    empty(unit);
    quick_place(unit) = nullptr;
    connections_.erase(unit);
    const bool was_written = written_units_.erase(unit) != 0;
    errno = 0;
    if (is_standard_stream(file)) {
        if (was_written && std::fflush(file) != 0) note_fault(connected, errno);
        return;
    }
    connected.stream.ptr = nullptr;
    if (std::fclose(file) != 0 && was_written) note_fault(connected, errno);
}

int UnitTable::close(int unit) {
    close_stream(unit);
    int iostat = 0;
    common_.io.close(unit).iostat(iostat);
    return iostat;
}

void UnitTable::close_all() {
    fem::io& io = common_.io;
    while (!io.units.empty()) {
        const int unit = io.units.begin()->first;
        close_stream(unit);
        io.units.erase(unit);
    }
}

bool UnitTable::wrote_all(int unit) {
    empty(unit);
    return !faulty_units_.contains(unit);
}

UnitTable::Connection& UnitTable::connected(int unit) {
    Connection*& quick = quick_place(unit);
    if (quick != nullptr && quick->unit.number == unit) return *quick;
    auto found = connections_.find(unit);
    if (found == connections_.end()) found = connections_.try_emplace(unit, opened(unit)).first;
    quick = &found->second;
    return *quick;
}

// The unit in the runtime's table, with a scratch file if it has no file yet.
fem::io_unit& UnitTable::opened(int unit) {
    fem::io& io = common_.io;
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

void UnitTable::rewind(int unit) {
    Connection& connection = connected(unit);
    empty(connection);
    connection.stream.forget_reading();
    common_.io.rewind(unit);
}

// Cuts the unit's file at its present position. A file that ends there is left as it is: a file
// system may hurry what was cut down to nothing to the disk as soon as it is closed.
void UnitTable::cut(Connection& connection) {
    if (connection.stream.is_at_file_end()) {
        connection.unit.prev_op_was_write = true;
    } else {
        common_.io.simple_ostream(connection.unit.number);
    }
}

UnitStream& UnitTable::for_writing(int unit) {
    Connection& connection = connected(unit);
    if (connection.unit.prev_op_was_write) return connection.stream;
    written_units_.insert(unit);
    errno = 0;
    try {
        if (!connection.stream.end_reading()) {
            throw fem::io_err("Cannot position file : " + connection.unit.file_name);
        }
        cut(connection);
    } catch (const fem::io_err&) {
        note_fault(connection.unit, errno);
        throw;
    }
    return connection.stream;
}

UnitStream& UnitTable::for_reading(int unit) {
    Connection& connection = connected(unit);
    if (connection.unit.prev_op_was_write) {
        empty(connection);
        connection.unit.prev_op_was_write = false;
    }
    return connection.stream;
}

} // namespace korvat::fortran
