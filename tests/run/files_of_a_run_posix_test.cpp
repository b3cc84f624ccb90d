// The files of a run without the permission to make or read them (POSIX).
#include "run_fixture.hpp"

#include "run/entry.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace korvat::test {
namespace {

using Names = std::vector<std::string>;

class FilesWithoutPermission : public RunTest {};

// In a child process, for a privileged user may write everywhere: gives the privileges up, sends
// standard output and standard error to one file and runs the program in the current directory.
int run_without_privileges(const std::string& output_name) {
    constexpr int not_started = 99;
    constexpr unsigned nobody = 65534;
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        const int output = open(output_name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND, 0600);
        if (output < 0 || dup2(output, STDOUT_FILENO) < 0 || dup2(output, STDERR_FILENO) < 0) {
            _exit(not_started);
        }
        if (getuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) _exit(not_started);
        const int code = run_program(0, nullptr).exit_code;
        std::fflush(nullptr);
        _exit(code);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return not_started;
    return WEXITSTATUS(status);
}

TEST_F(FilesWithoutPermission, AReadOnlyDirectoryIsReportedOnStandardOutput) {
    const ScratchDirectory elsewhere;
    directory.write_file("KORVAT.INP", small_deck);
    ASSERT_EQ(chmod(directory.path().c_str(), 0555), 0);
    const int code = run_without_privileges((elsewhere.path() / "output").string());
    ASSERT_EQ(chmod(directory.path().c_str(), 0755), 0);
    EXPECT_EQ(code, 1);
    EXPECT_EQ(mask_log(elsewhere.read_file("output")),
              std::string(log_start) +
                  "\n **** SR/CONTRL  FILE PILE.O7 OPEN PROBLEM  IERR=    1\n"
                  "\n **** SR/CONTRL  FILE KORVAT.LIS OPEN PROBLEM  IERR=    1\n" +
                  error_exit());
    EXPECT_EQ(directory.list(), Names{"KORVAT.INP"});
}

TEST_F(FilesWithoutPermission, AnUnreadableInputIsAnError) {
    const ScratchDirectory elsewhere;
    directory.write_file("KORVAT.INP", small_deck);
    ASSERT_EQ(chmod("KORVAT.INP", 0), 0);
    ASSERT_EQ(chmod(directory.path().c_str(), 0777), 0);
    EXPECT_EQ(run_without_privileges((elsewhere.path() / "output").string()), 1);
    EXPECT_EQ(elsewhere.read_file("output"), "");
    EXPECT_EQ(log(), std::string(log_start) +
                         "\n **** SR/CONTRL  FILE KORVAT.INP OPEN PROBLEM  IERR=    1\n" +
                         error_exit());
    EXPECT_EQ(directory.list(), (Names{"KORVAT.INP", "KORVAT.MLG", "PILE.07"}));
}

// The scratch files are looked for before the exit line is written.
TEST_F(FilesWithoutPermission, TheCleanUpComesBeforeTheExitLine) {
    const ScratchDirectory elsewhere;
    directory.write_file("KORVAT.INP", small_deck);
    directory.write_file("KORVAT.MLG", "earlier\n");
    block("KORVAT.MLG.bak");
    ASSERT_EQ(chmod(directory.path().c_str(), 0333), 0); // cannot be listed
    const int code = run_without_privileges((elsewhere.path() / "output").string());
    ASSERT_EQ(chmod(directory.path().c_str(), 0755), 0);
    EXPECT_EQ(code, 0);
    EXPECT_EQ(mask_log(elsewhere.read_file("output")),
              std::string(log_start) + "\n Input data is for revision 4 : 2006-06-11\n \n" +
                  input_read("One pile") +
                  " +++++ PILE GEOMETRY VALUES COMPUTED\n"
                  " +++++ TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED\n"
                  " +++++ NO LOAD VECTOR WAS GIVEN\n"
                  " \n"
                  "Exception ::Error While Accessing :.\n" +
                  normal_exit());
}

} // namespace
} // namespace korvat::test
