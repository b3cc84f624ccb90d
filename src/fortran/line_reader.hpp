// One formatted record, read character by character from a unit of the runtime.
#pragma once

#include "fortran/fem_runtime.hpp"

namespace korvat::fortran {

// Reads as the runtime reads a record under "(aN)", its treatment of CR and LF included. The
// runtime's own loop skips the rest of the line when it is destroyed, where a read error would end
// the process; here it leaves as an exception.
class LineReader {
public:
    LineReader(fem::common& common, int unit) : input_(common.io.simple_istream(unit)) {}

    // Reads the next character of the line; a blank behind its end. Raises fem::read_end where the
    // unit has no further line, fem::io_err when it cannot be read.
    [[nodiscard]] char next();

    // Passes over what is left of the line. Raises as `next` does.
    void skip_rest();

private:
    int get();

    fem::utils::slick_ptr<fem::utils::simple_istream> input_;
    bool is_first_ = true;
    bool is_at_end_ = false; // the end of the line has been read
};

} // namespace korvat::fortran
