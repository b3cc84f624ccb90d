// The files of a run: backups over several runs, and directories that stand in their places.
#include "run_fixture.hpp"

#include "run/entry.hpp"

#include <vector>

namespace korvat::test {
namespace {

using Names = std::vector<std::string>;

void read_label(Store& cmn) {
    fortran::Text<80> line;
    ASSERT_EQ(cmn.runtime.read_line(cmn.NF11, line), fortran::ReadStatus::line);
    cmn.LABEL = line;
    cmn.IERR = 0;
    cmn.runtime.write(cmn.NF13, "(' listing of ',a5)", cmn.LABEL);
    cmn.runtime.write(cmn.NF14, "(' plot of ',a5)", cmn.LABEL);
}

std::string log_of(const std::string& label) {
    return std::string(log_start) + input_read(label) +
           " +++++ PILE GEOMETRY VALUES COMPUTED\n"
           " +++++ TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED\n"
           " +++++ NO LOAD VECTOR WAS GIVEN\n"
           " \n" +
           normal_exit();
}

std::string listing_of(const std::string& label) {
    return " listing of " + label + "\n" + std::string(listing_stamp);
}

class FilesOfARun : public RunTest {
protected:
    int run_with_label(const std::string& label) {
        directory.write_file("KORVAT.INP", label + "\n");
        return run({.readpi = read_label});
    }

    int run_small_deck() {
        directory.write_file("KORVAT.INP", small_deck);
        return run_steps(program_steps());
    }

    void expect_files_of(const std::string& label, const std::string& suffix) const {
        EXPECT_EQ(mask_log(directory.read_file("KORVAT.MLG" + suffix)), log_of(label));
        EXPECT_EQ(mask_listing(directory.read_file("KORVAT.LIS" + suffix)), listing_of(label));
        EXPECT_EQ(directory.read_file("PILEPLOT.TXT" + suffix), " plot of " + label + "\n");
    }
};

TEST_F(FilesOfARun, KeepOneBackup) {
    const Names first = {"KORVAT.INP", "KORVAT.LIS", "KORVAT.MLG", "PILE.07", "PILEPLOT.TXT"};
    const Names later = {"KORVAT.INP",     "KORVAT.LIS", "KORVAT.LIS.bak", "KORVAT.MLG",
                         "KORVAT.MLG.bak", "PILE.07",    "PILEPLOT.TXT",   "PILEPLOT.TXT.bak"};
    EXPECT_EQ(run_with_label("run 1"), 0);
    EXPECT_EQ(directory.list(), first);
    expect_files_of("run 1", "");

    EXPECT_EQ(run_with_label("run 2"), 0);
    EXPECT_EQ(directory.list(), later);
    expect_files_of("run 2", "");
    expect_files_of("run 1", ".bak");

    EXPECT_EQ(run_with_label("run 3"), 0);
    EXPECT_EQ(directory.list(), later);
    expect_files_of("run 3", "");
    expect_files_of("run 2", ".bak");
}

TEST_F(FilesOfARun, TheInputIsNeverChanged) {
    EXPECT_EQ(run_small_deck(), 0);
    EXPECT_EQ(run_small_deck(), 0);
    EXPECT_EQ(directory.read_file("KORVAT.INP"), small_deck);
    EXPECT_FALSE(directory.has("KORVAT.INP.bak"));
}

TEST_F(FilesOfARun, AnEarlierLoadFileStaysWithoutLoadVectors) {
    directory.write_file("LOAD.09", "earlier");
    EXPECT_EQ(run_with_label("run 1"), 0);
    EXPECT_EQ(directory.read_file("LOAD.09"), "earlier");
}

TEST_F(FilesOfARun, AnEarlierPileFileIsReplaced) {
    directory.write_file("PILE.07", "earlier and longer");
    EXPECT_EQ(run_with_label("run 1"), 0);
    EXPECT_EQ(directory.read_file("PILE.07"), no_records);
    EXPECT_FALSE(directory.has("PILE.07.bak"));
}

TEST_F(FilesOfARun, DirectoriesAreRenamedLikeFiles) {
    for (const char* const name : {"KORVAT.MLG", "KORVAT.LIS", "PILEPLOT.TXT"})
        std::filesystem::create_directory(name);
    EXPECT_EQ(run_with_label("run 1"), 0);
    expect_files_of("run 1", "");
    for (const char* const name : {"KORVAT.MLG.bak", "KORVAT.LIS.bak", "PILEPLOT.TXT.bak"})
        EXPECT_TRUE(std::filesystem::is_directory(name)) << name;
}

// A file cannot be renamed to a directory, so the older backup has to be removed first.
TEST_F(FilesOfARun, AnOlderBackupIsRemovedWhateverItIsOnPosix) {
    EXPECT_EQ(run_with_label("run 1"), 0);
    for (const char* const name : {"KORVAT.MLG.bak", "KORVAT.LIS.bak", "PILEPLOT.TXT.bak"})
        std::filesystem::create_directory(name);
    EXPECT_EQ(run_with_label("run 2"), 0);
    expect_files_of("run 2", "");
    expect_files_of("run 1", ".bak");
}

TEST_F(FilesOfARun, ADirectoryForTheInputIsAnError) {
    std::filesystem::create_directory("KORVAT.INP");
    EXPECT_EQ(run_steps(program_steps()), 1);
    const std::string text = log();
    EXPECT_EQ(text.substr(0, log_start.size()), log_start);
    EXPECT_EQ(text.substr(text.size() - error_exit().size()), error_exit());
    EXPECT_EQ(directory.read_file("PILE.07"), no_records);
}

TEST_F(FilesOfARun, ADirectoryForThePileFileIsReported) {
    std::filesystem::create_directory("PILE.07");
    EXPECT_EQ(run_small_deck(), 0);
    EXPECT_EQ(log(), std::string(log_start) +
                         "\n **** SR/CONTRL  FILE PILE.O7 OPEN PROBLEM  IERR=    0\n"
                         "\n Input data is for revision 4 : 2006-06-11\n \n" +
                         input_read("One pile") +
                         " +++++ PILE GEOMETRY VALUES COMPUTED\n"
                         " +++++ TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED\n"
                         " +++++ NO LOAD VECTOR WAS GIVEN\n"
                         " \n" +
                         normal_exit());
}

} // namespace
} // namespace korvat::test
