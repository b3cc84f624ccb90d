// The command check: options, exit codes, what goes where.
#include "cli/commands.hpp"
#include "cli/program.hpp"
#include "support/scratch_directory.hpp"
#include "tools/check/deck_text.hpp"

#include <gtest/gtest.h>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>

namespace korvat::test {
namespace {

// Standard streams into texts, as long as it lives.
class Captured {
public:
    Captured()
        : output_before_(std::cout.rdbuf(output_.rdbuf())),
          error_before_(std::cerr.rdbuf(error_.rdbuf())) {}
    ~Captured() {
        std::cout.rdbuf(output_before_);
        std::cerr.rdbuf(error_before_);
    }
    Captured(const Captured&) = delete;
    Captured& operator=(const Captured&) = delete;

    [[nodiscard]] std::string output() const { return output_.str(); }
    [[nodiscard]] std::string error() const { return error_.str(); }

private:
    std::ostringstream output_;
    std::ostringstream error_;
    std::streambuf* output_before_;
    std::streambuf* error_before_;
};

struct Result {
    int code = 0;
    std::string output;
    std::string error;
};

// -1 where the command line is refused.
Result run(std::vector<std::string> arguments) {
    const Captured captured;
    Result result;
    const auto program = cli::make_program(result.code);
    std::reverse(arguments.begin(), arguments.end()); // as the parser takes them
    arguments.emplace_back("check");
    try {
        program->parse(arguments);
    } catch (const CLI::ParseError&) {
        result.code = -1;
    }
    result.output = captured.output();
    result.error = captured.error();
    return result;
}

const std::string surplus = "surplus-numbers";

class CheckCommand : public testing::Test {
protected:
    [[nodiscard]] std::string path(const std::string& name) const {
        return (directory.path() / name).generic_string();
    }

    void SetUp() override {
        directory.write_file("good", good_deck().text());
        directory.write_file("doubt", good_deck().with_changed(21, "10.0", "10.0 4.0").text());
        directory.write_file("bad", good_deck().with_changed(17, "2.1E8", "0.0").text());
    }

    ScratchDirectory directory;
};

TEST_F(CheckCommand, ADeckThatIsRight) {
    const Result result = run({path("good"), "--only", surplus});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.output, "3 piles, 20 elements, 2 sections: 0 errors, 0 warnings\n");
    EXPECT_EQ(result.error, "");
}

TEST_F(CheckCommand, AWarningIsNoError) {
    const Result result = run({path("doubt"), "--only", surplus});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(
        result.output,
        path("doubt") +
            ":21:56: warning: 1 number behind the 9 of the record is not read [surplus-numbers]\n"
            "    1   1    0.914     0.025    0.   0.   0.   0.   10.0 4.0\n"
            "                                                         ^~~\n"
            "  Look whether a number was added in front of it: all behind that are then in the "
            "wrong place. Otherwise remove it, or put a word in front of a remark.\n"
            "3 piles, 20 elements, 2 sections: 0 errors, 1 warning\n");
    EXPECT_EQ(run({"--strict", path("doubt"), "--only", surplus}).code, 1);
}

TEST_F(CheckCommand, AnErrorOfTheRun) {
    EXPECT_EQ(run({path("bad")}).code, 1);
    EXPECT_EQ(run({path("bad"), "--only", surplus}).code, 1); // it does not run
    EXPECT_EQ(run({path("good"), path("bad")}).code, 1);
}

TEST_F(CheckCommand, RulesByTheirNames) {
    EXPECT_EQ(run({"--off", surplus + ",made-piles", path("doubt"), "--strict", "--only",
                   surplus + ",tab"})
                  .code,
              0);
    const Result result = run({"--off", "surplus,tabs", path("doubt")});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error,
              "korvat-tools check: there is no rule 'surplus'; did you mean 'surplus-numbers'?\n"
              "korvat-tools check: there is no rule 'tabs'; did you mean 'tab'?\n");
}

TEST_F(CheckCommand, AFileThatCannotBeReadDoesNotHideTheOthers) {
    const Result result = run({path("none"), path("good"), "--only", surplus});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.output, "3 piles, 20 elements, 2 sections: 0 errors, 0 warnings\n");
    const std::string start = "korvat-tools check: " + path("none") + ": ";
    EXPECT_EQ(result.error.substr(0, start.size()), start);
}

TEST_F(CheckCommand, WrongUse) {
    EXPECT_EQ(run({}).code, -1);
    EXPECT_EQ(run({path("good"), "--format", "xml"}).code, -1);
    EXPECT_EQ(run({path("good"), "--stric"}).code, -1);
}

TEST_F(CheckCommand, TheRulesWithTheirLevels) {
    const Result result = run({"--rules"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.output.substr(0, 46), "run-error (error): the first error of the run\n");
    EXPECT_NE(result.output.find("\nmade-piles (note): piles made between two given ones\n"),
              std::string::npos);
}

TEST_F(CheckCommand, FormatsForOtherPrograms) {
    const auto json = nlohmann::json::parse(run({path("bad"), "--format", "json"}).output);
    EXPECT_EQ(json.at("cases").at(0).at("findings").at(0).at("rule"), "run-error");
    const auto sarif = nlohmann::json::parse(run({path("bad"), "--format", "sarif"}).output);
    EXPECT_EQ(sarif.at("runs").at(0).at("results").at(0).at("ruleId"), "run-error");
}

TEST_F(CheckCommand, NothingIsWrittenIntoTheCase) {
    directory.write_file("KORVAT.INP", good_deck().text());
    const std::vector<std::string> before = directory.list();
    EXPECT_EQ(run({directory.path().generic_string(), "--only", surplus}).code, 0);
    EXPECT_EQ(directory.list(), before);
}

} // namespace
} // namespace korvat::test
