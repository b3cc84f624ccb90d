// Batches as processes of their own: interrupted, killed, and with very many names.
#include "batch_fixture.hpp"

#include "study/digest.hpp"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <random>
#include <sched.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvat::test {
namespace {

namespace fs = std::filesystem;
using study::CaseRecord;
using study::CaseState;
using Names = std::vector<std::string>;

class BatchProcess : public BatchFixture {
protected:
    // korvat-tools, its streams led into the files "out" and "error".
    [[nodiscard]] pid_t start(const Names& words) const {
        Names all = with_files(words);
        all.insert(all.begin(), "korvat-tools");
        std::vector<char*> arguments;
        for (std::string& word : all)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC;
        posix_spawn_file_actions_addopen(&actions, 1, path("out").c_str(), flags, 0644);
        posix_spawn_file_actions_addopen(&actions, 2, path("error").c_str(), flags, 0644);
        pid_t process = 0;
        EXPECT_EQ(posix_spawn(&process, KORVAT_TOOLS_PROGRAM, &actions, nullptr, arguments.data(),
                              environ),
                  0);
        posix_spawn_file_actions_destroy(&actions);
        return process;
    }

    // The status of a process that has ended.
    [[nodiscard]] static int status_of(pid_t process) {
        int status = 0;
        waitpid(process, &status, 0);
        return status;
    }

    [[nodiscard]] int code(const Names& words) const {
        const int status = status_of(start(words));
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    // The whole lines of the journal.
    [[nodiscard]] Names lines() const {
        Names found;
        const std::string text = scratch_.has("j") ? scratch_.read_file("j") : "";
        std::size_t begin = 0;
        for (std::size_t end = text.find('\n'); end != std::string::npos;
             begin = end + 1, end = text.find('\n', begin))
            found.push_back(text.substr(begin, end - begin));
        return found;
    }
};

// The first case ends, the two others would never.
TEST_F(BatchProcess, AnInterruptEndsWhatRuns) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        for (const std::string name : {"1", "2", "3"})
            write_case(name, name);
        const std::string program =
            script("run", "read deck < KORVAT.INP; [ $deck = 1 ] && exit 1\n"
                          "echo $$ > number.new; mv number.new number\n"
                          "while :; do :; done\n");
        const pid_t process =
            start({"-j", "2", "--program", program, path("1"), path("2"), path("3")});
        while (!scratch_.has("2/number") || !scratch_.has("3/number"))
            sched_yield();
        kill(process, signal);
        const int status = status_of(process);
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), 128 + signal);
        for (const std::string name : {"2", "3"}) {
            EXPECT_NE(kill(std::stoi(scratch_.read_file(name + "/number")), 0), 0);
            fs::remove(scratch_.path() / name / "number");
        }
        ASSERT_EQ(journal().size(), 1U);
        EXPECT_EQ(journal()[0].name, path("1"));
        EXPECT_NE(scratch_.read_file("error").find(
                      "korvat-tools batch: interrupted after 1 case, 1 failed, "),
                  std::string::npos);
        EXPECT_FALSE(scratch_.has("s"));
    }
}

