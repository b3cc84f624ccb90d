// Scales, ticks and labels of the drawings, and the units of the page.
#include "report/drawings.hpp"
#include "report/frame.hpp"
#include "report/units.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace korvat::test {
namespace {

using report::Labels;

TEST(ReportFrame, TicksAreRoundValuesWithinTheRange) {
    EXPECT_EQ(report::ticks({-1.0, 11.0}, 4), (std::vector<double>{0.0, 5.0, 10.0}));
    EXPECT_EQ(report::ticks({0.0, 1.0}, 5),
              (std::vector<double>{0.0, 0.2, 0.4, 3 * 0.2, 0.8, 1.0}));
    EXPECT_EQ(report::ticks({-250.0, -90.0}, 2), (std::vector<double>{-200.0, -100.0}));
    EXPECT_TRUE(report::ticks({2.0, 2.0}, 5).empty());
    EXPECT_TRUE(report::ticks({0.0, std::numeric_limits<double>::infinity()}, 5).empty());
    EXPECT_TRUE(report::ticks({0.0, std::nan("")}, 5).empty());
}

TEST(ReportFrame, PlacesAreShortAndNeverAnythingButNumbers) {
    EXPECT_EQ(report::px(12.0), "12");
    EXPECT_EQ(report::px(12.345), "12.35");
    EXPECT_EQ(report::px(100.0), "100");
    EXPECT_EQ(report::px(-0.001), "0");
    EXPECT_EQ(report::px(1.0e300), "0");
    EXPECT_EQ(report::px(std::nan("")), "0");
}

// Half a unit of the last decimal, divided by the scale, must be below a millionth.
TEST(ReportFrame, DecimalsForAnExactPlace) {
    for (const double factor : {0.003, 0.7, 1.0, 12.0, 450.0}) {
        const int decimals = report::exact_decimals(factor);
        EXPECT_LT(0.5 * std::pow(10.0, -decimals) / factor, 1.0e-6) << factor;
    }
    EXPECT_EQ(report::exact_decimals(1.0e30), 2);
    EXPECT_EQ(report::exact_decimals(0.0), 2);
}

TEST(ReportFrame, LabelsDoNotOverlap) {
    Labels labels(10.0);
    const report::Box paper{0.0, 0.0, 100.0, 100.0};
    const auto places = report::places_above(50.0, 50.0, 4.0, 10.0);
    report::LabelPlace first;
    report::LabelPlace second;
    ASSERT_TRUE(labels.place("12", places, paper, first)); // 12 px wide
    EXPECT_DOUBLE_EQ(first.x, 44.0);
    EXPECT_DOUBLE_EQ(first.y, 46.0);
    ASSERT_TRUE(labels.place("13", places, paper, second));
    EXPECT_DOUBLE_EQ(second.y, 46.0 - 11.5); // a row above
    labels.keep_clear(paper);
    EXPECT_FALSE(labels.place("14", places, paper, second));
    EXPECT_FALSE(
        Labels(10.0).place("1", report::places_above(-50.0, 50.0, 4.0, 10.0), paper, first));
}

TEST(ReportFrame, ListsOfNumbersHaveTheirRuns) {
    EXPECT_EQ(report::number_list({7}, 3), "7");
    EXPECT_EQ(report::number_list({1, 2, 3, 7, 9, 10}, 3), "1–3, 7, 9, 10");
    EXPECT_EQ(report::number_list({1, 3, 5, 7}, 3), "1, 3, 5, …");
}

TEST(ReportUnits, OfForceAndLengthInWords) {
    const report::Units units{"kN", "m"};
    EXPECT_EQ(report::unit_text("F/L2", units), "kN/m²");
    EXPECT_EQ(report::unit_text("F L", units), "kN·m");
    EXPECT_EQ(report::unit_text("-", units), "");
    EXPECT_EQ(report::unit_text("F/L3", {}), "F/L³");
}

// A deck in kip and ft with the factors 4.448222 and 0.3048 is stored in kN and m.
TEST(ReportUnits, BehindTheFactors) {
    const check::UnitSystem kip_and_ft{"kip and ft", "ft", 4448.2216, 0.3048};
    const auto stored = report::stored_units(kip_and_ft, 4.448222, 0.3048);
    EXPECT_EQ(stored.force, "kN");
    EXPECT_EQ(stored.length, "m");
    const auto same = report::stored_units(kip_and_ft, 1.0, 1.0);
    EXPECT_EQ(same.force, "kip");
    EXPECT_EQ(same.length, "ft");
    EXPECT_FALSE(report::stored_units(kip_and_ft, 3.0, 1.0).force); // no unit of a name
    EXPECT_FALSE(report::stored_units({}, 1.0, 1.0).length);
}

} // namespace
} // namespace korvat::test
