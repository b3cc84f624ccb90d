// The run driver: what it passes to its steps, in which order, and what it writes after each.
#include "run_fixture.hpp"

#include "run/time_stamp.hpp"

#include <vector>

namespace korvat::test {
namespace {

using fortran::characters;
using Names = std::vector<std::string>;

// Steps that tell on the message log what they found in the store. Each is a plain function: what
// a test wants to know, the step writes.
void tell(Store& cmn, std::string_view step) {
    cmn.runtime.write(cmn.NF6, "(' step ',a)", characters(step));
}

// The label is the first line of the input.
void read_label(Store& cmn) {
    fortran::Text<80> line;
    ASSERT_EQ(cmn.runtime.read_line(cmn.NF11, line), fortran::ReadStatus::line);
    cmn.LABEL = line;
}

void read_two_piles(Store& cmn) {
    tell(cmn, "readpi");
    read_label(cmn);
    cmn.IREV = 4;
    cmn.NUMPIL = 2;
    cmn.JPRINT = 2;
    cmn.NUMLOD = 3;
}

// Heads at (1, 10) and (2, 20); pile 1 has two elements and its tip at (3, 30), pile 2 is a dummy,
// whose tip is its head.
void place_two_piles(Store& cmn) {
    tell(cmn, "build");
    cmn.NELP(1) = 2;
    cmn.XNOD(1, 1) = 1.0;
    cmn.YNOD(1, 1) = 10.0;
    cmn.XNOD(3, 1) = 3.0;
    cmn.YNOD(3, 1) = 30.0;
    cmn.XNOD(1, 2) = 2.0;
    cmn.YNOD(1, 2) = 20.0;
}

void tell_print(Store& cmn, const fortran::Text<10>& version, const fortran::Text<11>& release_date,
                const TimeFields&) {
    tell(cmn, "printpil");
    cmn.runtime.write(cmn.NF13, "(' listing of ',a,'|',i5)", version,
                      static_cast<int>(fortran::last_non_blank(release_date.view())));
}

void tell_sketch(Store& cmn, std::span<const double> XC, std::span<const double> YC, int& NP,
                 int& NROWS, int NCOLS, int IOUT) {
    tell(cmn, "sketch");
    for (const double x : XC)
        cmn.runtime.write(IOUT, "(' x',f10.3)", x);
    for (const double y : YC)
        cmn.runtime.write(IOUT, "(' y',f10.3)", y);
    cmn.runtime.write(IOUT, "(' NP,NROWS,NCOLS,IOUT=',4i5)", NP, NROWS, NCOLS, IOUT);
}

void save_one_record(Store& cmn, const RecordFile& pile_file) {
    tell(cmn, "save");
    RecordBuilder(pile_file).add(7).write();
}

void save_one_load(Store& cmn, const RecordFile& load_file) {
    tell(cmn, "loads");
    RecordBuilder(load_file).add(9).write();
}

ChosenSteps telling_steps() {
    return {.readpi = read_two_piles,
            .build = place_two_piles,
            .printpil = tell_print,
            .sketch = tell_sketch,
            .save = save_one_record,
            .loads = save_one_load};
}

class Contrl : public RunTest {};

TEST_F(Contrl, CallsEveryStepInItsOrder) {
    directory.write_file("KORVAT.INP", "Jetty\n");
    EXPECT_EQ(run(telling_steps()), 0);
    EXPECT_EQ(log(), std::string(log_start) + " step readpi\n" + input_read("Jetty") +
                         " step build\n"
                         " +++++ PILE GEOMETRY VALUES COMPUTED\n"
                         " step printpil\n"
                         " +++++ RESULT FILE KORVAT.LIS HAS BEEN PRINTED\n"
                         " step sketch\n"
                         " step save\n"
                         " +++++ TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED\n"
                         " step loads\n"
                         " +++++ TOLVAN INPUT FILE LOAD.09 HAS BEEN GENERATED\n"
                         " \n" +
                         normal_exit());
    EXPECT_EQ(directory.list(), (Names{"KORVAT.INP", "KORVAT.LIS", "KORVAT.MLG", "LOAD.09",
                                       "PILE.07", "PILEPLOT.TXT"}));
}

TEST_F(Contrl, GivesTheSketchHeadsAndTips) {
    directory.write_file("KORVAT.INP", "Jetty\n");
    EXPECT_EQ(run(telling_steps()), 0);
    EXPECT_EQ(listing(),
              std::string(listing_banner) + std::string(listing_stamp) +
                  " listing of 7.6.0.81  |   11\n"
                  "\n " +
                  padded("Jetty", 80) +
                  "\n\n\n"
                  " BELOW SKETCH SHOWS PILE HEADS (001 - 002) AND PILE TIPS (003 - 004)\n"
                  "\n \n"
                  " x     1.000\n x     2.000\n x     3.000\n x     2.000\n"
                  " y    10.000\n y    20.000\n y    30.000\n y    20.000\n"
                  " NP,NROWS,NCOLS,IOUT=   -4   50  100   13\n");
}

TEST_F(Contrl, GivesEachRecordFileToItsStep) {
    directory.write_file("KORVAT.INP", "Jetty\n");
    EXPECT_EQ(run(telling_steps()), 0);
    using namespace std::string_view_literals;
    EXPECT_EQ(directory.read_file("PILE.07"), "K\x04\x07\0\0\0\x04\x82"sv);
    EXPECT_EQ(directory.read_file("LOAD.09"), "K\x04\x09\0\0\0\x04\x82"sv);
}

void ask_for_listing(Store& cmn) {
    cmn.IREV = 5;
    cmn.NUMPIL = 1;
    cmn.JPRINT = 1;
}

void print_stamp(Store& cmn, const fortran::Text<10>&, const fortran::Text<11>&,
                 const TimeFields& ITIME) {
    int seconds = 0;
    write_time_stamp(cmn, 1, cmn.NF13, 0, seconds, ITIME);
}

TEST_F(Contrl, GivesTheListingTheTimeOfItsStamp) {
    directory.write_file("KORVAT.INP", "");
    EXPECT_EQ(run({.readpi = ask_for_listing, .printpil = print_stamp}), 0);
    const std::string text = directory.read_file("KORVAT.LIS");
    const std::size_t first = text.find("\n THIS RUN WAS STARTED");
    const std::size_t second = text.find("\n THIS RUN WAS STARTED", first + 1);
    ASSERT_NE(second, std::string::npos) << text;
    const std::string stamp = text.substr(first, second - first);
    EXPECT_EQ(text.substr(second), stamp);
    EXPECT_EQ(mask_listing(stamp), listing_stamp);
}

void tell_constants(Store& cmn) {
    cmn.runtime.write(cmn.NF6, "(' units',8i5)", cmn.NF5, cmn.NF6, cmn.NF7, cmn.NF9, cmn.NF11,
                      cmn.NF12, cmn.NF13, cmn.NF14);
    cmn.runtime.write(cmn.NF6, "(' limits',8i5)", cmn.MAXPIL, cmn.MAXCRS, cmn.MAXMAT, cmn.MAXSEG,
                      cmn.MAXELM, cmn.MAXNOD, cmn.MAXSPP, cmn.MAXSPC);
    cmn.runtime.write(cmn.NF6, "(' IERR',i5,' counts',7i5)", cmn.IERR, cmn.NUMPIL, cmn.NUMCRS,
                      cmn.NUMLOD, cmn.JPRINT, cmn.JECHO, cmn.IREV, cmn.NLINE);
    EXPECT_EQ(cmn.PI, 3.14159265358979323846);
    EXPECT_EQ(cmn.TOL, 1.0e-10);
    EXPECT_TRUE(cmn.LABEL.is_blank());
}

TEST_F(Contrl, SetsUnitsLimitsAndConstants) {
    directory.write_file("KORVAT.INP", "");
    EXPECT_EQ(run({.readpi = tell_constants}), 0);
    EXPECT_EQ(log(), std::string(log_start) +
                         " units    5    6    7    9   11   12   13   14\n"
                         " limits  200  200   20 1000  450  451   20  500\n"
                         " IERR    0 counts    0    0    0    0    0    0    0\n" +
                         input_read("") +
                         " +++++ PILE GEOMETRY VALUES COMPUTED\n"
                         " +++++ TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED\n"
                         " +++++ NO LOAD VECTOR WAS GIVEN\n"
                         " \n" +
                         normal_exit());
}

TEST_F(Contrl, LeavesItsOwnFilesWhenTheStepsDoNothing) {
    directory.write_file("KORVAT.INP", "");
    EXPECT_EQ(run({}), 0);
    EXPECT_EQ(listing(), listing_stamp);
    EXPECT_EQ(directory.read_file("PILE.07"), no_records);
    EXPECT_EQ(directory.list(),
              (Names{"KORVAT.INP", "KORVAT.LIS", "KORVAT.MLG", "PILE.07", "PILEPLOT.TXT"}));
}

void clear_check(Store& cmn) {
    for (const int i : {1, 200}) {
        EXPECT_EQ(cmn.NSEGP(i) + cmn.NELP(i) + cmn.IFIX(i) + cmn.ITIP(i), 0);
        EXPECT_EQ(cmn.ISEGP(20, i), 0);
        EXPECT_EQ(cmn.TSNOD(451, i), 0.0);
    }
}

TEST_F(Contrl, ClearsThePerPileArrays) {
    directory.write_file("KORVAT.INP", "");
    const auto cmn = std::make_unique<Store>(0, nullptr);
    for (const int i : {1, 200}) {
        cmn->NSEGP(i) = cmn->NELP(i) = cmn->IFIX(i) = cmn->ITIP(i) = 1;
        cmn->ISEGP(20, i) = 1;
        cmn->TSNOD(451, i) = 1.0;
    }
    EXPECT_EQ(contrl(*cmn, ChosenSteps{.readpi = clear_check}.steps()), 0);
}

void print_level_minus_1(Store& cmn) {
    cmn.IREV = 4;
    cmn.NUMPIL = 1;
    cmn.JPRINT = -1;
}

TEST_F(Contrl, ANegativePrintLevelDrawsTheSketchOnly) {
    directory.write_file("KORVAT.INP", "");
    EXPECT_EQ(run({.readpi = print_level_minus_1, .printpil = tell_print, .sketch = tell_sketch}),
              0);
    EXPECT_EQ(log(), std::string(log_start) + input_read("") +
                         " +++++ PILE GEOMETRY VALUES COMPUTED\n"
                         " step sketch\n"
                         " +++++ TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED\n"
                         " +++++ NO LOAD VECTOR WAS GIVEN\n"
                         " \n" +
                         normal_exit());
    EXPECT_EQ(listing(),
              std::string(listing_banner) + std::string(listing_stamp) + "\n " + padded("", 80) +
                  "\n\n\n"
                  " BELOW SKETCH SHOWS PILE HEADS (001 - 001) AND PILE TIPS (002 - 002)\n"
                  "\n \n"
                  " x     0.000\n x     0.000\n y     0.000\n y     0.000\n"
                  " NP,NROWS,NCOLS,IOUT=   -2   50  100   13\n");
}

template <int revision, int print_level>
void read_revision(Store& cmn) {
    cmn.IREV = revision;
    cmn.NUMPIL = 1;
    cmn.JPRINT = print_level;
}

TEST_F(Contrl, Revision5HasABannerButNoSketch) {
    directory.write_file("KORVAT.INP", "");
    EXPECT_EQ(run({.readpi = read_revision<5, 2>, .sketch = tell_sketch}), 0);
    EXPECT_EQ(listing(), std::string(listing_banner) + std::string(listing_stamp));
}

TEST_F(Contrl, Revision6HasNeither) {
    directory.write_file("KORVAT.INP", "");
    EXPECT_EQ(run({.readpi = read_revision<6, 2>, .sketch = tell_sketch}), 0);
    EXPECT_EQ(listing(), listing_stamp);
}

TEST_F(Contrl, Revision3HasASketchButNoBanner) {
    directory.write_file("KORVAT.INP", "");
    EXPECT_EQ(run({.readpi = read_revision<3, 1>}), 0);
    EXPECT_EQ(listing(),
              std::string(listing_stamp) + "\n " + padded("", 80) +
                  "\n\n\n"
                  " BELOW SKETCH SHOWS PILE HEADS (001 - 001) AND PILE TIPS (002 - 002)\n"
                  "\n \n");
}

TEST_F(Contrl, PrintLevel0LeavesTheStampAndTheBanner) {
    directory.write_file("KORVAT.INP", "");
    EXPECT_EQ(run({.readpi = read_revision<4, 0>, .printpil = tell_print, .sketch = tell_sketch}),
              0);
    EXPECT_EQ(listing(), std::string(listing_banner) + std::string(listing_stamp));
}

void ask_for_echo(Store& cmn) {
    cmn.JECHO = 1;
}

void ask_for_echo_2(Store& cmn) {
    cmn.JECHO = 2;
}

TEST_F(Contrl, EchoesTheInputBehindTheStamp) {
    directory.write_file("KORVAT.INP", "Jetty\nEND\n");
    EXPECT_EQ(run({.readpi = ask_for_echo}), 0);
    const std::string tens = "          000000000111111111122222222223333333333"
                             "4444444444555555555566666666667777777777"
                             "8\n";
    const std::string units = "          1234567890123456789012345678901234567890"
                              "1234567890123456789012345678901234567890\n\n";
    EXPECT_EQ(listing(), std::string(listing_stamp) +
                             "1\n          ECHO PRINT OF INPUT DATA TO PROGRAM \"KORVAT\"\n\n" +
                             tens + units + "    1---- " + padded("Jetty", 80) + "\n    2---- " +
                             padded("END", 80) + "\n\n" + tens + units);
}

TEST_F(Contrl, EchoesAtLevel1Only) {
    directory.write_file("KORVAT.INP", "Jetty\nEND\n");
    EXPECT_EQ(run({.readpi = ask_for_echo_2}), 0);
    EXPECT_EQ(listing(), listing_stamp);
}

TEST_F(Contrl, ShowsTheFirst78ColumnsOfTheLabel) {
    directory.write_file("KORVAT.INP", std::string(77, 'x') + "789\n");
    EXPECT_EQ(run({.readpi = read_label}), 0);
    EXPECT_EQ(log(), std::string(log_start) + " +++++ INPUT FILE READ , LABEL LINE :\n " +
                         std::string(77, 'x') + "7\n" +
                         " +++++ PILE GEOMETRY VALUES COMPUTED\n"
                         " +++++ TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED\n"
                         " +++++ NO LOAD VECTOR WAS GIVEN\n"
                         " \n" +
                         normal_exit());
}

} // namespace
} // namespace korvat::test