// Killed a hundred times at moments that nobody chooses: no case that has ended is lost or run again, and in the
// end everything is as if nothing had happened.
TEST_F(BatchProcess, SurvivesToBeKilled) {
    constexpr int kills = 100;
    constexpr int cases = 60;
    Names names;
    for (int i = 0; i < cases; ++i) {
        const std::string name = "c" + std::to_string(i);
        names.push_back(path(name));
        write_case(name,
                   i % 7 == 3 ? bad_ : good_deck().with(1, "Case " + std::to_string(i)).text());
    }
    Names words = {"--program", KORVAT_PROGRAM, "--quiet", "-j", "2", "--resume"};
    words.insert(words.end(), names.begin(), names.end());
    ASSERT_EQ(code(words), 1);
    const Names expected = summary();
    std::map<std::string, std::string> results;
    const auto forget = [&] {
        fs::remove(scratch_.path() / "j");
        for (const std::string& name : names)
            fs::remove(fs::path(name) / "PILE.07");
    };
    for (const std::string& name : names)
        results[name] = read_whole_file(fs::path(name) / "PILE.07");
    forget();

    std::mt19937 random(20'090'901); // the moments differ all the same
    std::uniform_int_distribution<int> microseconds(0, 30'000);
    int killed = 0;
    std::size_t finished = 0; // times that the study came to its end
    Names before;
    while (killed < kills) {
        const pid_t process = start(words);
        const auto until =
            std::chrono::steady_clock::now() + std::chrono::microseconds(microseconds(random));
        while (std::chrono::steady_clock::now() < until)
            sched_yield();
        kill(process, SIGKILL);
        const int status = status_of(process);
        if (WIFSIGNALED(status)) ++killed;
        const Names now = lines();
        ASSERT_GE(now.size(), before.size());
        EXPECT_TRUE(std::equal(before.begin(), before.end(), now.begin()));
        before = now;
        if (now.size() < cases && killed < kills) continue;
        ASSERT_EQ(code(words), 1);
        ++finished;
        EXPECT_EQ(summary(), expected);
        std::map<std::string, int> times;
        for (const CaseRecord& record : journal())
            ++times[record.name];
        EXPECT_EQ(times.size(), static_cast<std::size_t>(cases));
        for (const auto& [name, count] : times)
            EXPECT_EQ(count, 1) << name;
        for (const std::string& name : names)
            EXPECT_EQ(read_whole_file(fs::path(name) / "PILE.07"), results[name]) << name;
        forget();
        before.clear();
    }
    EXPECT_GE(finished, 1U);
}

#if !defined(__SANITIZE_ADDRESS__)
// The journal has all cases but the last one, whose program tells the memory of the batch.
TEST_F(BatchProcess, MemoryDoesNotGrowWithTheCases) {
    write_case("last", "last");
    const std::string program = script("run", "grep VmHWM /proc/$PPID/status > memory; exit 1\n");
    const auto kilobytes = [&](int count) {
        std::string list;
        std::string journal;
        CaseRecord record;
        record.deck = study::digest("x");
        record.program = study::digest(scratch_.read_file("run"));
        record.state = CaseState::refused;
        for (int i = 0; i < count; ++i) {
            // Paths of a few directories: cases need not be many places.
            record.name = path("d" + std::to_string(i % 100) + "/../d" + std::to_string(i / 100));
            record.position = static_cast<std::uint64_t>(i);
            list += record.name + "\n";
            journal += study::to_line(record) + "\n";
        }
        scratch_.write_file("j", journal);
        scratch_.write_file("list", list + path("last") + "\n");
        EXPECT_EQ(code({"--resume", "--quiet", "--program", program, "-f", path("list")}), 1);
        EXPECT_EQ(lines().size(), static_cast<std::size_t>(count) + 1); // the others were skipped
        EXPECT_EQ(summary().size(), static_cast<std::size_t>(count) + 2);
        std::string text = scratch_.read_file("last/memory");
        return std::stoi(text.substr(text.find_first_of("0123456789")));
    };
    for (int i = 0; i < 100; ++i)
        write_case("d" + std::to_string(i), "x");
    const int of_thousand = kilobytes(1000);
    const int of_ten_thousand = kilobytes(10'000);
    EXPECT_LT(of_ten_thousand - of_thousand, 1024); // a hundred bytes a case would be 900
}
#endif

TEST_F(BatchProcess, TakesAHundredThousandNames) {
    write_case("only", bad_);
    std::string list;
    for (int i = 0; i < 99'999; ++i)
        list += path("none") + std::to_string(i) + "\n";
    scratch_.write_file("list", list + path("only") + "\n");
    // The last case is in the hundred thousandth part, and alone there.
    EXPECT_EQ(code({"--program", KORVAT_PROGRAM, "--shard", "100000/100000", "-f", path("list")}),
              1);
    ASSERT_EQ(summary().size(), 2U);
    EXPECT_EQ(summary()[1].substr(0, path("only").size() + 10), path("only") + ",refused,1");
    EXPECT_EQ(scratch_.read_file("out").substr(0, 17), "1 case, 1 failed,");
}

} // namespace
} // namespace korvat::test
