// Units of the runtime: open, close, rewind, scratch files, and when what was written is on disk.
#include "runtime_fixture.hpp"

#include <filesystem>

namespace korvat::test {
namespace {

using fortran::characters;
using fortran::OpenStatus;
using fortran::Runtime;

using Names = std::vector<std::string>;

class Units : public RuntimeTest {};

TEST_F(Units, OpenReturnsZeroOnSuccess) {
    directory.write_file("old", "line\n");
    EXPECT_EQ(runtime().open(11, "old", OpenStatus::old_file), 0);
    EXPECT_EQ(runtime().open(13, "new", OpenStatus::new_file), 0);
    EXPECT_EQ(directory.read_file("old"), "line\n");
    EXPECT_EQ(directory.read_file("new"), "");
}

TEST_F(Units, AnOldFileMustExist) {
    EXPECT_EQ(runtime().open(11, "missing", OpenStatus::old_file), 1);
    EXPECT_EQ(directory.list(), Names());
}

TEST_F(Units, ANewFileMustNotExist) {
    directory.write_file("there", "content\n");
    EXPECT_EQ(runtime().open(13, "there", OpenStatus::new_file), 1);
    EXPECT_EQ(directory.read_file("there"), "content\n");
}

TEST_F(Units, ANewFileNeedsItsDirectory) {
    EXPECT_EQ(runtime().open(13, "nowhere/file", OpenStatus::new_file), 1);
    EXPECT_EQ(directory.list(), Names());
}

TEST_F(Units, AFailedUnitIsUnconnected) {
    ASSERT_EQ(runtime().open(14, "missing", OpenStatus::old_file), 1);
    runtime().write(14, "(' text')");
    runtime().close(14);
    EXPECT_EQ(directory.list(), Names{"fem_io_unit_014"});
    EXPECT_EQ(directory.read_file("fem_io_unit_014"), " text\n");
}

TEST_F(Units, AFailedUnitCanBeReadRewoundAndClosed) {
    ASSERT_EQ(runtime().open(11, "missing", OpenStatus::old_file), 1);
    EXPECT_EQ(runtime().close(11), 0);
    EXPECT_EQ(next(11), "(end)");
    ASSERT_EQ(runtime().open(11, "missing", OpenStatus::old_file), 1);
    runtime().rewind(11);
    EXPECT_EQ(next(11), "(end)");
}

TEST_F(Units, AFailedUnitCanBeOpenedAgain) {
    ASSERT_EQ(runtime().open(11, "later", OpenStatus::old_file), 1);
    directory.write_file("later", "line\n");
    EXPECT_EQ(runtime().open(11, "later", OpenStatus::old_file), 0);
    EXPECT_EQ(next(11), "line    ");
}

TEST_F(Units, AFailedLogGoesBackToStandardOutput) {
    directory.write_file("log", "earlier\n");
    ASSERT_EQ(runtime().open(6, "log", OpenStatus::new_file), 1);
    testing::internal::CaptureStdout();
    runtime().write(6, "(/,' IERR=',i5)", 1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\n IERR=    1\n");
    EXPECT_EQ(directory.read_file("log"), "earlier\n");
    EXPECT_EQ(directory.list(), Names{"log"});
}

TEST_F(Units, TheLogStartsOnStandardOutput) {
    testing::internal::CaptureStdout();
    runtime().write(6, "(' text')");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), " text\n");
    EXPECT_EQ(directory.list(), Names());
}

TEST_F(Units, UnitZeroIsStandardError) {
    testing::internal::CaptureStderr();
    runtime().write(0, "(' text')");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), " text\n");
    EXPECT_EQ(directory.list(), Names());
}

constexpr std::string_view ratio = "(/,' RAT=',f8.2)";

// What the writes send to standard error while the unit is open, and when it is closed.
TEST_F(Units, ARepeatedRecordOfUnitZeroIsCounted) {
    testing::internal::CaptureStderr();
    for (int i = 0; i < 200; ++i)
        runtime().write(0, ratio, 142.0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "\n RAT=  142.00\n");
    testing::internal::CaptureStderr();
    runtime().close_all();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), " (the message above came 200 times)\n");
}

TEST_F(Units, TheCountStandsBeforeAnotherRecord) {
    testing::internal::CaptureStderr();
    runtime().write(0, ratio, 142.0);
    runtime().write(0, ratio, 142.0);
    runtime().write(0, ratio, 125.0);
    runtime().write(0, ratio, 142.0);
    runtime().write(0, "(' text')");
    runtime().write(0, "(' text')");
    runtime().write(0, "(' text')");
    runtime().close(0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "\n RAT=  142.00\n"
                                                      " (the message above came 2 times)\n"
                                                      "\n RAT=  125.00\n"
                                                      "\n RAT=  142.00\n"
                                                      " text\n"
                                                      " (the message above came 3 times)\n");
}

TEST_F(Units, TheCountStandsAtTheEndOfTheRuntimeToo) {
    testing::internal::CaptureStderr();
    runtime().write(0, "(' text')");
    runtime().write(0, "(' text')");
    end_runtime();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), " text\n (the message above came 2 times)\n");
}

// Other units take every record.
TEST_F(Units, RecordsOfOtherUnitsAreNotCounted) {
    give(20, "file", "");
    runtime().write(20, "(' text')");
    runtime().write(20, "(' text')");
    runtime().close(20);
    EXPECT_EQ(directory.read_file("file"), " text\n text\n");
}

