// Whole calls of korvat-tools: what they print and the code they end with.
#include "cli/command_line.hpp"
#include "run/program_version.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

struct Call {
    int code = 0;
    std::string out;
    std::string error;

    bool operator==(const Call&) const = default;
};

void PrintTo(const Call& call, std::ostream* stream) {
    *stream << call.code << "\n--- out\n" << call.out << "--- error\n" << call.error;
}

Call called(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "korvat-tools");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    Call call;
    call.code = cli::run_command_line(static_cast<int>(arguments.size()), arguments.data());
    call.out = testing::internal::GetCapturedStdout();
    call.error = testing::internal::GetCapturedStderr();
    return call;
}

Call wrong(const std::string& what, const std::string& command = "") {
    const std::string name = "korvat-tools" + (command.empty() ? "" : " " + command);
    return {2, "", name + ": " + what + "\n'" + name + " --help' shows what there is.\n"};
}

TEST(CommandLine, HasAVersion) {
    const std::string version(program_version());
    EXPECT_EQ(called({"--version"}), (Call{0, "korvat-tools " + version + "\n", ""}));
}

TEST(CommandLine, HelpIsTheSameInEveryForm) {
    const Call program = called({"--help"});
    EXPECT_EQ(program.code, 0);
    EXPECT_NE(program.out.find("Subcommands:\n"), std::string::npos) << program.out;
    EXPECT_EQ(called({"-h"}), program);
    EXPECT_EQ(called({"help"}), program);
    const Call command = called({"help", "help"});
    EXPECT_EQ(command.code, 0);
    EXPECT_NE(command.out.find("Usage: korvat-tools help [OPTIONS] [COMMAND]\n"), std::string::npos)
        << command.out;
    EXPECT_EQ(called({"help", "--help"}), command);
}

TEST(CommandLine, WrongUseNamesWhatWasMeant) {
    EXPECT_EQ(called({}), wrong("a command is missing"));
    EXPECT_EQ(called({"hlep"}), wrong("there is no command 'hlep'; did you mean 'help'?"));
    EXPECT_EQ(called({"zzz"}), wrong("there is no command 'zzz'"));
    EXPECT_EQ(called({"--verison"}),
              wrong("there is no option '--verison'; did you mean '--version'?"));
    EXPECT_EQ(called({"help", "--mna=1"}),
              wrong("there is no option '--mna'; did you mean '--man'?", "help"));
    EXPECT_EQ(called({"help", "help", "more"}), wrong("'more' is one argument too many", "help"));
    EXPECT_EQ(called({"completion"}), wrong("SHELL is required", "completion"));
    EXPECT_EQ(
        called({"help", "hlep"}),
        (Call{2, "", "korvat-tools help: there is no command 'hlep'; did you mean 'help'?\n"}));
}

} // namespace
} // namespace korvat::test
