// The files of a run, read from the disk, and known by their content.
#include "group/read_files.hpp"

#include "group_writer.hpp"
#include "sample_group.hpp"
#include "support/scratch_directory.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>
#include <system_error>

namespace korvat::test {
namespace {

using group::FileKind;

std::error_code refusal(const auto& read) {
    try {
        (void)read();
    } catch (const std::system_error& error) {
        return error.code();
    }
    return {};
}

TEST(FileKind, IsToldByTheFirstTwoRecords) {
    const auto kind = [](const std::string& file) { return group::file_kind(file); };
    const std::string pile4 = written_pile_file(sample_group(4));
    const std::string pile5 = written_pile_file(sample_group(5));
    const std::string load = written_load_file(sample_loads());
    EXPECT_EQ(kind(pile4), FileKind::pile_revision_4);
    EXPECT_EQ(kind(pile5), FileKind::pile_revision_5);
    EXPECT_EQ(kind(load), FileKind::load);
    // The label ends with byte 82; the length of the next record tells.
    EXPECT_EQ(kind(pile4.substr(0, 84)), FileKind::pile_revision_4);
    EXPECT_EQ(kind(load.substr(0, 84)), FileKind::load);
    EXPECT_EQ(kind(load.substr(0, 83)), std::nullopt);
    EXPECT_EQ(kind(pile5.substr(0, 2)), FileKind::pile_revision_5);
    EXPECT_EQ(kind(pile5.substr(0, 1)), std::nullopt);
    for (const char* const other : {"", "K\x82", "K\x04", "\x89PNG\r\n", "P\x50"})
        EXPECT_EQ(kind(other), std::nullopt) << other;
}

// Cut behind each byte but the first, they are files of a run still; a text is none, though it may begin
// with the same two letters.
TEST(FileKind, IsNotThatOfATextWhereAFileIsCut) {
    for (const std::string& file :
         {written_pile_file(sample_group(4)), written_pile_file(sample_group(5)),
          written_load_file(sample_loads()), std::string("K\x82")}) {
        for (std::size_t length = 2; length <= std::min<std::size_t>(file.size(), 300); ++length)
            EXPECT_TRUE(group::begins_as_record_file(file.substr(0, length))) << length;
    }
    for (const std::string& text :
         {std::string(), std::string("K"), std::string("KP\n"), std::string("A deck\n"),
          "KP" + std::string(80, 'x') + "\n", "KP" + std::string(79, 'x') + "\n",
          "KP" + std::string(81, 'x') + "\n", "PP" + std::string(80, 'x') + "P"})
        EXPECT_FALSE(group::begins_as_record_file(text)) << text;
}

TEST(ReadGroup, TakesTheLoadVectorsWhereThereAreAny) {
    const ScratchDirectory directory;
    group::Group expected = sample_group(5);
    directory.write_file("PILE.07", written_pile_file(expected));
    group::ResultReading reading = group::read_group(directory.path());
    EXPECT_TRUE(reading.group == expected);
    EXPECT_FALSE(reading.has_load_file);

    directory.write_file("LOAD.09", written_load_file(sample_loads()));
    expected.load_vectors = sample_loads();
    reading = group::read_group(directory.path());
    EXPECT_TRUE(reading.group == expected);
    EXPECT_TRUE(reading.has_load_file);
    EXPECT_EQ(reading.pile_damage, std::nullopt);
    EXPECT_EQ(reading.load_damage, std::nullopt);
}

TEST(ReadGroup, TellsDamageOfEachFile) {
    const ScratchDirectory directory;
    directory.write_file("PILE.07", "");
    directory.write_file("LOAD.09", "K");
    const group::ResultReading reading = group::read_group(directory.path());
    EXPECT_EQ(reading.pile_damage, (group::Damage{0, "the file is empty"}));
    EXPECT_EQ(reading.load_damage, (group::Damage{1, "the file ends without its end byte"}));
}

TEST(ReadGroup, WhatCannotBeReadIsNoDamage) {
    const ScratchDirectory directory;
    const auto absent = directory.path() / "absent";
    EXPECT_EQ(refusal([&] { return group::read_pile_file(absent); }),
              std::errc::no_such_file_or_directory);
    EXPECT_EQ(refusal([&] { return group::read_group(directory.path()); }),
              std::errc::no_such_file_or_directory);
    EXPECT_EQ(refusal([&] { return group::read_load_file(directory.path()); }),
              std::errc::is_a_directory);
    directory.write_file("PILE.07", written_pile_file(sample_group(4)));
    std::filesystem::create_directory(directory.path() / "LOAD.09");
    EXPECT_EQ(refusal([&] { return group::read_group(directory.path()); }),
              std::errc::is_a_directory);
}

TEST(ReadBytes, EndsWhereNoGroupIsSoLarge) {
    std::istringstream longest(std::string(group::largest_file, 'K'));
    EXPECT_EQ(group::read_bytes(longest).size(), group::largest_file);
    std::istringstream longer(std::string(group::largest_file + 1, 'K'));
    EXPECT_EQ(refusal([&] { return group::read_bytes(longer); }), std::errc::file_too_large);
}

} // namespace
} // namespace korvat::test
