// Tests of the judgement on a run of the sweep.
#include "verdict.hpp"

#include "../support/model_fixture.hpp"
#include "../support/scratch_directory.hpp"
#include "../support/text.hpp"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

constexpr std::string_view forms_text = "message\n"
                                        "| **** SR/TWO : PILE{i5}{i5}\n"
                                        "message\n"
                                        "| **** SR/LONG : VALUE\n"
                                        "| ={f8} ,{e12}\n"
                                        "message\n"
                                        "| **** Stopped\n"
                                        "stop\n"
                                        "| **** Stopped\n"
                                        "console\n"
                                        "| **** SR/CHECK{a3}\n";

constexpr std::string_view report_of_two =
    "korvat: KORVAT.INP: SR/TWO : PILE    1    2\nsee KORVAT.MLG\n";

bool is_message(const std::string& text) {
    const std::vector<std::string> lines = split_lines(text);
    return MessageForms(forms_text).message_at(lines, 0) == lines.size();
}

TEST(MessageForms, TakeNumbersOfTheirWidthAndWider) {
    EXPECT_TRUE(is_message(" **** SR/TWO : PILE    1   -2\n"));
    EXPECT_TRUE(is_message(" **** SR/TWO : PILE    12147483647\n"));
    EXPECT_TRUE(is_message(" **** SR/TWO : PILE-2147483648-2147483648\n"));
    EXPECT_FALSE(is_message(" **** SR/TWO : PILE   1   2\n"));
    EXPECT_FALSE(is_message(" **** SR/TWO : PILE    1    x\n"));
    EXPECT_FALSE(is_message(" **** SR/TWO : PILE    1    2 3\n"));
    EXPECT_FALSE(is_message(" **** SR/TWO : PILES   1    2\n"));
}

TEST(MessageForms, MayEndInFrontOfAFieldButTheFirst) {
    EXPECT_TRUE(is_message(" **** SR/TWO : PILE    1\n"));
    EXPECT_FALSE(is_message(" **** SR/TWO : PILE\n"));
}

TEST(MessageForms, SpanLines) {
    EXPECT_TRUE(is_message(" **** SR/LONG : VALUE\n =  -1.500 ,  0.1000E+01\n"));
    EXPECT_TRUE(is_message(" **** SR/LONG : VALUE\n =******** ,************\n"));
    EXPECT_TRUE(is_message(" **** SR/LONG : VALUE\n =     inf ,************\n"));
    EXPECT_TRUE(is_message(" **** SR/LONG : VALUE\n =    -nan ,************\n"));
    EXPECT_FALSE(is_message(" **** SR/LONG : VALUE\n =    info ,************\n"));
    EXPECT_TRUE(is_message(" **** SR/LONG : VALUE\n =123456789.000 ,  0.1000+101\n"));
    EXPECT_FALSE(is_message(" **** SR/LONG : VALUE\n"));
    EXPECT_FALSE(is_message(" **** SR/LONG : VALUE\n = 1.500 ,  0.1000E+01\n"));
}

TEST(MessageForms, RefuseTextThatIsNone) {
    EXPECT_THROW(MessageForms("| **** A line without a kind\n"), std::runtime_error);
    EXPECT_THROW(MessageForms("massage\n"), std::runtime_error);
    EXPECT_THROW(MessageForms("message\n|{i5\n"), std::runtime_error);
}

class Verdict : public testing::Test {
protected:
    Verdict() : current_(directory.path()) {}

    // A run with the report that it should have.
    static std::string fault(int exit_code, const std::string& log, const std::string& console) {
        const std::string report = exit_code == 0 ? "" : std::string(report_of_two);
        return fault_of_run({exit_code, "", log, console, report}, MessageForms(forms_text));
    }

    static std::string exit_line(const std::string& text) {
        return " " + text + std::string(50 - text.size(), ' ') + "\n";
    }

    ScratchDirectory directory;
    const std::string normal = exit_line("NORMAL EXIT FROM KORVAT");
    const std::string error = exit_line("ERROR EXIT FROM KORVAT");
    const std::string two = "\n **** SR/TWO : PILE    1    2\n";

private:
    CurrentDirectory current_;
};

TEST_F(Verdict, WantsWholeRecordFilesOfAGoodRun) {
    directory.write_file("PILE.07", "K\x01z\x01\x82");
    EXPECT_EQ(fault(0, normal, ""), "");
    EXPECT_NE(fault(0, error, ""), "");
    EXPECT_NE(fault(0, two + normal, ""), "");
    EXPECT_NE(fault(0, "", ""), "");
    EXPECT_NE(fault(0, normal.substr(0, 51), ""), "");
    directory.write_file("LOAD.09", "K\x01z\x01");
    EXPECT_EQ(fault(0, normal, "").substr(0, 8), "LOAD.09:");
    directory.write_file("PILE.07", "K\x82");
    EXPECT_EQ(fault(0, normal, ""), "PILE.07 has no records");
}

TEST_F(Verdict, WantsTheWarningsOfAGoodRunReported) {
    directory.write_file("PILE.07", "K\x01z\x01\x82");
    const std::string log = "\n WARNING FROM SR/ONE :  N=    1\n" + normal;
    const auto fault_with = [&](const std::string& report) {
        return fault_of_run({0, "", log, "", report}, MessageForms(forms_text));
    };
    EXPECT_EQ(fault_with("korvat: KORVAT.INP:7: warning: SR/ONE :  N=    1\n"), "");
    EXPECT_EQ(
        fault_with("korvat: warning: other\nkorvat: KORVAT.INP:7: warning: SR/ONE :  N=    1\n"),
        "");
    EXPECT_NE(fault_with(""), "");
    EXPECT_NE(fault_with("korvat: KORVAT.INP:7: warning: SR/ONE :  N=    12\n"), "");
    EXPECT_NE(fault_with("korvat: KORVAT.INP:7: warning: SR/ONE :  N=    1\nother\n"), "");
    EXPECT_NE(fault_with("korvat: KORVAT.INP: warning: SR/ONE :  N=    1\n"), "");
}

TEST_F(Verdict, WantsAnErrorMessageAndTheExitLine) {
    EXPECT_EQ(fault(1, two + error, ""), "");
    EXPECT_EQ(fault(2, two + error, ""), "");
    EXPECT_NE(fault(1, error, ""), "");
    EXPECT_NE(fault(1, two, ""), "");
    EXPECT_NE(fault(1, two + normal, ""), "");
    EXPECT_EQ(fault(1, two + " **** SR/OTHER\n" + error, ""), "unknown message:  **** SR/OTHER");
    EXPECT_EQ(fault(3, two + error, ""), "exit code 3");
}

TEST_F(Verdict, WantsTheMessageOfAStop) {
    EXPECT_EQ(fault(-1, two + "\n **** Stopped\n", ""), "");
    EXPECT_NE(fault(-1, two, ""), "");
    EXPECT_NE(fault(-1, two + "\n **** Stopped\n" + error, ""), "");
}

TEST_F(Verdict, KnowsWhatTheConsoleMayShow) {
    EXPECT_EQ(fault(1, two + error, "\n **** SR/CHECK 12\n"), "");
    EXPECT_EQ(fault(1, two + error, "\n **** SR/CHECK 12\n (the message above came 200 times)\n"),
              "");
    EXPECT_NE(fault(1, two + error, "\n **** SR/CHECK 12\n (the message above came times)\n"), "");
    EXPECT_NE(fault(1, two + error, " (the message above came 200 times)\n"), "");
    EXPECT_NE(fault(1, two + error, "Segmentation fault\n"), "");
}

} // namespace
} // namespace korvat::test
