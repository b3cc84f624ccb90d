// Tests of the fixed-capacity tables.
#include "model/store/table.hpp"

#include <algorithm>
#include <gtest/gtest.h>

namespace korvat::test {
namespace {

TEST(Table, IsFilledWithZeros) {
    const Table1<int, 3> one;
    const Table2<double, 2, 3> two;
    EXPECT_EQ(one.all().size(), 3U);
    EXPECT_EQ(two.all().size(), 6U);
    EXPECT_TRUE(std::ranges::all_of(one.all(), [](int v) { return v == 0; }));
    EXPECT_TRUE(std::ranges::all_of(two.all(), [](double v) { return v == 0.0; }));
}

TEST(Table, IndicesStartAtOne) {
    Table1<int, 3> table;
    table(1) = 7;
    table(3) = 9;
    EXPECT_EQ(table.all()[0], 7);
    EXPECT_EQ(table.all()[1], 0);
    EXPECT_EQ(table.all()[2], 9);
}

TEST(Table, FirstIndexVariesFastest) {
    Table2<int, 2, 3> table;
    table(1, 1) = 11;
    table(2, 1) = 21;
    table(1, 2) = 12;
    table(2, 3) = 23;
    const auto all = table.all();
    EXPECT_EQ(std::vector<int>(all.begin(), all.end()), (std::vector{11, 21, 12, 0, 0, 23}));
}

TEST(Table, ColumnIsTheValuesOfOneSecondIndex) {
    Table2<int, 2, 3> table;
    table.column(3)[0] = 13;
    table.column(3)[1] = 23;
    EXPECT_EQ(table(1, 3), 13);
    EXPECT_EQ(table(2, 3), 23);
    EXPECT_EQ(table.column(3).size(), 2U);
    const auto& constant = table;
    EXPECT_EQ(constant.column(3)[1], 23);
    EXPECT_EQ(constant(1, 3), 13);
}

TEST(Table, CopyIsATableOfItsOwn) {
    Table1<int, 2> table;
    Table1<int, 2> copy = table;
    copy(1) = 5;
    EXPECT_EQ(table(1), 0);
}

TEST(TableDeath, IndexOutsideEndsTheProgram) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    Table1<int, 3> one;
    Table2<int, 2, 3> two;
    EXPECT_DEATH(one(0) = 1, "");
    EXPECT_DEATH(one(4) = 1, "");
    EXPECT_DEATH(two(3, 1) = 1, ""); // not the first value of the next column
    EXPECT_DEATH(two(1, 4) = 1, "");
}

} // namespace
} // namespace korvat::test
