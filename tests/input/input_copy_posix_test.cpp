// Tests of the comment-free copy of the input where it cannot be written (POSIX).
#include "support/file_size_limit.hpp"
#include "support/model_fixture.hpp"

#include "input/input_copy.hpp"

namespace korvat::test {
namespace {

class InputCopyOnPosix : public ModelTest {};

// Every copied line has 121 bytes; two fit. Read back, the cut copy would pass for a short deck.
TEST_F(InputCopyOnPosix, ACopyThatIsCutShortIsNotReadBack) {
    give_input("label\n 1\n 2\nEND\n");
    const FileSizeLimit limit(2 * 121);
    EXPECT_THROW((void)copy_without_comments(cmn(), 11, 12), std::runtime_error);
    EXPECT_FALSE(cmn().runtime.wrote_all(12));
}

TEST_F(InputCopyOnPosix, ACopyThatJustFitsIsWhole) {
    give_input("label\n 1\nEND\n");
    const FileSizeLimit limit(2 * 121);
    EXPECT_EQ(copy_without_comments(cmn(), 11, 12), fortran::ReadStatus::line);
    EXPECT_TRUE(cmn().runtime.wrote_all(12));
}

} // namespace
} // namespace korvat::test
