// LOAD.09, read back: from hand-made bytes, from a run, damaged and cut.
#include "group/load_file.hpp"

#include "group_writer.hpp"
#include "sample_group.hpp"
#include "support/scratch_directory.hpp"

#include <algorithm>
#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using group::Damage;
using group::LoadReading;
using group::LoadVector;

LoadReading read(const std::string& file) {
    return group::read_load(file);
}

TEST(LoadFile, IsReadAsItWasWritten) {
    const LoadReading reading = read(written_load_file(sample_loads()));
    EXPECT_EQ(reading.damage, std::nullopt);
    EXPECT_TRUE(reading.vectors == sample_loads());
    EXPECT_TRUE(read("K\x82").vectors.empty());
}

// The sample of docs/files.md: 600 and 75 on pile 1, and a moment of -900.
TEST(LoadFile, OfTheDocument) {
    const std::vector<LoadVector> loads{
        {"Mooring force on the cap point", {{1, {600.0, 0.0, 75.0}, {0.0, -900.0, 0.0}}}}};
    const std::string file = written_load_file(loads);
    EXPECT_EQ(file.size(), 144U);
    EXPECT_EQ(file.substr(0x53, 16), std::string("\x04\x01\0\0\0\x04\x34\x01\0\0\0\0\0\0\0\0", 16));
    EXPECT_TRUE(read(file).vectors == loads);
}

TEST(LoadFile, OfTheBargeImpact) {
    const std::string file = read_whole_file(std::filesystem::path(KORVAT_EXAMPLES_DIR) /
                                             "barge-impact/expected/LOAD.09");
    const LoadReading reading = read(file);
    EXPECT_EQ(reading.damage, std::nullopt);
    EXPECT_EQ(reading.vectors.size(), 5U);
    EXPECT_EQ(written_load_file(reading.vectors), file);
}

TEST(LoadFile, CutAnywhereGivesTheLoadsBefore) {
    const std::vector<LoadVector> loads = sample_loads();
    const std::string file = written_load_file(loads);
    // Labels at 1 and 197, counts at 83 and 279, loads of 54 bytes at 89, 143 and 285.
    for (std::size_t length = 0; length < file.size(); ++length) {
        const LoadReading reading = read(file.substr(0, length));
        ASSERT_TRUE(reading.damage) << length;
        std::vector<LoadVector> expected;
        if (length >= 83) expected.push_back({loads[0].label, {}});
        if (length >= 143) expected[0].loads.push_back(loads[0].loads[0]);
        if (length >= 197) expected[0].loads.push_back(loads[0].loads[1]);
        if (length >= 279) expected.push_back({loads[1].label, {}});
        if (length >= 339) expected[1].loads.push_back(loads[1].loads[0]);
        EXPECT_TRUE(reading.vectors == expected) << length;
    }
}

// Of the cases; those of runs that failed end behind the loads that were read.
TEST(LoadFile, OfEveryCaseIsReadUpToAnyCut) {
    std::size_t sound = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KORVAT_CASES_DIR)) {
        const auto path = entry.path() / "expected/LOAD.09";
        if (!std::filesystem::exists(path)) continue;
        SCOPED_TRACE(path.string());
        const std::string file = read_whole_file(path);
        const LoadReading whole = read(file);
        if (!whole.damage) {
            ++sound;
            EXPECT_EQ(written_load_file(whole.vectors), file);
        }
        for (std::size_t length = 0; length < file.size(); length += length < 600 ? 1 : 7) {
            const LoadReading part = read(file.substr(0, length));
            ASSERT_TRUE(part.damage) << length;
            ASSERT_LE(part.vectors.size(), whole.vectors.size());
            for (std::size_t v = 0; v < part.vectors.size(); ++v) {
                const auto& loads = part.vectors[v].loads;
                const auto& all = whole.vectors[v].loads;
                EXPECT_EQ(part.vectors[v].label, whole.vectors[v].label);
                ASSERT_LE(loads.size(), all.size());
                EXPECT_TRUE(std::equal(loads.begin(), loads.end(), all.begin()));
                if (v + 1 < part.vectors.size()) {
                    EXPECT_EQ(loads.size(), all.size());
                }
            }
        }
    }
    EXPECT_GE(sound, 10U);
}

TEST(LoadFile, EachDamageHasItsPlaceAndReason) {
    const auto damage = [](const std::string& records) {
        return read('K' + records + '\x82').damage.value();
    };
    const std::string label = RecordBytes().label("x").framed();
    const auto count = [](int loads) { return RecordBytes().integer(loads).framed(); };
    EXPECT_EQ(damage(count(1)), (Damage{1, "the label of load vector 1 has 4 bytes, not 80"}));
    EXPECT_EQ(damage(label), (Damage{83, "the count of load vector 1 is missing"}));
    EXPECT_EQ(damage(label + label),
              (Damage{83, "the count of load vector 1 has 80 bytes, not 4"}));
    EXPECT_EQ(damage(label + count(-1)), (Damage{83, "load vector 1 has -1 loads"}));
    EXPECT_EQ(damage(label + count(2147483647)),
              (Damage{89, "load 1 of load vector 1 is missing"}));
    EXPECT_EQ(damage(label + count(1) + label),
              (Damage{89, "load 1 of load vector 1 has 80 bytes, not 52"}));
    EXPECT_EQ(damage(label + count(0) + count(0)),
              (Damage{89, "the label of load vector 2 has 4 bytes, not 80"}));
    EXPECT_EQ(read("K" + label + "\x05").damage, (Damage{83, "the file ends inside a segment"}));
}

} // namespace
} // namespace korvat::test
