// Tests of the reader of analysis files and of the comparison of a listing's check sums with them.
#include "listing_check.hpp"
#include "pile_file.hpp"
#include "text.hpp"

#include <bit>
#include <cstdint>
#include <gtest/gtest.h>
#include <stdexcept>

namespace korvat::test {
namespace {

class RecordBuilder {
public:
    RecordBuilder& integers(std::initializer_list<int> values) {
        for (const int value : values)
            append(static_cast<std::uint32_t>(value), 4);
        return *this;
    }

    RecordBuilder& reals(std::initializer_list<double> values) {
        for (const double value : values)
            append(std::bit_cast<std::uint64_t>(value), 8);
        return *this;
    }

    Record record() const { return bytes_; }

private:
    void append(std::uint64_t bits, unsigned count) {
        for (unsigned i = 0; i < count; ++i) {
            bytes_.push_back(static_cast<unsigned char>(bits & 0xFFU));
            bits >>= 8U;
        }
    }

    Record bytes_;
};

Record integer_record(std::initializer_list<int> values) {
    return RecordBuilder().integers(values).record();
}

Record real_record(std::initializer_list<double> values) {
    return RecordBuilder().reals(values).record();
}

void add_pile(std::vector<Record>& records, int number, int elements,
              const std::vector<Record>& coordinates) {
    records.push_back(integer_record({number, 2, elements, -1}));
    records.insert(records.end(), coordinates.begin(), coordinates.end());
    for (int i = 0; i < 18; ++i)
        records.push_back(elements == 0 ? real_record({0}) : real_record({0, 0}));
    if (elements == 0) return;
    records.push_back(real_record({0.5, 10.0}));
    records.push_back(RecordBuilder().integers({1}).reals({0.25}).record());
}

// One section; pile 1 of one element, pile 2 a dummy.
std::vector<Record> small_file() {
    std::vector<Record> records = {Record(80, 'x'), integer_record({2, 1}), Record(160, 0)};
    add_pile(records, 1, 1, {real_record({1, 2}), real_record({3, 4}), real_record({5, 15})});
    add_pile(records, 2, 0, {real_record({-7}), real_record({0.5}), real_record({0.25})});
    return records;
}

TEST(SupportPileFile, ReadsRevision4) {
    const PileFile file = parse_pile_file(small_file());
    EXPECT_EQ(file.label, std::string(80, 'x'));
    EXPECT_FALSE(file.has_curves);
    EXPECT_EQ(file.sections.size(), 1U);
    ASSERT_EQ(file.piles.size(), 2U);
    EXPECT_EQ(file.piles[0].fixed_to, 2);
    EXPECT_EQ(file.piles[0].tip_code, -1);
    EXPECT_EQ(file.piles[0].z, (std::vector<double>{5, 15}));
    EXPECT_EQ(file.piles[0].diameters, (std::vector<double>{0.5}));
    EXPECT_EQ(file.piles[0].lengths, (std::vector<double>{10}));
    EXPECT_EQ(file.piles[0].sections, (std::vector<int>{1}));
    EXPECT_EQ(file.piles[0].temperature_strains, (std::vector<double>{0.25}));
    EXPECT_TRUE(file.piles[1].lengths.empty());
}

TEST(SupportPileFile, ReadsRevision5) {
    std::vector<Record> records = small_file();
    records.insert(records.begin(), integer_record({2009, 9, 1}));
    // The types, the counts of points, then the sub-sections; 2000 values of each of the four kinds.
    RecordBuilder kinds;
    kinds.integers({1});
    for (int i = 1; i < 2800; ++i)
        kinds.integers({i == 200 ? 10 : 0});
    RecordBuilder values;
    for (int i = 0; i < 8000; ++i)
        values.reals({static_cast<double>(i)});
    records.insert(records.begin() + 4, {kinds.record(), values.record()});
    const PileFile file = parse_pile_file(records);
    EXPECT_TRUE(file.has_curves);
    EXPECT_EQ(file.section_types[0], 1);
    EXPECT_EQ(file.point_counts[0], 10);
    ASSERT_EQ(file.yield_points.size(), 200U);
    EXPECT_EQ(file.yield_points[1][2].elastic_axial, 12.0);
    EXPECT_EQ(file.yield_points[1][2].elastic_moment, 2012.0);
    EXPECT_EQ(file.yield_points[1][2].plastic_axial, 4012.0);
    EXPECT_EQ(file.yield_points[1][2].plastic_moment, 6012.0);
    EXPECT_EQ(file.piles.size(), 2U);
}

TEST(SupportPileFile, RejectsOtherRecords) {
    std::vector<Record> records = small_file();
    records.pop_back();
    EXPECT_THROW(parse_pile_file(records), std::runtime_error);
    records = small_file();
    records.push_back(real_record({0}));
    EXPECT_THROW(parse_pile_file(records), std::runtime_error);
    records = small_file();
    records[4] = real_record({1, 2, 3});
    EXPECT_THROW(parse_pile_file(records), std::runtime_error);
    records = small_file();
    records[3] = integer_record({2, 0, 1, 0});
    EXPECT_THROW(parse_pile_file(records), std::runtime_error);
    EXPECT_THROW(parse_pile_file({}), std::runtime_error);
}

TEST(SupportPileFile, SumsCoordinates) {
    const PileFile file = parse_pile_file(small_file());
    const CoordinateSums sums = coordinate_sums(file, 1, 2);
    EXPECT_EQ(sums.heads, (std::array<double, 3>{-6.0, 3.5, 5.25}));
    EXPECT_EQ(sums.tips, (std::array<double, 3>{2.0, 4.0, 15.0}));
    EXPECT_EQ(coordinate_sums(file, 2, 2).tips, (std::array<double, 3>{}));
}

constexpr std::string_view listing = R"(any table
 CHECK SUMS FOR PILE NODE COORDINATES
 ************************************

 PILE HEADS :         SUM-X =      -6.0000
                      SUM-Y =       3.5000
                      SUM-Z =       5.2500

 PILE TIPS :          SUM-X =       2.0000
                      SUM-Y =       4.0000
                      SUM-Z =      15.0000
)";

TEST(SupportListingCheck, ComparesTheCheckSums) {
    const PileFile file = parse_pile_file(small_file());
    EXPECT_EQ(check_sum_differences(listing, file), std::vector<std::string>{});
    for (const std::string& other :
         {with_change(listing, "5.2500", "5.2501"), with_change(listing, " 15.0", "-15.0"),
          with_change(listing, "CHECK SUMS", "CHECK  SUMS"), with_change(listing, "***\n", "***"),
          with_change(listing, "     4.0000", "    4.0000"),
          std::string(listing.substr(0, listing.size() - 37)),
          std::string(listing) + std::string(listing)}) {
        EXPECT_EQ(check_sum_differences(other, file).empty(), false) << other;
    }
}

} // namespace
} // namespace korvat::test
