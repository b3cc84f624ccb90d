// Records of the segmented layout, read back.
#include "group/records.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using group::Damage;
using group::Records;

Records read(const std::string& file) {
    return group::read_records(file);
}

std::string segment(unsigned opening, const std::string& data, unsigned closing) {
    return std::string(1, static_cast<char>(opening)) + data +
           std::string(1, static_cast<char>(closing));
}

const std::string full(128, 'x');

TEST(Records, AFileWithoutRecords) {
    const Records records = read("K\x82");
    EXPECT_TRUE(records.records.empty());
    EXPECT_EQ(records.damage, std::nullopt);
}

TEST(Records, ARecordOfEachLength) {
    const std::string file = "K" + segment(4, "abcd", 4) + segment(0x80, full, 0x81) +
                             segment(0, "", 0) + segment(0x81, full, 0x81) +
                             segment(32, std::string(32, 'y'), 32) + segment(0x81, full, 0x81) +
                             segment(0x81, full, 0x81) + segment(0, "", 0) + "\x82";
    const Records records = read(file);
    ASSERT_EQ(records.damage, std::nullopt);
    ASSERT_EQ(records.records.size(), 4U);
    EXPECT_EQ(records.records[0].bytes, std::vector<char>({'a', 'b', 'c', 'd'}));
    EXPECT_EQ(records.records[0].offset, 1U);
    EXPECT_EQ(records.records[1].bytes.size(), 128U);
    EXPECT_EQ(records.records[1].offset, 7U);
    EXPECT_EQ(records.records[2].bytes.size(), 160U);
    EXPECT_EQ(records.records[2].offset, 139U);
    EXPECT_EQ(records.records[3].bytes.size(), 256U);
}

TEST(Records, EachDamageHasItsPlaceAndReason) {
    const auto damage = [](const std::string& file) { return read(file).damage.value(); };
    EXPECT_EQ(damage(""), (Damage{0, "the file is empty"}));
    EXPECT_EQ(damage("P\x82"), (Damage{0, "the file does not begin with the letter K"}));
    EXPECT_EQ(damage("K"), (Damage{1, "the file ends without its end byte"}));
    EXPECT_EQ(damage("K\x02"), (Damage{1, "the file ends inside a segment"}));
    EXPECT_EQ(damage("K\x83"), (Damage{1, "no length of a segment"}));
    EXPECT_EQ(damage("K" + segment(2, "ab", 3)),
              (Damage{4, "the length behind a segment is not the one before it"}));
    EXPECT_EQ(damage("K" + segment(0, "", 0)), (Damage{1, "a record without data"}));
    EXPECT_EQ(damage("K" + segment(0x81, full, 0x81)),
              (Damage{131, "the file ends inside a record"}));
    EXPECT_EQ(damage("K" + segment(0x81, full, 0x81) + segment(0x80, full, 0x81)),
              (Damage{131, "no length of a segment"}));
    EXPECT_EQ(damage("K" + segment(0x81, full, 0x81) + segment(0, "", 0) + "\x82"),
              (Damage{1, "the first length does not agree with the record's"}));
    EXPECT_EQ(damage("K" + segment(2, "ab", 2) + "\x82z"),
              (Damage{6, "there is more behind the end byte"}));
}

// Whatever a file is cut at: the records before the cut, and damage.
TEST(Records, ACutFileGivesTheRecordsBefore) {
    const std::string file = "K" + segment(2, "ab", 2) + segment(0x80, full, 0x81) +
                             segment(0, "", 0) + segment(1, "c", 1) + "\x82";
    for (std::size_t length = 0; length < file.size(); ++length) {
        const Records records = read(file.substr(0, length));
        EXPECT_TRUE(records.damage) << length;
        const std::size_t whole =
            (length >= 5 ? 1U : 0U) + (length >= 137 ? 1U : 0U) + (length >= 140 ? 1U : 0U);
        EXPECT_EQ(records.records.size(), whole) << length;
    }
}

} // namespace
} // namespace korvat::test
