// Full devices, limits, directories that cannot be written to or that go, standard streams that are closed.
#include "../support/masks.hpp"
#include "loop.hpp"
#include "small_file_system.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace korvat::test {
namespace {

const std::string no_space = std::strerror(ENOSPC);
const std::filesystem::path full_device = "/dev/full";

Outcome undisturbed_run(const std::string& deck = accepted_deck()) {
    return Workplace(deck).run();
}

void expect_none(const std::vector<std::string>& list, const Outcome& run) {
    EXPECT_TRUE(list.empty()) << "exit code " << run.exit_code << joined_lines(list) << "\n"
                              << run.standard_error;
}

// A log that cannot be made: neither its old backup nor the old log itself can be moved.
void block_log(const Workplace& place) {
    write_whole_file(place.path() / "KORVAT.MLG", "an old log\n");
    std::filesystem::create_directories(place.path() / "KORVAT.MLG.bak" / "not empty");
}

const std::string log_blocked =
    "korvat: warning: cannot open KORVAT.MLG: cannot rename it to KORVAT.MLG.bak: Is a directory; "
    "what stands there is of an earlier run\n";

TEST(FullDevice, IsToldForEachFileOnIt) {
    using Names = std::vector<std::string>;
    std::uint64_t cases = 0;
    for (const Names& names : {Names{"PILE.07"}, Names{"LOAD.09"}, Names{"PILE.07", "LOAD.09"}}) {
        for (const bool is_log_full : {false, true}) {
            const Workplace place(accepted_deck());
            std::map<std::string, std::string> due;
            for (const std::string& name : names) {
                std::filesystem::create_symlink(full_device, place.path() / name);
                due[name] = no_space;
            }
            if (is_log_full) {
                block_log(place);
                due["standard output"] = no_space;
            }
            const Outcome run =
                place.run({.standard_output = is_log_full ? full_device : std::filesystem::path()});
            EXPECT_EQ(run.exit_code, 255);
            EXPECT_EQ(files_not_written(run), due);
            ++cases;
        }
    }
    show_cases(cases);
}

// Standard output is no output that was asked for: the exit code is that of the steps.
TEST(FullDevice, IsToldForALogOnStandardOutput) {
    const Workplace place(accepted_deck());
    block_log(place);
    const Outcome run = place.run({.standard_output = full_device});
    EXPECT_EQ(run.exit_code, 0);
    EXPECT_EQ(run.standard_error,
              log_blocked + "korvat: warning: cannot write standard output: " + no_space + "\n");

    const Workplace other(refused_deck());
    block_log(other);
    const Outcome refused = other.run({.standard_output = full_device});
    EXPECT_EQ(refused.exit_code, 1);
    EXPECT_EQ(files_not_written(refused),
              (std::map<std::string, std::string>{{"standard output", no_space}}));
    show_cases(2);
}

// A lost output does not take the place of the code of the step that failed.
TEST(FullDevice, LeavesTheCodeOfARefusedDeck) {
    const Workplace place(refused_deck());
    for (const char* const name : {"PILE.07", "LOAD.09"})
        std::filesystem::create_symlink(full_device, place.path() / name);
    const Outcome run = place.run();
    EXPECT_EQ(run.exit_code, 1);
    EXPECT_EQ(files_not_written(run),
              (std::map<std::string, std::string>{{"PILE.07", no_space}, {"LOAD.09", no_space}}));
    EXPECT_TRUE(run.standard_error.starts_with("korvat: KORVAT.INP:")) << run.standard_error;
    show_cases(1);
}

// Standard output is nothing of the program's while the log has a file.
TEST(FullDevice, OnStandardOutputDoesNoHarmToARunWithALog) {
    const Outcome undisturbed = undisturbed_run();
    const Outcome run = Workplace(accepted_deck()).run({.standard_output = full_device});
    EXPECT_EQ(differences(run, undisturbed), std::vector<std::string>{});
}

// One more of what the file system has too little of, until a run has its way; returns the number of
// runs.
std::uint64_t grow_file_system(const std::string& deck, const std::string& option,
                               std::uint64_t unit, std::uint64_t first) {
    const Outcome undisturbed = undisturbed_run(deck);
    for (std::uint64_t count = first; count < first + 100; ++count) {
        const std::string options = option + "=" + std::to_string(count * unit);
        SCOPED_TRACE(options);
        const ScratchDirectory place;
        const SmallFileSystem files(place.path(), options);
        write_whole_file(place.path() / "KORVAT.INP", deck);
        const Outcome run = faulty_run(place.path());
        expect_none(complaints(run, no_space, undisturbed), run);
        if (differences(run, undisturbed).empty()) return count - first + 1;
    }
    ADD_FAILURE() << "no run has its way";
    return 0;
}

// From one page on, which the deck takes.
TEST(SmallDevice, IsToldPageByPage) {
    constexpr std::uint64_t page = 4096;
    show_cases(grow_file_system(accepted_deck(), "size", page, 1) +
               grow_file_system(refused_deck(), "size", page, 1));
}

// From the directory and the deck on, beside which nothing can be made.
TEST(SmallDevice, IsToldFileByFile) {
    show_cases(grow_file_system(accepted_deck(), "nr_inodes", 1, 2) +
               grow_file_system(refused_deck(), "nr_inodes", 1, 2));
}

TEST(FileSizeLimit, IsToldStepByStep) {
    constexpr std::uint64_t step = KORVAT_SANITIZED != 0 ? 8192 : 512;
    std::uint64_t cases = 0;
    for (const std::string& deck : {accepted_deck(), refused_deck()}) {
        const Outcome undisturbed = undisturbed_run(deck);
        for (std::uint64_t limit = 0;; limit += step) {
            const Outcome run = Workplace(deck).run({.largest_file = limit});
            SCOPED_TRACE("limit " + std::to_string(limit));
            expect_none(complaints(run, std::strerror(EFBIG), undisturbed), run);
            ++cases;
            if (differences(run, undisturbed).empty()) break;
            ASSERT_LT(limit, 1U << 20U);
        }
    }
    show_cases(cases);
}

// The run of an accepted deck where nothing can be made: it reports two files and ends at the listing.
void expect_refusal_of_directory(const Outcome& run) {
    EXPECT_EQ(run.exit_code, 1);
    EXPECT_EQ(run.standard_error,
              "korvat: KORVAT.LIS: SR/CONTRL  FILE KORVAT.LIS OPEN PROBLEM  IERR=    1\n");
    const std::string log = mask_log(run.standard_output);
    const std::string due = "\n **** SR/CONTRL  FILE PILE.O7 OPEN PROBLEM  IERR=    1\n"
                            "\n **** SR/CONTRL  FILE KORVAT.LIS OPEN PROBLEM  IERR=    1\n"
                            " ERROR EXIT FROM KORVAT                            \n";
    EXPECT_TRUE(log.ends_with(due)) << log;
}

TEST(ReadOnlyFileSystem, RefusesTheRunAndStaysAsItIs) {
    for (const bool has_earlier_files : {false, true}) {
        const Workplace place(""); // hidden by what is mounted on it
        const SmallFileSystem files(place.path(), "size=1048576");
        write_whole_file(place.path() / "KORVAT.INP", accepted_deck());
        if (has_earlier_files) place.add_earlier_files();
        files.make_read_only();
        const auto before = place.files();
        const Outcome run = place.run();
        expect_refusal_of_directory(run);
        EXPECT_EQ(run.files, before);
    }
    show_cases(2);
}

TEST(ReadOnlyDirectory, RefusesTheRunAndStaysAsItIs) {
    const Workplace place(accepted_deck());
    std::filesystem::permissions(place.path(), std::filesystem::perms(0555));
    const Outcome run = place.run({.as_nobody = true});
    expect_refusal_of_directory(run);
    EXPECT_EQ(run.files.size(), 1U);
}

// The files that the run had made are gone at its end, whenever the directory goes.
TEST(RemovedDirectory, IsToldWheneverItGoes) {
    std::uint64_t cases = 0;
    for (const Call call :
         {Call::open, Call::write, Call::close, Call::rename, Call::remove, Call::list}) {
        const std::uint64_t step = KORVAT_SANITIZED != 0 && call == Call::write ? 13 : 1;
        Fault fault{.call = call, .action = Action::remove_directory};
        for (fault.at = 1;; fault.at += step) {
            const Workplace place(accepted_deck());
            const Outcome run = place.run({.fault = fault});
            if (run.fired == 0) break;
            ++cases;
            SCOPED_TRACE("call " + std::to_string(fault.at));
            EXPECT_TRUE(run.files.empty());
            const auto told = files_not_written(run);
            // The deck is missed, or the listing cannot be made, before anything else goes wrong.
            const bool is_refused =
                run.standard_error.starts_with(
                    "korvat: KORVAT.INP: SR/CONTRL  FILE KORVAT.INP OPEN PROBLEM  IERR=    1\n") ||
                run.standard_error.starts_with(
                    "korvat: KORVAT.LIS: SR/CONTRL  FILE KORVAT.LIS OPEN PROBLEM  IERR=    1\n");
            EXPECT_EQ(run.exit_code, is_refused ? 1 : 255) << run.standard_error;
            EXPECT_TRUE(!told.empty() || is_refused) << run.standard_error;
            for (const auto& [name, reason] : told)
                EXPECT_EQ(reason, std::strerror(ENOENT)) << name;
        }
    }
    show_cases(cases);
}

// The descriptors of closed streams must not go to files, which would then get what is meant for
// the streams.
TEST(ClosedStreams, LeaveTheFilesAsTheyAre) {
    std::uint64_t cases = 0;
    for (const std::string& deck : {accepted_deck(), refused_deck(), warned_deck()}) {
        const Outcome undisturbed = undisturbed_run(deck);
        for (unsigned which = 1; which < 8; ++which) {
            SCOPED_TRACE("closed streams, bit by bit: " + std::to_string(which));
            const std::array<bool, 3> closed = {(which & 1U) != 0, (which & 2U) != 0,
                                                (which & 4U) != 0};
            Outcome run = Workplace(deck).run({.closed = closed});
            if (closed[2]) run.standard_error = undisturbed.standard_error; // nobody sees it
            EXPECT_EQ(differences(run, undisturbed), std::vector<std::string>{});
            ++cases;
        }
    }
    show_cases(cases);
}

TEST(ClosedStreams, AreToldWhenTheLogShouldGoThere) {
    const Outcome undisturbed = undisturbed_run();
    const Workplace place(accepted_deck());
    block_log(place);
    const Outcome run = place.run({.closed = {false, true, false}});
    EXPECT_EQ(run.exit_code, 0);
    EXPECT_EQ(run.standard_error, log_blocked + "korvat: warning: cannot write standard output: " +
                                      std::strerror(EBADF) + "\n");
    for (const char* const name : {"PILE.07", "LOAD.09", "PILEPLOT.TXT"})
        EXPECT_EQ(run.files.at(name), undisturbed.files.at(name)) << name;
}

} // namespace
} // namespace korvat::test
