// Standard error of runs, in the forms of docs/messages.md.
#include "study/run_messages.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using study::run_messages;
using study::RunMessage;

TEST(RunMessages, AnErrorHasTheLineOfTheDeck) {
    EXPECT_EQ(
        run_messages("korvat: KORVAT.INP:26: SR/READPI : SEGMENT ERROR  NUM,IERR=    1    4\n"
                     "   1     1     9    10.0    2\n"
                     "               ^\n"
                     "see KORVAT.MLG\n"),
        (std::vector<RunMessage>{{false, "SR/READPI : SEGMENT ERROR  NUM,IERR=    1    4", 26}}));
}

// The line of the deck is shown as it is: it may look like a message.
TEST(RunMessages, ALineOfTheDeckIsNone) {
    EXPECT_EQ(run_messages("korvat: KORVAT.INP:1: SR/A : B\nkorvat: KORVAT.INP:2: C\n"
                           "korvat: cannot write PILE.07: No space left on device\n"),
              (std::vector<RunMessage>{
                  {false, "SR/A : B", 1},
                  {false, "cannot write PILE.07: No space left on device", std::nullopt}}));
}

TEST(RunMessages, WarningsStandOneALine) {
    EXPECT_EQ(run_messages("korvat: KORVAT.INP:12: warning: SR/READPI :  JECHO=    2\r\n"
                           "korvat: KORVAT.INP: warning: of no line\n"
                           "(the message above came 3 times)\n"
                           "korvat: warning: arguments are not used\n"),
              (std::vector<RunMessage>{{true, "SR/READPI :  JECHO=    2", 12},
                                       {true, "of no line", std::nullopt},
                                       {true, "arguments are not used", std::nullopt}}));
}

TEST(RunMessages, WhatIsNoNumberIsNoLine) {
    EXPECT_EQ(run_messages("korvat: KORVAT.INP:99999999999: x\nother\n").size(), 1U);
    EXPECT_EQ(run_messages("korvat: KORVAT.INP:12 x").front().line, std::nullopt);
    EXPECT_TRUE(run_messages("").empty());
    EXPECT_TRUE(run_messages("nothing of ours\n\n").empty());
}

TEST(RunMessages, TellMachineAndDeckApart) {
    const auto is_of_machine = [](const std::string& text) {
        return study::is_of_machine({false, text, std::nullopt});
    };
    EXPECT_TRUE(is_of_machine("cannot write PILE.07: No space left on device"));
    EXPECT_TRUE(is_of_machine("out of memory"));
    EXPECT_TRUE(is_of_machine("SR/CONTRL  FILE KORVAT.LIS OPEN PROBLEM"));
    EXPECT_FALSE(is_of_machine("SR/READPI : NUMPIL PROBLEM"));
}

TEST(RunMessages, NameTheOutputThatIsOld) {
    const auto old_output = [](bool is_warning, const std::string& text) {
        return study::old_output({is_warning, text, std::nullopt});
    };
    EXPECT_EQ(old_output(true, "cannot open PILE.07: Is a directory; what stands there is of an "
                               "earlier run"),
              "PILE.07");
    EXPECT_EQ(old_output(true, "LOAD.09 is of an earlier run: the deck has no load vectors"),
              "LOAD.09");
    EXPECT_EQ(old_output(true, "SR/READPI :  JECHO=    2"), "");
    EXPECT_EQ(old_output(false, "cannot open PILE.07: x"), "");
}

} // namespace
} // namespace korvat::test
