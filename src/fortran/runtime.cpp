#include "fortran/runtime.hpp"

#include "fortran/format_program.hpp"
#include "fortran/formatted_write.hpp"
#include "fortran/repeated_record.hpp"
#include "fortran/unit_table.hpp"

#include <string>

namespace korvat::fortran {

struct Runtime::State {
    State(int argc, const char* const* argv) : units(argc, argv) {}

    UnitTable units;
    FormatPrograms formats;
    RepeatedRecord last_error; // the record of standard error
};

Runtime::Runtime(int argc, const char* const* argv) : state_(std::make_unique<State>(argc, argv)) {}

Runtime::~Runtime() {
    state_->last_error.tell(state_->units.file_of(standard_error_unit));
}

int Runtime::open(int unit, std::string_view file, OpenStatus status) {
    return state_->units.open(unit, file, status);
}

int Runtime::open_error() const {
    return state_->units.open_error();
}

int Runtime::close(int unit) {
    if (unit == standard_error_unit) state_->last_error.tell(state_->units.file_of(unit));
    return state_->units.close(unit);
}

void Runtime::close_all() {
    state_->last_error.tell(state_->units.file_of(standard_error_unit));
    state_->units.close_all();
}

bool Runtime::wrote_all(int unit) {
    return state_->units.wrote_all(unit);
}

const std::vector<WriteFault>& Runtime::write_faults() const {
    return state_->units.write_faults();
}

void Runtime::rewind(int unit) {
    state_->units.rewind(unit);
}

void Runtime::write_items(int unit, std::string_view format, std::span<const Item> items) {
    const FormatProgram& program = state_->formats.of(format);
    if (unit == standard_error_unit) {
        write_error_record(program, items);
        return;
    }
    UnitStream& stream = state_->units.for_writing(unit);
    edit_items(stream, program, items, "\n");
    if (unit == message_log_unit) stream.empty(); // whoever watches a run sees each line of the log
    if (stream.error() != 0) state_->units.check(unit);
}

void Runtime::write_error_record(const FormatProgram& program, std::span<const Item> items) {
    TextSink record;
    edit_items(record, program, items, "\n");
    if (state_->last_error.is_repeated(record.text())) return;
    state_->last_error.tell(state_->units.file_of(standard_error_unit));
    state_->last_error.begin(record.text());
    UnitStream& stream = state_->units.for_writing(standard_error_unit);
    stream.put(record.text());
    stream.empty();
}

ReadStatus Runtime::read_characters(int unit, std::span<char> characters) {
    return state_->units.for_reading(unit).read_line(characters);
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
