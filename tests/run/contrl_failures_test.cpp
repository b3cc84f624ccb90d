// The run driver when an open or a step fails: messages, exit line, exit code, what is left behind.
#include "run_fixture.hpp"

#include "fortran/stop.hpp"

#include <exception>
#include <vector>

namespace korvat::test {
namespace {

using Names = std::vector<std::string>;
using namespace std::string_view_literals;

template <int code>
void fail(Store& cmn) {
    cmn.IERR = code;
}

template <int code>
void fail_printing(Store& cmn, const fortran::Text<10>&, const fortran::Text<11>&,
                   const TimeFields&) {
    cmn.IERR = code;
}

template <int code>
void fail_writing(Store& cmn, const RecordFile& file) {
    RecordBuilder(file).add(1).write();
    cmn.IERR = code;
}

void write_a_record(Store&, const RecordFile& file) {
    RecordBuilder(file).add(1).write();
}

constexpr std::string_view one_record = "K\x04\x01\0\0\0\x04\x82"sv;

void ask_for_listing(Store& cmn) {
    cmn.IERR = 0;
    cmn.IREV = 4;
    cmn.NUMPIL = 1;
    cmn.JPRINT = 1;
}

void ask_for_loads(Store& cmn) {
    cmn.IERR = 0;
    cmn.NUMLOD = 1;
}

constexpr std::string_view geometry_computed = " +++++ PILE GEOMETRY VALUES COMPUTED\n";
constexpr std::string_view pile_file_generated =
    " +++++ TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED\n";
constexpr std::string_view no_load_vector = " +++++ NO LOAD VECTOR WAS GIVEN\n \n";

std::string start() {
    return std::string(log_start);
}

// The lines of a run without any step's own.
std::string undisturbed_run() {
    return input_read("") + std::string(geometry_computed) + std::string(pile_file_generated) +
           std::string(no_load_vector) + normal_exit();
}

class ContrlFailure : public RunTest {
protected:
    ContrlFailure() { directory.write_file("KORVAT.INP", ""); }
};

TEST_F(ContrlFailure, OfReadpi) {
    EXPECT_EQ(run({.readpi = fail<1>, .save = write_a_record}), 1);
    EXPECT_EQ(log(),
              start() + "\n **** SR/CONTRL  ERROR FROM SR/READPI  IERR=    1\n" + error_exit());
    EXPECT_EQ(directory.read_file("PILE.07"), no_records);
    EXPECT_EQ(directory.read_file("KORVAT.LIS"), "");
    EXPECT_EQ(directory.read_file("PILEPLOT.TXT"), "");
}

TEST_F(ContrlFailure, OfBuild) {
    EXPECT_EQ(run({.build = fail<12>, .save = write_a_record}), 12);
    EXPECT_EQ(log(), start() + input_read("") +
                         "\n **** SR/CONTRL  ERROR FROM SR/BUILD  IERR=   12\n" + error_exit());
    EXPECT_EQ(directory.read_file("PILE.07"), no_records);
    EXPECT_EQ(listing(), listing_stamp);
}

TEST_F(ContrlFailure, OfPrintpil) {
    EXPECT_EQ(
        run({.readpi = ask_for_listing, .printpil = fail_printing<3>, .save = write_a_record}), 3);
    EXPECT_EQ(log(), start() + input_read("") + std::string(geometry_computed) +
                         "\n **** SR/CONTRL  ERROR FROM SR/PRINT  IERR=    3\n" + error_exit());
    EXPECT_EQ(directory.read_file("PILE.07"), no_records);
    // The sketch comes after it.
    EXPECT_EQ(listing(), std::string(listing_banner) + std::string(listing_stamp));
}

TEST_F(ContrlFailure, OfSave) {
    EXPECT_EQ(run({.save = fail_writing<2>}), 2);
    EXPECT_EQ(log(), start() + input_read("") + std::string(geometry_computed) +
                         "\n **** SR/CONTRL  ERROR FROM SR/SAVE  IERR=    2\n" + error_exit());
    EXPECT_EQ(directory.read_file("PILE.07"), one_record);
}

TEST_F(ContrlFailure, OfLoadsLeavesACompletePileFile) {
    EXPECT_EQ(run({.readpi = ask_for_loads, .save = write_a_record, .loads = fail_writing<5>}), 5);
    EXPECT_EQ(log(), start() + input_read("") + std::string(geometry_computed) +
                         std::string(pile_file_generated) +
                         "\n **** SR/CONTRL  ERROR RETURN FROM SR/LOADS  IERR=    5\n" +
                         error_exit());
    EXPECT_EQ(directory.read_file("PILE.07"), one_record);
    EXPECT_EQ(directory.read_file("LOAD.09"), one_record);
}

TEST_F(ContrlFailure, NegativeCodesPassThrough) {
    EXPECT_EQ(run({.build = fail<-7>}), -7);
    EXPECT_EQ(log(), start() + input_read("") +
                         "\n **** SR/CONTRL  ERROR FROM SR/BUILD  IERR=   -7\n" + error_exit());
}

// The closing steps reach the load file also when a step before it failed.
TEST_F(ContrlFailure, LeavesAnOpenedLoadFileEmpty) {
    EXPECT_EQ(run({.readpi = ask_for_loads, .build = fail<1>}), 1);
    EXPECT_EQ(directory.read_file("LOAD.09"), no_records);
    EXPECT_EQ(directory.read_file("PILE.07"), no_records);
}

void leave_scratch_files(Store& cmn) {
    cmn.runtime.rewind(cmn.NF12);
    cmn.runtime.write(cmn.NF12, "(' copy')");
    cmn.runtime.write(99, "(' other')");
    cmn.runtime.close(99); // an open file cannot be removed everywhere
    cmn.IERR = 1;
}

TEST_F(ContrlFailure, RemovesTheScratchFiles) {
    EXPECT_EQ(run({.readpi = leave_scratch_files}), 1);
    EXPECT_EQ(directory.list(),
              (Names{"KORVAT.INP", "KORVAT.LIS", "KORVAT.MLG", "PILE.07", "PILEPLOT.TXT"}));
}

TEST_F(ContrlFailure, OfThePileFileIsReportedAndTheRunGoesOn) {
    std::filesystem::create_directory("PILE.07");
    EXPECT_EQ(run({.save = write_a_record}), 0); // the record is discarded
    EXPECT_EQ(log(), start() + "\n **** SR/CONTRL  FILE PILE.O7 OPEN PROBLEM  IERR=    0\n" +
                         undisturbed_run());
    EXPECT_TRUE(std::filesystem::is_directory("PILE.07"));
}

TEST_F(ContrlFailure, OfTheLoadFileIsReportedAndTheRunGoesOn) {
    std::filesystem::create_directory("LOAD.09");
    EXPECT_EQ(run({.readpi = ask_for_loads, .loads = write_a_record}), 0);
    EXPECT_EQ(log(), start() + input_read("") +
                         "\n **** SR/CONTRL  FILE LOAD.09 OPEN PROBLEM  IERR=    0\n" +
                         std::string(geometry_computed) + std::string(pile_file_generated) +
                         " +++++ TOLVAN INPUT FILE LOAD.09 HAS BEEN GENERATED\n \n" +
                         normal_exit());
    EXPECT_TRUE(std::filesystem::is_directory("LOAD.09"));
}

TEST_F(ContrlFailure, OfTheInputTouchesNoOtherOutput) {
    std::filesystem::remove("KORVAT.INP");
    directory.write_file("KORVAT.LIS", "earlier listing");
    directory.write_file("PILEPLOT.TXT", "earlier plot");
    EXPECT_EQ(run({.readpi = fail<9>}), 1);
    EXPECT_EQ(log(), start() + "\n **** SR/CONTRL  FILE KORVAT.INP OPEN PROBLEM  IERR=    1\n" +
                         error_exit());
    EXPECT_EQ(directory.read_file("KORVAT.LIS"), "earlier listing");
    EXPECT_EQ(directory.read_file("PILEPLOT.TXT"), "earlier plot");
    EXPECT_EQ(directory.read_file("PILE.07"), no_records);
    EXPECT_EQ(directory.list(), (Names{"KORVAT.LIS", "KORVAT.MLG", "PILE.07", "PILEPLOT.TXT"}));
}

// A file whose backup cannot be made stays in the way of the new one.
TEST_F(ContrlFailure, OfTheListing) {
    directory.write_file("KORVAT.LIS", "earlier");
    block("KORVAT.LIS.bak");
    EXPECT_EQ(run({.readpi = fail<9>}), 1);
    EXPECT_EQ(log(), start() + "\n **** SR/CONTRL  FILE KORVAT.LIS OPEN PROBLEM  IERR=    1\n" +
                         error_exit());
    EXPECT_EQ(directory.read_file("KORVAT.LIS"), "earlier");
    EXPECT_EQ(directory.read_file("PILE.07"), no_records);
    EXPECT_FALSE(directory.has("PILEPLOT.TXT"));
}

void clear_code(Store& cmn) {
    cmn.IERR = 0;
}

void keep_code(Store&) {}

TEST_F(ContrlFailure, OfThePlotFileIsNotTested) {
    directory.write_file("PILEPLOT.TXT", "earlier");
    block("PILEPLOT.TXT.bak");
    EXPECT_EQ(run({.readpi = clear_code}), 0);
    EXPECT_EQ(log(), start() + undisturbed_run());
    EXPECT_EQ(directory.read_file("PILEPLOT.TXT"), "earlier");
}

TEST_F(ContrlFailure, OfThePlotFileShowsWhenTheNextStepLeavesItsCode) {
    directory.write_file("PILEPLOT.TXT", "earlier");
    block("PILEPLOT.TXT.bak");
    EXPECT_EQ(run({.readpi = keep_code}), 1);
    EXPECT_EQ(log(),
              start() + "\n **** SR/CONTRL  ERROR FROM SR/READPI  IERR=    1\n" + error_exit());
}

void plot(Store& cmn, const RecordFile&) {
    cmn.runtime.write(cmn.NF14, "(' plot')");
}

TEST_F(ContrlFailure, OfThePlotFileSendsThePlotToAScratchFile) {
    directory.write_file("PILEPLOT.TXT", "earlier");
    block("PILEPLOT.TXT.bak");
    EXPECT_EQ(run({.readpi = clear_code, .save = plot}), 0);
    EXPECT_EQ(directory.list(), (Names{"KORVAT.INP", "KORVAT.LIS", "KORVAT.MLG", "PILE.07",
                                       "PILEPLOT.TXT", "PILEPLOT.TXT.bak"}));
    EXPECT_EQ(directory.read_file("PILEPLOT.TXT"), "earlier");
}

TEST_F(ContrlFailure, OfTheLogSendsItToStandardOutput) {
    directory.write_file("KORVAT.MLG", "earlier");
    block("KORVAT.MLG.bak");
    std::filesystem::create_directory("PILE.07");
    testing::internal::CaptureStdout();
    const int code = run({});
    const std::string output = testing::internal::GetCapturedStdout();
    EXPECT_EQ(code, 0);
    // The code that the message shows is the one of the log.
    EXPECT_EQ(mask_log(output), start() +
                                    "\n **** SR/CONTRL  FILE PILE.O7 OPEN PROBLEM  IERR=    1\n" +
                                    undisturbed_run());
    EXPECT_EQ(directory.read_file("KORVAT.MLG"), "earlier");
}

void stop_reading(Store& cmn) {
    cmn.runtime.rewind(cmn.NF12);
    cmn.runtime.write(cmn.NF6, "(/,' **** Error termination of KORVAT')");
    fortran::stop();
}

TEST_F(ContrlFailure, ByStopHasNoClosingSteps) {
    EXPECT_THROW(run({.readpi = stop_reading}), std::exception);
    EXPECT_EQ(log(), start() + "\n **** Error termination of KORVAT\n");
    EXPECT_EQ(directory.read_file("PILE.07"), no_records);
    EXPECT_EQ(directory.list(), (Names{"KORVAT.INP", "KORVAT.LIS", "KORVAT.MLG", "PILE.07",
                                       "PILEPLOT.TXT", "fem_io_unit_012"}));
}

void stop_saving(Store&, const RecordFile& file) {
    RecordBuilder(file).add(1).write();
    fortran::stop();
}

TEST_F(ContrlFailure, ByStopEndsBothRecordFiles) {
    EXPECT_THROW(run({.readpi = ask_for_loads, .save = stop_saving}), std::exception);
    EXPECT_EQ(directory.read_file("PILE.07"), one_record);
    EXPECT_EQ(directory.read_file("LOAD.09"), no_records);
}

} // namespace
} // namespace korvat::test
