// Tests of record files on disk.
#include "support/scratch_directory.hpp"

#include "run/open_record_file.hpp"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace korvat::test {
namespace {

using namespace std::string_literals;

TEST(OpenRecordFile, EmptiesWhatIsThere) {
    const ScratchDirectory directory;
    const std::string name = (directory.path() / "PILE.07").string();
    directory.write_file("PILE.07", std::string(1000, 'x'));
    {
        const RecordFile file = open_record_file(name);
        RecordBuilder(file).add(10).write(); // 10 is a line feed, written as it is
    }
    EXPECT_EQ(directory.read_file("PILE.07"), "K\4\x0A\0\0\0\4\x82"s);
}

TEST(OpenRecordFile, ThrowsWhereTheFileCannotBeOpened) {
    const ScratchDirectory directory;
    EXPECT_THROW(static_cast<void>(open_record_file((directory.path() / "no" / "file").string())),
                 std::runtime_error);
}

} // namespace
} // namespace korvat::test
