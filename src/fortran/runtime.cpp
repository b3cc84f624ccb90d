#include "fortran/runtime.hpp"

#include "fortran/edit_descriptors.hpp"
#include "fortran/fem_runtime.hpp"
#include "fortran/internal_write.hpp"
#include "fortran/line_reader.hpp"
#include "fortran/write_items.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
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

// What standard error was given last, and how often in a row.
struct LastRecord {
    std::string text;
    int count = 0;
};

// A record of standard error as it is compared with the one before it. None is longer.
std::string record_text(std::string_view format, std::span<const Item> items) {
    constexpr std::size_t longest_record = 2000;
    return edited_items(longest_record, format, items);
}

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

    // The error mark of a stream stays, so that a fault shows here at the latest.
    void check_stream(const fem::io_unit& unit) {
        if (unit.stream.ptr != nullptr && std::ferror(unit.stream.ptr) != 0) {
            note_fault(unit, errno);
        }
    }

    // Whether this is the record that standard error was given before; it is counted then.
    bool is_repeated(std::string_view format, std::span<const Item> items) {
        std::string text = record_text(format, items);
        if (last_record.count > 0 && text == last_record.text) {
            ++last_record.count;
            return true;
        }
        tell_repetitions();
        last_record = {.text = std::move(text), .count = 1};
        return false;
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

    fem::common common;
    EditDescriptors descriptors;
    LastRecord last_record;
    int open_error = 0;
    std::set<int> written_units;
    std::set<int> faulty_units;
    std::vector<WriteFault> write_faults;
};

Runtime::Runtime(int argc, const char* const* argv) : state_(std::make_unique<State>(argc, argv)) {}

Runtime::~Runtime() {
    state_->tell_repetitions();
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

bool Runtime::wrote_all(int unit) const {
    return !state_->faulty_units.contains(unit);
}

const std::vector<WriteFault>& Runtime::write_faults() const {
    return state_->write_faults;
}

void Runtime::connect(int unit) {
    fem::io& io = state_->common.io;
    if (io.unit_ptr(unit) != nullptr) return;
    const std::string name = scratch_name(unit);
    // A stopped run may have left its scratch file, which would otherwise be read as this run's.
    std::remove(name.c_str());
    try {
        io.unit_ptr(unit, /*auto_open*/ true);
    } catch (const fem::io_err&) {
        io.units.erase(unit);
        state_->note_fault(name, reason_against_creating(name));
        throw;
    } catch (...) {
        io.units.erase(unit);
        throw;
    }
}

void Runtime::rewind(int unit) {
    connect(unit);
    state_->common.io.rewind(unit);
}

void Runtime::write_items(int unit, std::string_view format, std::span<const Item> items) {
    const auto edits = state_->descriptors.of(format, items.size());
    require_kinds(items, edits, format);
    if (unit == standard_error_unit && state_->is_repeated(format, items)) return;
    connect(unit);
    const fem::io_unit& connected = *state_->common.io.unit_ptr(unit);
    state_->written_units.insert(unit);
    errno = 0;
    try {
        fem::write_loop loop(state_->common, unit, as_fem(format));
        put_items(loop, items, edits);
    } catch (const fem::io_err&) { // the file cannot be cut at its present position
        state_->note_fault(connected, errno);
        throw;
    }
    state_->check_stream(connected);
}

ReadStatus Runtime::read_characters(int unit, std::span<char> characters) {
    connect(unit);
    std::string line;
    line.reserve(characters.size());
    try {
        LineReader reader(state_->common, unit);
        while (line.size() < characters.size()) {
            line += reader.next();
        }
        reader.skip_rest();
    } catch (const fem::read_end&) {
        return ReadStatus::end;
    } catch (const fem::io_err&) {
        return ReadStatus::error;
    }
    line.copy(characters.data(), characters.size());
    return ReadStatus::line;
}

void Runtime::skip_line(int unit) {
    connect(unit);
    LineReader reader(state_->common, unit);
    reader.skip_rest();
}

} // namespace korvat::fortran
