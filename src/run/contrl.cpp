#include "run/contrl.hpp"

#include "compute/build.hpp"
#include "input/echo.hpp"
#include "model/sections/readpi.hpp"
#include "model/store/report_error.hpp"
#include "model/store/run_constants.hpp"
#include "output/loads.hpp"
#include "output/printpil.hpp"
#include "output/save.hpp"
#include "output/sketch.hpp"
#include "platform/files.hpp"
#include "run/identification.hpp"
#include "run/identification_page.hpp"
#include "run/open_record_file.hpp"
#include "run/scratch_files.hpp"
#include "run/time_stamp.hpp"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace korvat {
namespace {

using fortran::OpenStatus;
using fortran::right_justified;

constexpr int started = 1; // mode of the time stamp
constexpr int no_unit = 0;

// What contrl holds for the length of a run.
struct Run {
    Store& cmn;
    const Steps& steps;
    Identification texts;
    fortran::Text<50> EXMSG;
    std::optional<RecordFile> pile_file; // PILE.07
    std::optional<RecordFile> load_file; // LOAD.09
    TimeFields listing_time;             // of the listing's stamp, shown in its page headers
};

void write_start_stamp(Store& cmn, int unit, TimeFields& ITIME) {
    int seconds = 0;
    time_stamp(cmn, started, unit, no_unit, seconds, ITIME);
}

void warn(Store& cmn, const DeckPlace& place, std::string text) {
    cmn.report.warnings.push_back({std::move(text), place});
}

// Where something stands in the place of an output, it is not of this run.
void warn_of_unopened(Store& cmn, const std::string& name, const std::string& reason, bool stands) {
    const char* const rest = stands ? "; what stands there is of an earlier run" : "";
    warn(cmn, {}, "cannot open " + name + ": " + reason + rest);
}

// Keeps one backup generation and opens the file anew. A failure to remove or rename is ignored: what
// is in the way then keeps the file from being opened.
int open_with_backup(Store& cmn, int unit, const std::string& name) {
    const std::string backup = name + ".bak";
    platform::remove_file(backup);
    const int rename_error = platform::rename_file(name, backup);
    const bool stands = platform::file_exists(name);
    const int error = cmn.runtime.open(unit, name, OpenStatus::new_file);
    if (error == 0) {
        cmn.report.outputs.push_back(name);
    } else if (stands && rename_error != 0) {
        const std::string reason = platform::error_text(rename_error);
        warn_of_unopened(cmn, name, "cannot rename it to " + backup + ": " + reason, stands);
    } else {
        warn_of_unopened(cmn, name, platform::error_text(cmn.runtime.open_error()), stands);
    }
    return error;
}

void open_message_log(Run& run) {
    Store& cmn = run.cmn;
    cmn.IERR = 0;
    cmn.NF5 = 5;
    cmn.NF6 = 6;
    // Not tested: without a log the run goes on and its messages go to standard output.
    cmn.IERR = open_with_backup(cmn, cmn.NF6, "KORVAT.MLG");
    TimeFields ITIME;
    write_start_stamp(cmn, cmn.NF6, ITIME);
    write_identification_page(cmn, cmn.NF6, run.texts, ITIME);
    cmn.runtime.write(cmn.NF6, "(/,' +++++ START PROGRAM KORVAT   VERSION = ',a11,a11)",
                      right_justified(run.texts.version.view()), run.texts.release_date);
}

// Writes the error line of a failed open or step; the run takes the error exit.
bool fail(Run& run, std::string_view format) {
    report_error(run.cmn, run.cmn.NF6, {}, format, run.cmn.IERR);
    return false;
}

// A record file that cannot be created is reported, and its records are discarded.
RecordFile create_record_file(Run& run, const std::string& name, std::string_view format) {
    Store& cmn = run.cmn;
    const bool stands = platform::file_exists(name);
    try {
        RecordFile file = open_record_file(name);
        cmn.report.outputs.push_back(name);
        return file;
    } catch (const std::system_error& error) {
        cmn.runtime.write(cmn.NF6, format, cmn.IERR);
        warn_of_unopened(cmn, name, platform::error_text(error.code().value()), stands);
        return {};
    }
}

bool open_files(Run& run) {
    Store& cmn = run.cmn;
    // The message has the letter O where the file's name has a zero.
    run.pile_file.emplace(create_record_file(
        run, "PILE.07", "(/,' **** SR/CONTRL  FILE PILE.O7 OPEN PROBLEM  IERR=',i5)"));
    cmn.IERR = cmn.runtime.open(cmn.NF11, "KORVAT.INP", OpenStatus::old_file);
    if (cmn.IERR != 0) {
        return fail(run, "(/,' **** SR/CONTRL  FILE KORVAT.INP OPEN PROBLEM  IERR=',i5)");
    }
    cmn.IERR = open_with_backup(cmn, cmn.NF13, "KORVAT.LIS");
    if (cmn.IERR != 0) {
        cmn.report.fault.file = "KORVAT.LIS";
        return fail(run, "(/,' **** SR/CONTRL  FILE KORVAT.LIS OPEN PROBLEM  IERR=',i5)");
    }
    cmn.IERR = open_with_backup(cmn, cmn.NF14, "PILEPLOT.TXT"); // not tested
    return true;
}

bool read_input(Run& run) {
    Store& cmn = run.cmn;
    rstpil(cmn);
    run.steps.readpi(cmn);
    if (cmn.IERR != 0) return fail(run, "(/,' **** SR/CONTRL  ERROR FROM SR/READPI  IERR=',i5)");
    cmn.runtime.write(cmn.NF6, "(' +++++ INPUT FILE READ , LABEL LINE :',/,1x,a78)", cmn.LABEL);
    return true;
}

void write_program_banner(Run& run) {
    run.cmn.runtime.write(
        run.cmn.NF13,
        "(' PROGRAM KORVAT   Pile Data Generator for Program TOLVAN',/,/,' VERSION :  ',a11,a11)",
        right_justified(run.texts.version.view()), run.texts.release_date);
}

void start_listing(Run& run) {
    Store& cmn = run.cmn;
    // Two tests with the same output, kept apart on purpose.
    if (cmn.IREV == 4) write_program_banner(run);
    if (cmn.IREV == 5) write_program_banner(run);
    if (cmn.NUMLOD > 0) {
        run.load_file.emplace(create_record_file(
            run, "LOAD.09", "(/,' **** SR/CONTRL  FILE LOAD.09 OPEN PROBLEM  IERR=',i5)"));
    }
    write_start_stamp(cmn, cmn.NF13, run.listing_time);
    if (cmn.JECHO == 1) echo(cmn, cmn.NF11, cmn.NF13, "KORVAT");
}

bool compute(Run& run) {
    Store& cmn = run.cmn;
    run.steps.build(cmn);
    if (cmn.IERR != 0) return fail(run, "(/,' **** SR/CONTRL  ERROR FROM SR/BUILD  IERR=',i5)");
    cmn.runtime.write(cmn.NF6, "(' +++++ PILE GEOMETRY VALUES COMPUTED')");
    return true;
}

bool print_listing(Run& run) {
    Store& cmn = run.cmn;
    if (cmn.JPRINT <= 0) return true;
    run.steps.printpil(cmn, run.texts.version, run.texts.release_date, run.listing_time);
    if (cmn.IERR != 0) return fail(run, "(/,' **** SR/CONTRL  ERROR FROM SR/PRINT  IERR=',i5)");
    cmn.runtime.write(cmn.NF6, "(' +++++ RESULT FILE KORVAT.LIS HAS BEEN PRINTED')");
    return true;
}

// A negative print level prints no listing, yet draws the sketch.
void draw_sketch(Run& run) {
    Store& cmn = run.cmn;
    if (cmn.IREV > 4 || cmn.JPRINT == 0) return;
    const auto piles = static_cast<std::size_t>(cmn.NUMPIL);
    std::vector<double> x(2 * piles);
    std::vector<double> y(2 * piles);
    for (int i = 1; i <= cmn.NUMPIL; ++i) {
        const auto head = static_cast<std::size_t>(i - 1);
        const int tip_node = cmn.NELP(i) + 1;
        x[head] = cmn.XNOD(1, i);
        y[head] = cmn.YNOD(1, i);
        x[piles + head] = cmn.XNOD(tip_node, i);
        y[piles + head] = cmn.YNOD(tip_node, i);
    }
    cmn.runtime.write(
        cmn.NF13,
        "(/,1x,a80,/,/,/,' BELOW SKETCH SHOWS PILE HEADS (',i3.3,' - ',i3.3,') AND PILE TIPS (',i3.3,' - ',i3.3,')',/,/,' ')",
        cmn.LABEL, 1, cmn.NUMPIL, cmn.NUMPIL + 1, 2 * cmn.NUMPIL);
    int points = -2 * cmn.NUMPIL; // negative: show the points by their numbers
    int rows = 50;
    run.steps.sketch(cmn, x, y, points, rows, 100, cmn.NF13);
}

bool save_piles(Run& run) {
    Store& cmn = run.cmn;
    run.steps.save(cmn, *run.pile_file);
    if (cmn.IERR != 0) return fail(run, "(/,' **** SR/CONTRL  ERROR FROM SR/SAVE  IERR=',i5)");
    cmn.runtime.write(cmn.NF6, "(' +++++ TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED')");
    return true;
}

bool save_loads(Run& run) {
    Store& cmn = run.cmn;
    if (cmn.NUMLOD < 1) {
        cmn.runtime.write(cmn.NF6, "(' +++++ NO LOAD VECTOR WAS GIVEN',/,' ')");
        if (platform::file_exists("LOAD.09")) {
            warn(cmn, {}, "LOAD.09 is of an earlier run: the deck has no load vectors");
        }
        return true;
    }
    run.steps.loads(cmn, *run.load_file);
    if (cmn.IERR != 0) {
        return fail(run, "(/,' **** SR/CONTRL  ERROR RETURN FROM SR/LOADS  IERR=',i5)");
    }
    cmn.runtime.write(cmn.NF6, "(' +++++ TOLVAN INPUT FILE LOAD.09 HAS BEEN GENERATED',/,' ')");
    return true;
}

void close_record_file(Run& run, std::optional<RecordFile>& file, const std::string& name) {
    if (!file) return;
    const int error = file->close();
    file.reset();
    if (error != 0) run.cmn.report.lost_records.push_back({name, error});
}

void close_load_file(Run& run) {
    close_record_file(run, run.load_file, "LOAD.09");
}

void close_pile_file(Run& run) {
    close_record_file(run, run.pile_file, "PILE.07");
}

// Reached from every path. IERR keeps the failing step's code.
void close_run(Run& run) {
    Store& cmn = run.cmn;
    close_load_file(run);
    for (const int unit : {cmn.NF11, cmn.NF12, cmn.NF13, cmn.NF14}) {
        cmn.runtime.close(unit);
    }
    // The load file has no unit of its own; a second close of a closed unit is harmless.
    if (cmn.NUMLOD > 0) cmn.runtime.close(cmn.NF14);
    remove_scratch_files();
    cmn.runtime.write(cmn.NF6, "(1x,a)", run.EXMSG);
    close_pile_file(run);
}

// The lines of the deck that have text and that no reader has come to.
void warn_of_unread_lines(Store& cmn) {
    const std::vector<int>& lines = cmn.report.text_lines;
    const auto first = std::ranges::upper_bound(lines, cmn.NLINE);
    const auto count = lines.end() - first;
    if (count == 0) return;
    const std::string stand = count == 1
                                  ? "1 line that is not blank stands"
                                  : std::to_string(count) + " lines that are not blank stand";
    warn(cmn, {.line = *first},
         stand + " between the last line read and END" + (count == 1 ? "" : "; this is the first"));
}

bool run_steps(Run& run) {
    if (!open_files(run)) return false;
    if (!read_input(run)) return false;
    start_listing(run);
    if (!compute(run)) return false;
    if (!print_listing(run)) return false;
    draw_sketch(run);
    if (!save_piles(run)) return false;
    if (!save_loads(run)) return false;
    warn_of_unread_lines(run.cmn);
    return true;
}

} // namespace

