// Tests of the comment-free copy of the input.
#include "support/model_fixture.hpp"

#include "input/input_copy.hpp"

namespace korvat::test {
namespace {

using fortran::ReadStatus;

class InputCopy : public ModelTest {
protected:
    // The lines of the copy of `text`, without their trailing blanks.
    std::vector<std::string> copy_of(const std::string& text) {
        give_input(text);
        status = copy_without_comments(cmn(), 11, 12);
        return copied_lines();
    }

    std::vector<std::string> copied_lines() {
        std::vector<std::string> lines;
        cmn().runtime.rewind(12);
        for (std::string line = next_line(12); line != "(end)"; line = next_line(12))
            lines.push_back(line);
        return lines;
    }

    using Lines = std::vector<std::string>;

    ReadStatus status = ReadStatus::error;
};

TEST_F(InputCopy, DropsCommentLines) {
    EXPECT_EQ(copy_of("label\n* star\nC upper\nc lower\n\n 1 2\n C indented\nX*\nEND\n"),
              (Lines{"label", "", " 1 2", " C indented", "X*"}));
    EXPECT_EQ(status, ReadStatus::line);
}

TEST_F(InputCopy, KeepsTheFirstLineWhateverItIs) {
    EXPECT_EQ(copy_of("* label\n* label\nEND\n"), (Lines{"* label"}));
    EXPECT_EQ(copy_of("C label\nC label\nEND\n"), (Lines{"C label"}));
    EXPECT_EQ(copy_of("c label\nc label\nEND\n"), (Lines{"c label"}));
}

TEST_F(InputCopy, EndsAtALineThatBeginsWithEnd) {
    EXPECT_EQ(copy_of("label\nENDING of the deck\nbehind\n"), (Lines{"label"}));
    EXPECT_EQ(status, ReadStatus::line);
}

TEST_F(InputCopy, EndInLowerCaseOrIndentedDoesNotEndIt) {
    EXPECT_EQ(copy_of("label\nend\nEnd\n END\nEN\nEND"),
              (Lines{"label", "end", "End", " END", "EN"}));
    EXPECT_EQ(status, ReadStatus::line);
}

TEST_F(InputCopy, FirstLineMayBeTheEnd) {
    EXPECT_EQ(copy_of("END\nbehind\n"), Lines{});
    EXPECT_EQ(status, ReadStatus::line);
}

TEST_F(InputCopy, WithoutEndTheEndOfTheFileIsTold) {
    EXPECT_EQ(copy_of("label\n1\n"), (Lines{"label", "1"}));
    EXPECT_EQ(status, ReadStatus::end);
}

TEST_F(InputCopy, EmptyInput) {
    EXPECT_EQ(copy_of(""), Lines{});
    EXPECT_EQ(status, ReadStatus::end);
}

TEST_F(InputCopy, KeepsOneHundredAndTwentyColumns) {
    EXPECT_EQ(copy_of(padded("a", 119) + "bc\n" + padded("1", 119) + "23\nEND\n"),
              (Lines{padded("a", 119) + "b", padded("1", 119) + "2"}));
}

TEST_F(InputCopy, StartsAtTheFirstLineOfTheInput) {
    give_input("label\n1\nEND\n");
    next_line(11);
    EXPECT_EQ(copy_without_comments(cmn(), 11, 12), ReadStatus::line);
    EXPECT_EQ(copied_lines(), (Lines{"label", "1"}));
}

TEST_F(InputCopy, ReplacesAnEarlierCopy) {
    EXPECT_EQ(copy_of("label\n1\n2\n3\nEND\n").size(), 4U);
    EXPECT_EQ(copy_of("other\nEND\n"), (Lines{"other"}));
}

TEST_F(InputCopy, StaleScratchFileIsNotReadAsTheCopy) {
    directory.write_file("fem_io_unit_012", "stale\nstale\nstale\n");
    EXPECT_EQ(copy_of("END\n"), Lines{});
}

TEST_F(InputCopy, ReadErrorIsToldOnPosix) {
    give_directory(11, "folder");
    EXPECT_EQ(copy_without_comments(cmn(), 11, 12), ReadStatus::error);
    EXPECT_EQ(copied_lines(), Lines{});
}

TEST_F(InputCopy, KeepsTheDecksOwnLineNumbers) {
    copy_of("* label\n* star\n 1\nC upper\nc lower\n\n 2\nEND\n 3\n");
    EXPECT_EQ(cmn().report.deck_lines, (std::vector{1, 3, 6, 7}));
    EXPECT_EQ(cmn().report.deck_end, 8);
}

TEST_F(InputCopy, WithoutEndTheLastLineEndedTheCopy) {
    copy_of("label\n 1\n* star\n");
    EXPECT_EQ(cmn().report.deck_lines, (std::vector{1, 2}));
    EXPECT_EQ(cmn().report.deck_end, 3);
}

TEST_F(InputCopy, ALastLineMayLackItsLineEnd) {
    copy_of("label\n 1");
    EXPECT_EQ(cmn().report.deck_lines, (std::vector{1, 2}));
    EXPECT_EQ(cmn().report.deck_end, 2);
}

TEST_F(InputCopy, AnEmptyDeckHasNoLine) {
    copy_of("");
    EXPECT_EQ(cmn().report.deck_lines, std::vector<int>{});
    EXPECT_EQ(cmn().report.deck_end, 0);
}

TEST_F(InputCopy, AnUnreadableDeckHasNoLineOnPosix) {
    give_directory(11, "KORVAT.INP");
    EXPECT_EQ(copy_without_comments(cmn(), 11, 12), ReadStatus::error);
    EXPECT_EQ(cmn().report.deck_end, 0);
}

} // namespace
} // namespace korvat::test
