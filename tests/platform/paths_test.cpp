// Names of files with letters of every kind.
#include "platform/paths.hpp"

#include "support/scratch_directory.hpp"

#include <fstream>
#include <gtest/gtest.h>

namespace korvat::test {
namespace {

const std::string awkward =
    "S\u00fcd mole \u96ea"; // a letter of two bytes in UTF-8, and one of three

TEST(Paths, ANameIsUtf8) {
    EXPECT_EQ(platform::path_of(awkward).filename(),
              std::filesystem::path(std::u16string(u"S\u00fcd mole \u96ea")));
    EXPECT_EQ(platform::name_of(platform::path_of(awkward)), awkward);
    const ScratchDirectory directory;
    std::ofstream(directory.path() / platform::path_of(awkward)) << "text";
    EXPECT_EQ(read_whole_file(directory.path() / u"S\u00fcd mole \u96ea"), "text");
}

TEST(Paths, PartsAreShownWithSlashesBetweenThem) {
    EXPECT_EQ(platform::name_of(platform::path_of("case") / "KORVAT.INP"), "case/KORVAT.INP");
    EXPECT_EQ(platform::name_of({}), "");
}

// Bytes that are no text are a name too.
TEST(Paths, AnyBytesAreANameOnPosix) {
    EXPECT_EQ(platform::name_of(platform::path_of("\xff/\xc3")), "\xff/\xc3");
}

} // namespace
} // namespace korvat::test
