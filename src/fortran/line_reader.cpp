#include "fortran/line_reader.hpp"

namespace korvat::fortran {

int LineReader::get() {
    int c = input_->get();
    if (fem::utils::is_stream_err(c)) throw fem::io_err("Error during read");
    if (is_first_ && fem::utils::is_stream_end(c)) throw fem::read_end("End of input during read");
    is_first_ = false;
    if (c != '\r') return c;
    // A CR counts only as a part of CR LF. Put back at the end of the file, the runtime's end mark
    // becomes a NUL, which the line then has behind its CR.
    const int next_character = input_->get();
    if (fem::utils::is_stream_err(next_character)) throw fem::io_err("Error during read");
    if (next_character == '\n') return '\n';
    input_->backup();
    return c;
}

char LineReader::next() {
    if (is_at_end_) return ' ';
    const int c = get();
    is_at_end_ = fem::utils::is_stream_end(c) || fem::utils::is_end_of_line(c);
    return is_at_end_ ? ' ' : static_cast<char>(c);
}

void LineReader::skip_rest() {
    while (!is_at_end_) {
        static_cast<void>(next());
    }
}

} // namespace korvat::fortran
