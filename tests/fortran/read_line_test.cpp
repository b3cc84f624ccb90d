// Lines read into fields of a fixed width, and what ends the reading.
#include "runtime_fixture.hpp"

#include <exception>
#include <filesystem>

namespace korvat::test {
namespace {

using fortran::OpenStatus;
using fortran::ReadStatus;
using fortran::Text;

constexpr int unit = 11;

class ReadLine : public RuntimeTest {
protected:
    void give(std::string_view text) { RuntimeTest::give(unit, "input", text); }
};

TEST_F(ReadLine, PadsAShorterLine) {
    give("ab\n\nc\n");
    EXPECT_EQ(next<4>(unit), "ab  ");
    EXPECT_EQ(next<4>(unit), "    ");
    EXPECT_EQ(next<4>(unit), "c   ");
    EXPECT_EQ(next<4>(unit), "(end)");
}

TEST_F(ReadLine, TakesALineOfExactlyItsWidth) {
    give("abcd\nefgh\n");
    EXPECT_EQ(next<4>(unit), "abcd");
    EXPECT_EQ(next<4>(unit), "efgh");
    EXPECT_EQ(next<4>(unit), "(end)");
}

TEST_F(ReadLine, SkipsWhatIsBeyondItsWidth) {
    give("abcdefgh\nij\n");
    EXPECT_EQ(next<4>(unit), "abcd");
    EXPECT_EQ(next<4>(unit), "ij  ");
}

TEST_F(ReadLine, TakesTheWidthFromTheFieldEachTime) {
    give("abcdef\nabcdef\nabcdef\n");
    EXPECT_EQ(next<2>(unit), "ab");
    EXPECT_EQ(next<10>(unit), "abcdef    ");
    EXPECT_EQ(next<1>(unit), "a");
}

TEST_F(ReadLine, TakesWideLines) {
    const std::string line(640, 'x');
    give(line + "\n" + line + "\n" + line + "\n");
    EXPECT_EQ(next<120>(unit), line.substr(0, 120));
    EXPECT_EQ(next<640>(unit), line);
    EXPECT_EQ(next<641>(unit), line + " ");
}

TEST_F(ReadLine, TakesCarriageReturnsAsLineEnds) {
    give("ab\r\nabcd\r\nabcdef\r\n\r\nabc\r\n");
    EXPECT_EQ(next<4>(unit), "ab  ");
    EXPECT_EQ(next<4>(unit), "abcd");
    EXPECT_EQ(next<4>(unit), "abcd");
    EXPECT_EQ(next<4>(unit), "    ");
    EXPECT_EQ(next<4>(unit), "abc ");
    EXPECT_EQ(next<4>(unit), "(end)");
}

TEST_F(ReadLine, KeepsACarriageReturnWithinALine) {
    give("a\rb\n");
    EXPECT_EQ(next<4>(unit), "a\rb ");
}

TEST_F(ReadLine, TakesALastLineWithoutLineEnd) {
    give("ab\ncd");
    EXPECT_EQ(next<4>(unit), "ab  ");
    EXPECT_EQ(next<4>(unit), "cd  ");
    EXPECT_EQ(next<4>(unit), "(end)");
}

TEST_F(ReadLine, TakesALastLineOfItsWidthWithoutLineEnd) {
    give("abcd");
    EXPECT_EQ(next<4>(unit), "abcd");
    EXPECT_EQ(next<4>(unit), "(end)");
}

TEST_F(ReadLine, TakesALongLastLineWithoutLineEnd) {
    give("abcdef");
    EXPECT_EQ(next<4>(unit), "abcd");
    EXPECT_EQ(next<4>(unit), "(end)");
}

TEST_F(ReadLine, TakesAnEmptyLastLine) {
    give("ab\n\n");
    EXPECT_EQ(next<4>(unit), "ab  ");
    EXPECT_EQ(next<4>(unit), "    ");
    EXPECT_EQ(next<4>(unit), "(end)");
}

TEST_F(ReadLine, FindsTheEndOfAnEmptyFile) {
    give("");
    EXPECT_EQ(next(unit), "(end)");
    EXPECT_EQ(next(unit), "(end)");
}

TEST_F(ReadLine, StaysAtTheEnd) {
    give("ab\n");
    EXPECT_EQ(next(unit), "ab      ");
    EXPECT_EQ(next(unit), "(end)");
    EXPECT_EQ(next(unit), "(end)");
}

TEST_F(ReadLine, KeepsTabsAndNuls) {
    using namespace std::string_view_literals;
    give("a\tb\0c\n"sv);
    EXPECT_EQ(next<8>(unit), std::string("a\tb\0c   "sv));
}

TEST_F(ReadLine, KeepsBytesBeyondAscii) {
    give("\xC3\xA5\xFF\x01\n");
    EXPECT_EQ(next<6>(unit), "\xC3\xA5\xFF\x01  ");
}

TEST_F(ReadLine, FailsOnADirectoryOnPosix) {
    std::filesystem::create_directory("folder");
    ASSERT_EQ(runtime().open(unit, "folder", OpenStatus::old_file), 0);
    EXPECT_EQ(next(unit), "(error)");
    EXPECT_EQ(next(unit), "(error)");
}

TEST_F(ReadLine, LeavesTheFieldAloneWithoutALine) {
    give("");
    Text<6> line("before");
    EXPECT_EQ(runtime().read_line(unit, line), ReadStatus::end);
    EXPECT_EQ(line.view(), "before");
}

TEST_F(ReadLine, LeavesTheFieldAloneInADirectoryOnPosix) {
    Text<6> line("before");
    std::filesystem::create_directory("folder");
    ASSERT_EQ(runtime().open(12, "folder", OpenStatus::old_file), 0);
    EXPECT_EQ(runtime().read_line(12, line), ReadStatus::error);
    EXPECT_EQ(line.view(), "before");
}

TEST_F(ReadLine, WorksAfterSkippedLines) {
    give("one\n\nthree is long\nfour");
    runtime().skip_line(unit);
    runtime().skip_line(unit);
    runtime().skip_line(unit);
    EXPECT_EQ(next(unit), "four    ");
}

// Longer than what is read ahead.
TEST_F(ReadLine, WorksAfterASkippedLineOfAnyLength) {
    give(std::string(200000, 'x') + "\nnext\n");
    runtime().skip_line(unit);
    EXPECT_EQ(next(unit), "next    ");
}

TEST_F(ReadLine, SkippingTheLastLineIsAllowed) {
    give("one\ntwo");
    runtime().skip_line(unit);
    runtime().skip_line(unit);
    EXPECT_EQ(next(unit), "(end)");
}

// The process must live on.
TEST_F(ReadLine, SkippingBehindTheEndRaises) {
    give("one\n");
    runtime().skip_line(unit);
    EXPECT_THROW(runtime().skip_line(unit), std::exception);
    EXPECT_EQ(next(unit), "(end)");
    runtime().rewind(unit);
    EXPECT_EQ(next(unit), "one     ");
}

TEST_F(ReadLine, SkippingInAnEmptyFileRaises) {
    give("");
    EXPECT_THROW(runtime().skip_line(unit), std::exception);
}

TEST_F(ReadLine, SkippingInADirectoryRaisesOnPosix) {
    std::filesystem::create_directory("folder");
    ASSERT_EQ(runtime().open(unit, "folder", OpenStatus::old_file), 0);
    EXPECT_THROW(runtime().skip_line(unit), std::exception);
}

} // namespace
} // namespace korvat::test
