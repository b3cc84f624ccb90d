// The run driver: opens the files and calls the steps of a run in their fixed order.
#pragma once

#include "fortran/text.hpp"
#include "model/store.hpp"
#include "output/record_file.hpp"
#include "run/time_stamp.hpp"

#include <span>

namespace korvat {

// The steps that a run consists of. Each reports failure through IERR. A step that is null does
// nothing and leaves IERR at 0.
struct Steps {
    void (*readpi)(Store& cmn) = nullptr;
    void (*build)(Store& cmn) = nullptr;
    void (*printpil)(Store& cmn, const fortran::Text<10>& version,
                     const fortran::Text<11>& release_date, const TimeFields& ITIME) = nullptr;
    void (*sketch)(Store& cmn, std::span<const double> XC, std::span<const double> YC, int& NP,
                   int& NROWS, int NCOLS, int IOUT) = nullptr;
    void (*save)(Store& cmn, const RecordFile& pile_file) = nullptr;
    void (*loads)(Store& cmn, const RecordFile& load_file) = nullptr;
};

// The steps of this program.
[[nodiscard]] Steps program_steps();

// Runs the steps in the current directory until one fails; then closes the files, removes the
// runtime's scratch files and writes the exit line. Returns IERR, the failing step's code. The
// message log stays open until the store goes. What a step throws, the runtime's stop among it,
// passes through without any closing step.
int contrl(Store& cmn, const Steps& steps);

} // namespace korvat
