// The directory of a run: gone afterwards, also behind an interrupt; and where there can be none.
#include "command_call.hpp"
#include "support/environment.hpp"
#include "support/scratch_directory.hpp"

#include <csignal>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

namespace korvat::test {
namespace {

namespace fs = std::filesystem;

// Temporary files go below a directory of the test's own.
class CaseOfARun : public testing::Test {
protected:
    CaseOfARun() {
        const char* const before = std::getenv("TMPDIR");
        if (before != nullptr) before_ = before;
        fs::create_directory(temporary_);
        set_environment_variable("TMPDIR", temporary_.string());
    }
    ~CaseOfARun() override {
        if (before_.empty()) {
            unset_environment_variable("TMPDIR");
        } else {
            set_environment_variable("TMPDIR", before_);
        }
    }

    // Of an export that gets a signal as soon as its run has a directory.
    [[nodiscard]] int status_after(int signal) const {
        const pid_t process = fork();
        if (process == 0) {
            execl(KORVAT_TOOLS_PROGRAM, "korvat-tools", "export", "--to", "vtu", "-o", out_.c_str(),
                  deck_.c_str(), nullptr);
            _exit(127);
        }
        int status = 0;
        while (!has_temporary_files()) {
            if (waitpid(process, &status, WNOHANG) != 0) return status;
        }
        kill(process, signal);
        waitpid(process, &status, 0);
        return status;
    }

    [[nodiscard]] bool has_temporary_files() const { return !fs::is_empty(temporary_); }

    ScratchDirectory scratch_;
    fs::path temporary_ = scratch_.path() / "tmp";
    fs::path out_ = scratch_.path() / "out";
    std::string deck_ = (fs::path(KORVAT_EXAMPLES_DIR) / "limits" / "KORVAT.INP").string();

private:
    std::string before_;
};

TEST_F(CaseOfARun, NothingOfItStays) {
    EXPECT_EQ(called_with({"export", "--to", "vtu", "-o", out_.string(), deck_}),
              (CommandCall{0, (out_ / "group.vtu").string() + "\n", ""}));
    EXPECT_FALSE(has_temporary_files());
    EXPECT_EQ(called_with({"diff", deck_, deck_}), (CommandCall{0, "", ""}));
    EXPECT_FALSE(has_temporary_files());
    EXPECT_EQ(called_with({"diff", "-", deck_}, "no deck").code, 1);
    EXPECT_FALSE(has_temporary_files());
}

// The limits have the longest run. Should it end before the signal comes, it is run again.
TEST_F(CaseOfARun, NothingOfItStaysBehindAnInterrupt) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        int status = 0;
        for (int i = 0; i < 50 && !WIFSIGNALED(status); ++i) {
            fs::remove_all(out_);
            status = status_after(signal);
            ASSERT_FALSE(has_temporary_files()) << signal;
        }
        ASSERT_TRUE(WIFSIGNALED(status)) << signal << ": " << status;
        EXPECT_EQ(WTERMSIG(status), signal);
    }
}

TEST_F(CaseOfARun, ThereIsNoDirectoryForIt) {
    set_environment_variable("TMPDIR", "/proc");
    const CommandCall call = called_with({"export", "--to", "vtu", "-o", out_.string(), deck_});
    EXPECT_EQ(call.code, 2);
    EXPECT_TRUE(call.error.starts_with("korvat-tools export: " + deck_ +
                                       ": cannot make a directory in /proc: "))
        << call.error;
    EXPECT_FALSE(fs::exists(out_));
}

} // namespace
} // namespace korvat::test
