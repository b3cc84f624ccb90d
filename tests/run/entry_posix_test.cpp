// The entry of the program: the units it leaves closed (POSIX).
#include "run_fixture.hpp"

#include "run/entry.hpp"
#include "support/file_size_limit.hpp"

#include <filesystem>

namespace korvat::test {
namespace {

class EntryOnPosix : public RunTest {};

TEST_F(EntryOnPosix, LeavesTheLogClosed) {
    directory.write_file("KORVAT.INP", small_deck);
    EXPECT_EQ(run_program(0, nullptr).exit_code, 0);
    std::size_t open_on_the_log = 0;
    for (const auto& descriptor : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone; // the iterator's own
        const std::filesystem::path file = read_symlink(descriptor.path(), gone);
        if (file.filename() == "KORVAT.MLG") ++open_on_the_log;
    }
    EXPECT_EQ(open_on_the_log, 0U);
}

// The log is longer, and so is the copy of the deck, which is then not read back.
TEST_F(EntryOnPosix, ReportsTheFilesThatCouldNotBeWrittenWhole) {
    directory.write_file("KORVAT.INP", small_deck);
    RunEnd end;
    {
        const FileSizeLimit limit(1000);
        end = run_program(0, nullptr);
    }
    EXPECT_EQ(end.exit_code, -1);
    EXPECT_EQ(end.report, "korvat: cannot write KORVAT.MLG: File too large\n"
                          "korvat: cannot write fem_io_unit_012: File too large\n");
}

// Standard error reports the outputs that the exit code does not.
TEST_F(EntryOnPosix, TellsEachOutputThatCannotBeOpened) {
    directory.write_file("KORVAT.INP", small_deck);
    directory.write_file("PILEPLOT.TXT", "earlier");
    block("PILEPLOT.TXT.bak");
    std::filesystem::create_directory("PILE.07");
    const RunEnd end = run_program(0, nullptr);
    EXPECT_EQ(end.exit_code, 0);
    EXPECT_EQ(
        end.report,
        "korvat: warning: cannot open PILE.07: Is a directory; what stands there is of an "
        "earlier run\n"
        "korvat: warning: cannot open PILEPLOT.TXT: cannot rename it to PILEPLOT.TXT.bak: Is a "
        "directory; what stands there is of an earlier run\n");
}

// A link to nowhere: nothing stands there, and nothing can be made.
TEST_F(EntryOnPosix, SaysThatAnOutputIsOfAnEarlierRunOnlyWhereSomethingStands) {
    directory.write_file("KORVAT.INP", small_deck);
    std::filesystem::create_symlink("nowhere/PILE.07", "PILE.07");
    const RunEnd end = run_program(0, nullptr);
    EXPECT_EQ(end.exit_code, 0);
    EXPECT_EQ(end.report, "korvat: warning: cannot open PILE.07: No such file or directory\n");
}

} // namespace
} // namespace korvat::test
