// Tests of record files on a device that is always full (POSIX).
#include "run/open_record_file.hpp"

#include <cerrno>
#include <gtest/gtest.h>

namespace korvat::test {
namespace {

TEST(OpenRecordFileOnPosix, CloseTellsOfItsStream) {
    RecordFile file = open_record_file("/dev/full");
    RecordBuilder(file).add(1).write();
    EXPECT_EQ(file.close(), ENOSPC);
    EXPECT_EQ(file.close(), 0); // it has no stream any more
}

} // namespace
} // namespace korvat::test