Steps program_steps() {
    return {.readpi = readpi,
            .build = build,
            .printpil = printpil,
            .sketch = sketch,
            .save = save,
            .loads = loads};
}

int contrl(Store& cmn, const Steps& steps) {
    Run run{.cmn = cmn,
            .steps = steps,
            .texts = identification(),
            .EXMSG = {},
            .pile_file = {},
            .load_file = {},
            .listing_time = {}};
    try {
        open_message_log(run);
        set_run_constants(cmn);
        run.EXMSG.assign("NORMAL EXIT FROM KORVAT");
        if (!run_steps(run)) run.EXMSG.assign("ERROR EXIT FROM KORVAT");
        close_run(run);
    } catch (...) {
        close_load_file(run);
        close_pile_file(run);
        throw;
    }
    return cmn.IERR;
}

std::vector<fortran::WriteFault> close_outputs(Store& cmn) {
    cmn.runtime.close_all();
    std::vector<fortran::WriteFault> lost = cmn.runtime.write_faults();
    lost.insert(lost.end(), cmn.report.lost_records.begin(), cmn.report.lost_records.end());
    for (const std::string& name : cmn.report.outputs) {
        const auto is_name = [&](const fortran::WriteFault& fault) { return fault.file == name; };
        if (std::ranges::any_of(lost, is_name)) continue;
        if (!platform::file_exists(name)) lost.push_back({name, ENOENT});
    }
    return lost;
}

} // namespace korvat
