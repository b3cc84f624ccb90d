// The identification page of a whole run, against its log's own lines and the machine (POSIX).
#include "run_fixture.hpp"

#include "run/banner.hpp"
#include "run/entry.hpp"
#include "support/environment.hpp"
#include "support/expected_page.hpp"

#include <vector>

namespace korvat::test {
namespace {

using Lines = std::vector<std::string>;

class PageOfARun : public RunTest {
protected:
    PageOfARun() {
        set_environment_variable("USERNAME", "a-user-name-of-24-digits");
        set_environment_variable("COMPUTERNAME", "DESK-7");
    }
    ~PageOfARun() override {
        unset_environment_variable("USERNAME");
        unset_environment_variable("COMPUTERNAME");
    }
};

Lines banner_lines() {
    Lines lines = {std::string(131, ' '), std::string(131, ' ')};
    for (const BannerLine& halves : banner())
        lines.push_back(padded(std::string(halves[0]) + std::string(halves[1]), 131));
    return lines;
}

TEST_F(PageOfARun, TellsOfTheRunAndTheMachine) {
    directory.write_file("KORVAT.INP", small_deck);
    ASSERT_EQ(run_program(0, nullptr).exit_code, 0);
    const std::string log = directory.read_file("KORVAT.MLG");
    ASSERT_TRUE(mask_log(log).starts_with(log_start)); // stamp and start line have their forms
    HostFacts host = host_facts();
    host.user = "a-user-name-of-24-digits";
    host.computer = "DESK-7";
    Lines expected = banner_lines();
    const Lines rest = expected_page(log, host);
    expected.insert(expected.end(), rest.begin(), rest.end());
    EXPECT_EQ(page_of_log(log), expected);
}

} // namespace
} // namespace korvat::test
