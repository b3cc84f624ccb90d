// Runs of the driver with chosen steps, in a scratch directory that is the current one.
#pragma once

#include "support/masks.hpp"
#include "support/model_fixture.hpp"
#include "support/scratch_directory.hpp"

#include "run/contrl.hpp"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>

namespace korvat::test {

// The masked lines with which every log begins.
constexpr std::string_view log_start =
    "\n"
    " THIS RUN WAS STARTED :  DD-MMM-YYYY  AT  HH:MM:SS HOURS\n"
    "(identification page)\n"
    "\n"
    " +++++ START PROGRAM KORVAT   VERSION =  7.6.0.81  DD-Mon-YYYY\n";

// The start stamp of the listing, masked.
constexpr std::string_view listing_stamp =
    "\n THIS RUN WAS STARTED :  DD-MMM-YYYY  AT  HH:MM:SS HOURS\n";

constexpr std::string_view listing_banner =
    " PROGRAM KORVAT   Pile Data Generator for Program TOLVAN\n"
    "\n"
    " VERSION :   7.6.0.81  DD-Mon-YYYY\n";

// The last line of a log: the text in a field of 50 after one blank.
inline std::string exit_line(std::string_view text) {
    return " " + padded(std::string(text), 50) + "\n";
}
inline std::string normal_exit() {
    return exit_line("NORMAL EXIT FROM KORVAT");
}
inline std::string error_exit() {
    return exit_line("ERROR EXIT FROM KORVAT");
}

inline std::string input_read(const std::string& label) {
    return " +++++ INPUT FILE READ , LABEL LINE :\n " + padded(label, 78) + "\n";
}

// A record file without records.
constexpr std::string_view no_records = "K\x82";

// A deck with one vertical pile of two elements.
constexpr std::string_view small_deck = R"(One pile

heading
 1
 1
 1
 1
 1
 1
 0
 0
 0

heading
heading
 1 2.1E8 8.1E7 3.55E5 77.0 0.0

heading
heading
 1 1 1.0 0.05 0 0 0 0 0

heading
heading
 1 1 1 10.0 2

heading
heading
 1 0 0 0 0 0 0 0 10
heading
 1 1 1
heading
 1 1 0 0

heading
heading
 0 0 0 0 0 0 0 0 0 0 0
END
)";

// The steps that a test chooses; the others do nothing and leave IERR as it is.
struct ChosenSteps {
    void (*readpi)(Store&) = [](Store&) {};
    void (*build)(Store&) = [](Store&) {};
    void (*printpil)(Store&, const fortran::Text<10>&, const fortran::Text<11>&,
                     const TimeFields&) = [](Store&, const fortran::Text<10>&,
                                             const fortran::Text<11>&, const TimeFields&) {};
    void (*sketch)(Store&, std::span<const double>, std::span<const double>, int&, int&, int, int) =
        [](Store&, std::span<const double>, std::span<const double>, int&, int&, int, int) {};
    void (*save)(Store&, const RecordFile&) = [](Store&, const RecordFile&) {};
    void (*loads)(Store&, const RecordFile&) = [](Store&, const RecordFile&) {};

    [[nodiscard]] Steps steps() const {
        return {*readpi, *build, *printpil, *sketch, *save, *loads};
    }
};

class RunTest : public testing::Test {
protected:
    RunTest() : current_(directory.path()) {}

    // Runs the driver on a fresh store, which is then gone with all its units.
    int run(const ChosenSteps& chosen) { return run_steps(chosen.steps()); }
    int run_steps(const Steps& steps) {
        const auto cmn = std::make_unique<Store>(0, nullptr);
        const int code = contrl(*cmn, steps);
        EXPECT_EQ(code, cmn->IERR);
        return code;
    }

    [[nodiscard]] std::string log() const { return mask_log(directory.read_file("KORVAT.MLG")); }
    [[nodiscard]] std::string listing() const {
        return mask_listing(directory.read_file("KORVAT.LIS"));
    }

    // A directory that neither remove nor rename can put out of the way.
    void block(const std::string& name) const {
        std::filesystem::create_directories(directory.path() / name / "inside");
    }

    ScratchDirectory directory;

private:
    CurrentDirectory current_;
};

} // namespace korvat::test
