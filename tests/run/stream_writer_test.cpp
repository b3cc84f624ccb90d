// Tests of raw byte output to a file.
#include "support/scratch_directory.hpp"

#include "run/stream_writer.hpp"

#include <gtest/gtest.h>
#include <stdexcept>

namespace korvat::test {
namespace {

using namespace std::string_literals;
using VESKA::TolvanCommonLibrary::IO::StreamWriter;

TEST(StreamWriter, WritesBytesAsTheyAre) {
    const ScratchDirectory directory;
    std::string bytes;
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    {
        StreamWriter writer((directory.path() / "out").string());
        writer.Write(bytes);
        writer.Write(std::span<const char>());
        writer.Write("\r\n\n"s);
    }
    EXPECT_EQ(directory.read_file("out"), bytes + "\r\n\n");
}

TEST(StreamWriter, EmptiesAnExistingFile) {
    const ScratchDirectory directory;
    directory.write_file("out", "old content");
    { const StreamWriter writer((directory.path() / "out").string()); }
    EXPECT_EQ(directory.read_file("out"), "");
}

TEST(StreamWriter, ThrowsWhereTheFileCannotBeOpened) {
    const ScratchDirectory directory;
    EXPECT_THROW(StreamWriter((directory.path() / "none" / "out").string()), std::runtime_error);
    EXPECT_THROW(StreamWriter(directory.path().string()), std::runtime_error);
    EXPECT_THROW(StreamWriter(""), std::runtime_error);
    EXPECT_TRUE(directory.list().empty());
}

TEST(StreamWriter, CloseTellsThatAllWasWritten) {
    const ScratchDirectory directory;
    StreamWriter writer((directory.path() / "out").string());
    writer.Write("bytes"s);
    EXPECT_EQ(writer.Close(), 0);
    EXPECT_EQ(directory.read_file("out"), "bytes");
    EXPECT_EQ(writer.Close(), 0);
}

} // namespace
} // namespace korvat::test
