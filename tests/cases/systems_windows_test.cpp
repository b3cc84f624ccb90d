// Runs of the same deck on both systems write the same PILE.07, but for the last bits of yield moments.
#include "../support/case.hpp"
#include "../support/record_file.hpp"
#include "../support/scratch_directory.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

// A folder for each deck, with its KORVAT.INP and what a run on the build machine made of it.
std::filesystem::path other_system() {
    const char* const folder = std::getenv("KORVAT_OTHER_SYSTEM");
    return folder == nullptr ? "" : folder;
}

std::vector<std::filesystem::path> runs_of_other_system() {
    std::vector<std::filesystem::path> runs;
    if (!std::filesystem::is_directory(other_system())) return runs;
    for (const auto& entry : std::filesystem::directory_iterator(other_system())) {
        runs.push_back(entry.path());
    }
    std::sort(runs.begin(), runs.end());
    return runs;
}

std::vector<Record> records_of(const std::string& bytes) {
    return parse_record_bytes(bytes);
}

// Revision 5 has one record of four tables, axial force and moment at first yield and at full
// plasticity, of 10 points for each of 200 sections. Generated moments take functions of the system's
// own mathematics library, which may differ in the last bit.
constexpr std::size_t table_values = 200 * 10;
constexpr std::size_t curves_size = 4 * table_values * sizeof(double);
constexpr std::int64_t allowed_steps = 4;

bool is_moment(std::size_t value) {
    return (value / table_values) % 2 == 1;
}

std::int64_t bits_of(const Record& record, std::size_t value) {
    std::int64_t bits = 0;
    std::memcpy(&bits, record.data() + value * sizeof bits, sizeof bits);
    return bits;
}

// How many doubles apart two of the same sign are.
std::int64_t steps_between(std::int64_t left, std::int64_t right) {
    if ((left < 0) != (right < 0)) return std::numeric_limits<std::int64_t>::max();
    return std::abs(left - right);
}

// The number of moments that differ.
int expect_same_curves(const Record& found, const Record& other) {
    int different = 0;
    for (std::size_t i = 0; i < 4 * table_values; ++i) {
        const std::int64_t steps = steps_between(bits_of(found, i), bits_of(other, i));
        if (steps == 0) continue;
        ++different;
        EXPECT_TRUE(is_moment(i)) << "yield value " << i << " is no moment";
        EXPECT_LE(steps, allowed_steps) << "yield value " << i;
    }
    return different;
}

// The number of moments that differ.
int expect_same_pile_file(const std::string& found, const std::string& other) {
    if (found == other) return 0;
    const std::vector<Record> records = records_of(found);
    const std::vector<Record> others = records_of(other);
    EXPECT_EQ(records.size(), others.size());
    if (records.size() != others.size()) return 0;
    int different = 0;
    for (std::size_t i = 0; i < records.size(); ++i) {
        const bool curves = records[i].size() == curves_size && others[i].size() == curves_size;
        if (curves) {
            different += expect_same_curves(records[i], others[i]);
        } else {
            EXPECT_EQ(records[i], others[i]) << "record " << i + 1;
        }
    }
    return different;
}

TEST(BothSystems, WriteTheSameFiles) {
    ASSERT_FALSE(other_system().empty()) << "no runs of the other system are given";
    const auto runs = runs_of_other_system();
    ASSERT_FALSE(runs.empty());
    for (const std::filesystem::path& run : runs) {
        SCOPED_TRACE(run.filename().string());
        const std::string deck = read_whole_file(run / "KORVAT.INP");
        const CaseResult here = run_deck(KORVAT_PROGRAM, &deck);
        const int moments =
            expect_same_pile_file(here.files.at("PILE.07"), read_whole_file(run / "PILE.07"));
        const std::string verdict =
            moments == 0 ? "every byte the same"
                         : std::to_string(moments) + " yield moments differ in the last bits";
        std::printf("  %-28s %s\n", run.filename().string().c_str(), verdict.c_str());
        for (const char* const name : {"PILEPLOT.TXT", "LOAD.09"}) {
            ASSERT_EQ(here.files.count(name), std::filesystem::exists(run / name) ? 1U : 0U);
            if (here.files.count(name) == 0) continue;
            EXPECT_TRUE(here.files.at(name) == read_whole_file(run / name)) << name;
        }
    }
}

} // namespace
} // namespace korvat::test