TEST_F(Units, AnUnopenedUnitIsAScratchFile) {
    runtime().rewind(12);
    EXPECT_TRUE(directory.has("fem_io_unit_012"));
    runtime().write(12, "(a120)", characters("first"));
    runtime().write(7, "(' seven')");
    runtime().write(123, "(' many')");
    EXPECT_EQ(directory.list(), (Names{"fem_io_unit_007", "fem_io_unit_012", "fem_io_unit_123"}));
    runtime().close(12);
    EXPECT_EQ(directory.read_file("fem_io_unit_012"), padded("first", 120) + "\n");
}

TEST_F(Units, AStaleScratchFileIsNotRead) {
    directory.write_file("fem_io_unit_012", "of a stopped run\n");
    runtime().rewind(12);
    EXPECT_EQ(next(12), "(end)");
    EXPECT_EQ(directory.read_file("fem_io_unit_012"), "");
}

TEST_F(Units, AStaleScratchFileIsNotReadWithoutRewind) {
    directory.write_file("fem_io_unit_012", "of a stopped run\n");
    EXPECT_EQ(next(12), "(end)");
}

TEST_F(Units, AStaleScratchFileIsNotAppendedTo) {
    directory.write_file("fem_io_unit_012", "of a stopped run\nsecond line\n");
    runtime().write(12, "(' new')");
    runtime().rewind(12);
    EXPECT_EQ(next(12), " new    ");
    EXPECT_EQ(next(12), "(end)");
}

TEST_F(Units, CloseReturnsZeroAlsoTwice) {
    give(11, "input", "line\n");
    EXPECT_EQ(runtime().close(11), 0);
    EXPECT_EQ(runtime().close(11), 0);
    EXPECT_EQ(runtime().close(14), 0); // never opened
    EXPECT_EQ(directory.list(), Names{"input"});
}

TEST_F(Units, AClosedUnitCanTakeAnotherFile) {
    give(11, "first", "one\n");
    runtime().close(11);
    give(11, "second", "two\n");
    EXPECT_EQ(next(11), "two     ");
}

TEST_F(Units, WhatIsWrittenCanBeReadAfterRewind) {
    runtime().rewind(12);
    runtime().write(12, "(a6)", characters("one"));
    runtime().write(12, "(a6)", characters("two"));
    runtime().rewind(12);
    EXPECT_EQ(next(12), "one     ");
    EXPECT_EQ(next(12), "two     ");
    EXPECT_EQ(next(12), "(end)");
}

TEST_F(Units, RewindReadsFromTheStartAgain) {
    give(11, "input", "one\ntwo\n");
    EXPECT_EQ(next(11), "one     ");
    runtime().rewind(11);
    EXPECT_EQ(next(11), "one     ");
    EXPECT_EQ(next(11), "two     ");
    EXPECT_EQ(next(11), "(end)");
    runtime().rewind(11);
    EXPECT_EQ(next(11), "one     ");
}

TEST_F(Units, WritingAfterRewindStartsTheFileAnew) {
    runtime().write(12, "(' a long first line')");
    runtime().write(12, "(' second')");
    runtime().rewind(12);
    runtime().write(12, "(' short')");
    runtime().rewind(12);
    EXPECT_EQ(next(12), " short  ");
    EXPECT_EQ(next(12), "(end)");
}

TEST_F(Units, EachWriteIsOnDiskAtOnce) {
    ASSERT_EQ(runtime().open(6, "log", OpenStatus::new_file), 0);
    runtime().write(6, "(' one')");
    EXPECT_EQ(directory.read_file("log"), " one\n");
    runtime().write(6, "(' two')");
    EXPECT_EQ(directory.read_file("log"), " one\n two\n");
}

TEST_F(Units, TheLogIsClosedWithTheRuntime) {
    ASSERT_EQ(runtime().open(6, "log", OpenStatus::new_file), 0);
    for (int i = 1; i <= 1000; ++i)
        runtime().write(6, "(i5)", i);
    end_runtime();
    EXPECT_EQ(directory.read_file("log").size(), 6000U);
    std::filesystem::rename("log", "log.bak");

    Runtime second(0, nullptr);
    ASSERT_EQ(second.open(6, "log", OpenStatus::new_file), 0);
    second.write(6, "(' second run')");
    EXPECT_EQ(directory.read_file("log"), " second run\n");
    EXPECT_EQ(directory.read_file("log.bak").size(), 6000U);
}

TEST_F(Units, TheLogCanBeClosedAndOpenedOnAnotherFile) {
    ASSERT_EQ(runtime().open(6, "first", OpenStatus::new_file), 0);
    runtime().write(6, "(' one')");
    EXPECT_EQ(runtime().close(6), 0);
    EXPECT_EQ(directory.read_file("first"), " one\n");
}

TEST_F(Units, AScratchFileThatCannotBeWrittenRaises) {
    std::filesystem::create_directories("fem_io_unit_012/inside");
    EXPECT_THROW(runtime().write(12, "(' text')"), std::exception);
}

TEST(RuntimeArguments, AreIgnored) {
    const char* const arguments[] = {"korvat", "OTHER.INP", "-v", "--help"};
    Runtime runtime(4, arguments);
    testing::internal::CaptureStdout();
    runtime.write(6, "(' text')");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), " text\n");
}

} // namespace
} // namespace korvat::test
