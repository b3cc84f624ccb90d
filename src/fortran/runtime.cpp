// Units and records: the door to the Fortran-emulation runtime's open, close, rewind, read, write.
#include "fortran/runtime.hpp"

#include "fortran/edit_descriptors.hpp"
#include "fortran/fem_runtime.hpp"
#include "fortran/write_items.hpp"

#include <cstdio>
#include <string>

namespace korvat::fortran {
namespace {

constexpr int message_log_unit = 6;

std::string scratch_name(int unit) {
    std::string digits = std::to_string(unit);
    if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
    return "fem_io_unit_" + digits;
}

} // namespace

struct Runtime::State {
    State(int argc, const char* const* argv)
        : common(argc, const_cast<const char**>(argv)) {} // the runtime only reads them

    fem::common common;
    EditDescriptors descriptors;
};

Runtime::Runtime(int argc, const char* const* argv) : state_(std::make_unique<State>(argc, argv)) {}

Runtime::~Runtime() {
    // The runtime takes unit 6 for a terminal and never closes it, whatever file it is on.
    const auto log = state_->common.io.units.find(message_log_unit);
    if (log == state_->common.io.units.end()) return;
    std::FILE* const file = log->second.stream.ptr;
    if (file != nullptr && file != stdout) std::fclose(file);
}

int Runtime::open(int unit, std::string_view file, OpenStatus status) {
    fem::io& io = state_->common.io;
    int iostat = 0; // the runtime stores a failure only
    io.open(unit, std::string(file))
        .status(status == OpenStatus::old_file ? "old" : "new")
        .form("formatted")
        .access("sequential")
        .iostat(iostat);
    if (iostat == 0) return 0;
    // The failed unit stays in the runtime's table without a file, and its next use would crash.
    io.units.erase(unit);
    if (unit == message_log_unit) {
        io.units.insert(std::make_pair(unit, fem::io_unit(unit, "", fem::std_file(stdout))));
    }
    return iostat;
}

int Runtime::close(int unit) {
    int iostat = 0;
    state_->common.io.close(unit).iostat(iostat);
    return iostat;
}

void Runtime::connect(int unit) {
    fem::io& io = state_->common.io;
    if (io.unit_ptr(unit) != nullptr) return;
    // A stopped run may have left its scratch file, which would otherwise be read as this run's.
    std::remove(scratch_name(unit).c_str());
    try {
        io.unit_ptr(unit, /*auto_open*/ true);
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
    connect(unit);
    fem::write_loop loop(state_->common, unit, as_fem(format));
    put_items(loop, items, edits);
}

ReadStatus Runtime::read_characters(int unit, std::span<char> characters) {
    connect(unit);
    // The width counts only when the target has just that length, so one is made for each read.
    std::string line(characters.size(), ' ');
    const std::string format = "(a" + std::to_string(line.size()) + ")";
    try {
        fem::read_loop loop(state_->common, unit, as_fem(format));
        loop, fem::str_ref(line.data(), static_cast<int>(line.size()));
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
    char dropped = ' '; // a read without an item would end the process at the end of the file
    fem::read_loop loop(state_->common, unit, "(a1)");
    loop, fem::str_ref(&dropped, 1);
}

} // namespace korvat::fortran
