// The run driver: opens the files and calls the steps of a run in their fixed order.
#pragma once

#include "fortran/text.hpp"
#include "model/store/store.hpp"
#include "model/store/time_fields.hpp"
#include "output/record_file.hpp"

#include <span>
#include <vector>

namespace korvat {

// The steps that a run consists of. Each reports failure through IERR.
struct Steps {
    void (&readpi)(Store& cmn);
    void (&build)(Store& cmn);
    void (&printpil)(Store& cmn, const fortran::Text<10>& version,
                     const fortran::Text<11>& release_date, const TimeFields& ITIME);
    void (&sketch)(Store& cmn, std::span<const double> XC, std::span<const double> YC, int& NP,
                   int& NROWS, int NCOLS, int IOUT);
    void (&save)(Store& cmn, const RecordFile& pile_file);
    void (&loads)(Store& cmn, const RecordFile& load_file);
};

// The steps of this program.
[[nodiscard]] Steps program_steps();

// Runs the steps in the current directory until one fails; then closes the files, removes the
// runtime's scratch files and writes the exit line. Returns IERR, the failing step's code. The
// message log stays open. What a step throws, the runtime's stop among it, passes through; only the
// record files are closed before.
int contrl(Store& cmn, const Steps& steps);

// Closes every unit and asks each output of the run whether all of it was written, whether it was
// closed without an error and whether it is still there under its name. Returns those that failed;
// also after an exception has left contrl. The store can only be destroyed then.
[[nodiscard]] std::vector<fortran::WriteFault> close_outputs(Store& cmn);

} // namespace korvat
