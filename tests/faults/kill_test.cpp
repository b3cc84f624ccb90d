// A run is killed; the next run in the same directory is right all the same.
#include "loop.hpp"

#include <algorithm>
#include <chrono>
#include <random>

namespace korvat::test {
namespace {

constexpr int killed = 128 + 9;

// One backup generation: each text file that the killed run left becomes the backup, and where it
// left none there is none. Everything else is as after a run in a fresh directory.
Outcome due_after(const Outcome& left, const Outcome& fresh) {
    Outcome due = fresh;
    for (const std::string name : {"KORVAT.MLG", "KORVAT.LIS", "PILEPLOT.TXT"}) {
        const auto file = left.files.find(name);
        if (file != left.files.end()) due.files[name + ".bak"] = file->second;
    }
    return due;
}

// Whether the run was killed before its end; the next one is judged in any case.
bool kill_and_run_again(const Surroundings& surroundings, const Outcome& fresh) {
    const Workplace place(accepted_deck());
    place.add_earlier_files();
    const Outcome first = place.run(surroundings);
    EXPECT_TRUE(first.exit_code == killed || first.exit_code == 0) << first.exit_code;
    const Outcome second = place.run();
    const std::vector<std::string> list = differences(second, due_after(first, fresh));
    EXPECT_TRUE(list.empty()) << joined_lines(list) << "\n" << second.standard_error;
    return first.exit_code == killed;
}

TEST(Kill, AtEveryCallLeavesTheNextRunRight) {
    const Outcome fresh = Workplace(accepted_deck()).run();
    std::uint64_t cases = 0;
    for (const Call call :
         {Call::open, Call::write, Call::close, Call::rename, Call::remove, Call::list}) {
        Fault fault{.call = call, .action = Action::kill};
        const std::uint64_t step = KORVAT_SANITIZED != 0 && call == Call::write ? 5 : 1;
        for (fault.at = 1; kill_and_run_again({.fault = fault}, fresh); fault.at += step)
            ++cases;
    }
    show_cases(cases);
    EXPECT_GT(cases, KORVAT_SANITIZED != 0 ? 50U : 150U);
}

double seconds_of_a_run() {
    using Clock = std::chrono::steady_clock;
    double longest = 0.0;
    for (int i = 0; i < 5; ++i) {
        const Workplace place(accepted_deck());
        const auto start = Clock::now();
        place.run();
        longest = std::max(longest, std::chrono::duration<double>(Clock::now() - start).count());
    }
    return longest;
}

TEST(Kill, AtAnyMomentLeavesTheNextRunRight) {
    constexpr std::uint64_t wanted = KORVAT_SANITIZED != 0 ? 40 : 200;
    const Outcome fresh = Workplace(accepted_deck()).run();
    std::mt19937 random(20091);
    std::uniform_real_distribution<double> moment(0.0, seconds_of_a_run());
    std::uint64_t cases = 0;
    for (std::uint64_t i = 0; cases < wanted && i < 20 * wanted; ++i) {
        if (kill_and_run_again({.killed_after = moment(random)}, fresh)) ++cases;
    }
    show_cases(cases);
    EXPECT_EQ(cases, wanted);
}

} // namespace
} // namespace korvat::test
