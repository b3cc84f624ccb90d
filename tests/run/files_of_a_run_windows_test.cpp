// The files of a run while another holds them, and the log after it (Windows).
#include "run_fixture.hpp"

#include "run/entry.hpp"
#include "support/process_windows.hpp"

#include <vector>
#include <windows.h>

namespace korvat::test {
namespace {

using Names = std::vector<std::string>;

// An open file of which others may only do what is shared: nobody may remove or rename it.
Handle hold(const std::string& name, DWORD shared) {
    return Handle(CreateFileA(name.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
}

constexpr DWORD readable = FILE_SHARE_READ | FILE_SHARE_WRITE;

class HeldFiles : public RunTest {
protected:
    HeldFiles() { directory.write_file("KORVAT.INP", small_deck); }
};

std::string log_of_small_deck() {
    return "\n Input data is for revision 4 : 2006-06-11\n \n" + input_read("One pile") +
           " +++++ PILE GEOMETRY VALUES COMPUTED\n"
           " +++++ TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED\n"
           " +++++ NO LOAD VECTOR WAS GIVEN\n"
           " \n" +
           normal_exit();
}

TEST_F(HeldFiles, AHeldListingIsAnError) {
    directory.write_file("KORVAT.LIS", "earlier");
    directory.write_file("KORVAT.LIS.bak", "oldest");
    const Handle held = hold("KORVAT.LIS", readable);
    ASSERT_TRUE(held.valid());
    EXPECT_EQ(run_program(0, nullptr).exit_code, 1);
    EXPECT_EQ(log(), std::string(log_start) +
                         "\n **** SR/CONTRL  FILE KORVAT.LIS OPEN PROBLEM  IERR=    1\n" +
                         error_exit());
    EXPECT_EQ(directory.read_file("KORVAT.LIS"), "earlier");
    EXPECT_EQ(directory.list(), (Names{"KORVAT.INP", "KORVAT.LIS", "KORVAT.MLG", "PILE.07"}));
}

TEST_F(HeldFiles, AHeldBackupIsAnError) {
    directory.write_file("KORVAT.LIS", "earlier");
    directory.write_file("KORVAT.LIS.bak", "oldest");
    const Handle held = hold("KORVAT.LIS.bak", readable);
    EXPECT_EQ(run_program(0, nullptr).exit_code, 1);
    EXPECT_EQ(directory.read_file("KORVAT.LIS"), "earlier");
    EXPECT_EQ(directory.read_file("KORVAT.LIS.bak"), "oldest");
}

TEST_F(HeldFiles, AHeldBackupWithoutAListingDoesNoHarm) {
    directory.write_file("KORVAT.LIS.bak", "oldest");
    const Handle held = hold("KORVAT.LIS.bak", readable);
    EXPECT_EQ(run_program(0, nullptr).exit_code, 0);
    EXPECT_EQ(directory.read_file("KORVAT.LIS.bak"), "oldest");
}

TEST_F(HeldFiles, AHeldPlotFileIsToldOnStandardError) {
    directory.write_file("PILEPLOT.TXT", "earlier");
    const Handle held = hold("PILEPLOT.TXT", readable);
    const RunEnd end = run_program(0, nullptr);
    EXPECT_EQ(end.exit_code, 0);
    EXPECT_EQ(end.report, "korvat: warning: cannot open PILEPLOT.TXT: cannot rename it to "
                          "PILEPLOT.TXT.bak: Permission denied; what stands there is of an earlier "
                          "run\n");
    EXPECT_EQ(log(), std::string(log_start) + log_of_small_deck());
    EXPECT_EQ(directory.read_file("PILEPLOT.TXT"), "earlier");
}

// A reader that shares everything but deletion hinders no writing.
TEST_F(HeldFiles, AReadPileFileIsWritten) {
    directory.write_file("PILE.07", "earlier");
    const Handle held = hold("PILE.07", readable);
    EXPECT_EQ(run_program(0, nullptr).exit_code, 0);
    EXPECT_GT(directory.read_file("PILE.07").size(), no_records.size());
}

TEST_F(HeldFiles, ALockedPileFileIsReported) {
    directory.write_file("PILE.07", "earlier");
    const Handle held = hold("PILE.07", FILE_SHARE_READ);
    const RunEnd end = run_program(0, nullptr);
    EXPECT_EQ(end.exit_code, 0);
    EXPECT_EQ(end.report, "korvat: warning: cannot open PILE.07: Permission denied; what stands "
                          "there is of an earlier run\n");
    EXPECT_EQ(log(), std::string(log_start) +
                         "\n **** SR/CONTRL  FILE PILE.O7 OPEN PROBLEM  IERR=    0\n" +
                         log_of_small_deck());
    EXPECT_EQ(directory.read_file("PILE.07"), "earlier");
}

TEST_F(HeldFiles, ALockedInputIsAnError) {
    const Handle held = hold("KORVAT.INP", 0);
    EXPECT_EQ(run_program(0, nullptr).exit_code, 1);
    EXPECT_EQ(log(), std::string(log_start) +
                         "\n **** SR/CONTRL  FILE KORVAT.INP OPEN PROBLEM  IERR=    1\n" +
                         error_exit());
}

TEST_F(HeldFiles, AHeldLogGoesToStandardOutput) {
    directory.write_file("KORVAT.MLG", "earlier");
    const Handle held = hold("KORVAT.MLG", readable);
    testing::internal::CaptureStdout();
    const RunEnd end = run_program(0, nullptr);
    EXPECT_EQ(end.exit_code, 0);
    EXPECT_EQ(end.report, "korvat: warning: cannot open KORVAT.MLG: cannot rename it to "
                          "KORVAT.MLG.bak: Permission denied; what stands there is of an earlier "
                          "run\n");
    EXPECT_EQ(mask_log(testing::internal::GetCapturedStdout()),
              std::string(log_start) + log_of_small_deck());
    EXPECT_EQ(directory.read_file("KORVAT.MLG"), "earlier");
}

// A file that is open cannot be renamed.
TEST_F(HeldFiles, TheRunLeavesNoFileOpen) {
    EXPECT_EQ(run_program(0, nullptr).exit_code, 0);
    for (const std::string& name : directory.list()) {
        EXPECT_TRUE(MoveFileA(name.c_str(), (name + ".moved").c_str())) << name;
    }
}

} // namespace
} // namespace korvat::test
