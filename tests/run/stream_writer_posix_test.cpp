// Tests of raw byte output to a device that is always full (POSIX).
#include "run/stream_writer.hpp"

#include <cerrno>
#include <gtest/gtest.h>
#include <string>

namespace korvat::test {
namespace {

using namespace std::string_literals;
using VESKA::TolvanCommonLibrary::IO::StreamWriter;

// A few bytes wait in the stream's buffer until it is closed.
TEST(StreamWriterOnPosix, CloseTellsOfBytesThatCouldNotBeWrittenAtLast) {
    StreamWriter writer("/dev/full");
    writer.Write("bytes"s);
    EXPECT_EQ(writer.Close(), ENOSPC);
    EXPECT_EQ(writer.Close(), ENOSPC);
}

TEST(StreamWriterOnPosix, CloseTellsOfAnEarlierWriteThatFailed) {
    StreamWriter writer("/dev/full");
    writer.Write(std::string(100000, 'x'));
    writer.Write("bytes"s);
    EXPECT_EQ(writer.Close(), ENOSPC);
}

} // namespace
} // namespace korvat::test
