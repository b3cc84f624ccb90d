// Tests of the judgement on the report of a failed run.
#include "report_check.hpp"

#include "../support/text.hpp"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {
namespace {

constexpr std::string_view forms_text = "message\n"
                                        "| **** SR/ONE : A PILE\n"
                                        "| OF{i5}\n"
                                        "message\n"
                                        "| **** SR/TWO\n";

constexpr std::string_view log_text = "\n **** SR/ONE : A PILE\n OF    3\n Second line\n"
                                      "\n **** SR/TWO\n";

const std::string deck = "One\n\t2 3,44  \r\nlast";

std::string fault(const std::string& report) {
    const std::vector<std::string> log = split_lines(log_text);
    return fault_of_report(report, log, deck, MessageForms(forms_text));
}

std::string report(const std::string& line, const std::string& shown) {
    return "korvat: KORVAT.INP:" + line + " SR/ONE : A PILE OF    3\n" + shown + "see KORVAT.MLG\n";
}

TEST(ReportCheck, TakesTheFirstMessageAndItsLine) {
    EXPECT_EQ(fault(report("", "")), "");
    EXPECT_EQ(fault(report("1:", "One\n")), "");
    EXPECT_EQ(fault(report("2:", "\t2 3,44\n")), "");
    EXPECT_EQ(fault(report("3:", "last\n")), "");
    EXPECT_EQ(fault(with_change(report("1:", "One\n"), "OF    3", "OF    3 Second line")), "");
    EXPECT_NE(fault(with_change(report("1:", "One\n"), "OF    3", "OF   3")), "");
    EXPECT_NE(fault("korvat: KORVAT.INP: SR/TWO\nsee KORVAT.MLG\n"), "");
}

TEST(ReportCheck, RefusesOtherLines) {
    EXPECT_NE(fault(report("1:", "Two\n")), "");
    EXPECT_NE(fault(report("4:", "\n")), "");
    EXPECT_NE(fault(report("1:", "")), "");
    EXPECT_NE(fault(report("", "One\n")), "");
    EXPECT_NE(fault("korvat: KORVAT.INP: SR/ONE : A PILE OF    3\n"), "");
    EXPECT_NE(fault(""), "");
}

TEST(ReportCheck, WantsTheCaretUnderTheBeginningOfAValue) {
    const std::string line = "\t2 3,44\n";
    EXPECT_EQ(fault(report("2:", line + "\t^\n")), "");
    EXPECT_EQ(fault(report("2:", line + "\t  ^\n")), "");
    EXPECT_EQ(fault(report("2:", line + "\t    ^\n")), "");
    EXPECT_NE(fault(report("2:", line + " ^\n")), "");
    EXPECT_NE(fault(report("2:", line + "\t ^\n")), "");
    EXPECT_NE(fault(report("2:", line + "\t     ^\n")), "");
    EXPECT_NE(fault(report("2:", line + "\t      ^\n")), "");
    EXPECT_NE(fault(report("2:", line + "\t^ \n")), "");
    EXPECT_NE(fault(report("2:", line + "\t^\n\t^\n")), "");
}

TEST(ReportCheck, WantsTheCaretOfAVersionLineAtTheDate) {
    const std::vector<std::string> log = {" **** Error message from SR/GetRevision: none"};
    const MessageForms forms("message\n| **** Error message from SR/GetRevision: none\n");
    const auto fault_at = [&](std::size_t column) {
        const std::string text = "korvat: KORVAT.INP:1: Error message from SR/GetRevision: none\n"
                                 "KORVAT Version:\n" +
                                 std::string(column - 1, ' ') + "^\nsee KORVAT.MLG\n";
        return fault_of_report(text, log, "KORVAT Version:\n", forms);
    };
    EXPECT_EQ(fault_at(17), "");
    EXPECT_NE(fault_at(16), "");
}

} // namespace
} // namespace korvat::test
