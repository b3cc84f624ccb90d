// The preloaded library sees every call of a run and changes nothing that the test does not ask for.
#include "../support/text.hpp"
#include "verdict.hpp"
#include "workplace.hpp"

#include <algorithm>
#include <cerrno>
#include <gtest/gtest.h>

namespace korvat::test {
namespace {

// Of a run in a directory with nothing but the deck.
Outcome counted_run(const Fault& fault = {.call = Call::write}) {
    return Workplace(accepted_deck()).run({.fault = fault});
}

TEST(FaultShim, ChangesNothingByItself) {
    const Outcome plain = Workplace(accepted_deck()).run();
    EXPECT_EQ(plain.exit_code, 0);
    EXPECT_EQ(plain.standard_error, "");
    for (const char* const name : output_names)
        EXPECT_GT(plain.files.at(name).size(), 100U) << name;
    EXPECT_EQ(differences(counted_run(), plain), std::vector<std::string>{});
    EXPECT_EQ(differences(counted_run({.call = Call::allocate}), plain),
              std::vector<std::string>{});
}

TEST(FaultShim, CountsEveryCallOfItsKinds) {
    const Outcome run = counted_run();
    // Five outputs, the deck, its copy; and the directory, to look for what has to be removed.
    EXPECT_EQ(run.count(Call::open), 8U);
    EXPECT_EQ(run.count(Call::close), 7U);
    // Log, listing and plot file, none of which is there yet.
    EXPECT_EQ(run.count(Call::rename), 3U);
    // Their backups; the copy of the deck, before it is made and at the end.
    EXPECT_EQ(run.count(Call::remove), 5U);
    // Before the opening: log, deck, listing, plot file and copy, and whether something stands in the
    // places of the five outputs; at the end: five outputs.
    EXPECT_EQ(run.count(Call::status), 15U);
    // Every file ends where its first line is written.
    EXPECT_EQ(run.count(Call::truncate), 0U);
    // The directory, the one above it, deck, outputs, copy, and the end.
    EXPECT_EQ(run.count(Call::list), 10U);
    for (const Call call : {Call::read, Call::seek, Call::flush})
        EXPECT_GT(run.count(call), 3U);
    EXPECT_EQ(run.fired, 0U);
}

TEST(FaultShim, SeesEveryByteThatIsWritten) {
    const Outcome run = counted_run();
    std::uint64_t bytes = 0;
    for (const char* const name : output_names)
        bytes += run.files.at(name).size();
    // The copy has the lines of the deck but for comments and END, 120 columns and a line feed each.
    const std::vector<std::string> lines = split_lines(accepted_deck());
    const auto is_left_out = [](const std::string& line) {
        return line.starts_with('*') || line == "END";
    };
    const auto left_out = std::count_if(lines.begin(), lines.end(), is_left_out);
    bytes += (lines.size() - static_cast<std::size_t>(left_out)) * 121;
    EXPECT_EQ(run.bytes_written, bytes);
}

TEST(FaultShim, FailsTheOneCallOrAllAfter) {
    const Outcome one = counted_run({.call = Call::rename, .at = 2, .error = EIO});
    EXPECT_EQ(one.fired, 1U);
    EXPECT_EQ(one.hit, std::vector<std::string>{"KORVAT.LIS"});
    const Outcome all =
        counted_run({.call = Call::rename, .at = 2, .all_after = true, .error = EIO});
    EXPECT_EQ(all.fired, 2U);
    EXPECT_EQ(all.hit, (std::vector<std::string>{"KORVAT.LIS", "PILEPLOT.TXT"}));
    const Outcome killed = counted_run({.call = Call::rename, .at = 3, .action = Action::kill});
    EXPECT_EQ(killed.exit_code, 128 + 9);
    EXPECT_EQ(killed.hit, std::vector<std::string>{"PILEPLOT.TXT"});
    EXPECT_FALSE(killed.files.contains("PILEPLOT.TXT"));
}

} // namespace
} // namespace korvat::test
