// Tests of the character plot against plots drawn by hand.
#include "support/model_fixture.hpp"

#include "output/sketch.hpp"

#include <algorithm>
#include <limits>

namespace korvat::test {
namespace {

using Reals = std::vector<double>;

class Sketch : public ModelTest {
protected:
    // The rows that one call adds to the listing, behind the blank record.
    std::string drawn(const Reals& x, const Reals& y, int NP, int NROWS, int NCOLS) {
        const std::size_t start = listing().size();
        np = NP;
        rows = NROWS;
        sketch(cmn(), x, y, np, rows, NCOLS, 13);
        return listing().substr(start);
    }

    static std::string plot_of(const std::vector<std::string>& lines) {
        std::string text = " \n";
        for (const std::string& line : lines)
            text += "  " + line + "\n";
        return text;
    }

    int np = 0;
    int rows = 0;
};

// A margin m = 0.01 around 0..20 by 0..10: columns are 20.02 / 20 = 1.001 wide, column c begins at
// 1.001 (c - 1) - 0.01; rows are 10.02 / 10 = 1.002 high, row r begins at 1.002 (r - 1) - 0.01.
//   point 1  (0, 0)       column 1   (0.01 / 1.001 = 0.0),    row 1
//   point 2  (20, 10)     column 20  (20.01 / 1.001 = 19.99), row 10
//   point 3  (10.5, 5.5)  column 11  (10.51 / 1.001 = 10.50), row 6  (5.51 / 1.002 = 5.5)
//   point 4  (10.6, 5.6)  column 11  (10.61 / 1.001 = 10.60), row 6: the mark stays
//   point 5  (3, 2.5)     column 4   (3.01 / 1.001 = 3.007),  row 3  (2.51 / 1.002 = 2.505)
//   point 6  (17.3, 2.2)  column 18  (17.31 / 1.001 = 17.29), row 3  (2.21 / 1.002 = 2.206)
//   point 7  (7.7, 8.5)   column 8   (7.71 / 1.001 = 7.70),   row 9  (8.51 / 1.002 = 8.49)
//   point 8  (0.9, 9.5)   column 1   (0.91 / 1.001 = 0.909),  row 10 (9.51 / 1.002 = 9.49)
TEST_F(Sketch, TenRowsOfTwentyColumnsWithMarks) {
    const Reals x = {0.0, 20.0, 10.5, 10.6, 3.0, 17.3, 7.7, 0.9};
    const Reals y = {0.0, 10.0, 5.5, 5.6, 2.5, 2.2, 8.5, 9.5};
    EXPECT_EQ(drawn(x, y, 8, 10, 20), plot_of({"*                   ", //
                                               "                    ", //
                                               "   *             *  ", //
                                               "                    ", //
                                               "                    ", //
                                               "          *         ", //
                                               "                    ", //
                                               "                    ", //
                                               "       *            ", //
                                               "*                  *"}));
    EXPECT_EQ(np, 8);
    EXPECT_EQ(rows, 10);
}

// The same points by number: each number stands on columns c - 1 to c + 1; at column 1 on 1 to 3,
// at column 20 on 18 to 20. Point 4 overwrites point 3.
TEST_F(Sketch, TenRowsOfTwentyColumnsWithNumbers) {
    const Reals x = {0.0, 20.0, 10.5, 10.6, 3.0, 17.3, 7.7, 0.9};
    const Reals y = {0.0, 10.0, 5.5, 5.6, 2.5, 2.2, 8.5, 9.5};
    EXPECT_EQ(drawn(x, y, -8, 10, 20), plot_of({"001                 ", //
                                                "                    ", //
                                                "  005           006 ", //
                                                "                    ", //
                                                "                    ", //
                                                "         004        ", //
                                                "                    ", //
                                                "                    ", //
                                                "      007           ", //
                                                "008              002"}));
    EXPECT_EQ(np, 8); // made positive
}

TEST_F(Sketch, LaterNumberOverwritesPartOfAnEarlierOne) {
    // Columns are 1.002 wide: x = 4.1 is in column 5 (4.11 / 1.002 = 4.10), 6.1 in 7, 10 in 10.
    // So 002 stands on 4 to 6, 003 on 6 to 8, 004 on 8 to 10.
    EXPECT_EQ(drawn({0.0, 4.1, 6.1, 10.0}, {0.0, 0.0, 0.0, 0.0}, -4, 1, 10),
              plot_of({"0010000004"}));
}

TEST_F(Sketch, SinglePointIsInTheMiddle) {
    EXPECT_EQ(drawn({5.0}, {-7.0}, 1, 3, 5), plot_of({"     ", "  *  ", "     "}));
    EXPECT_EQ(drawn({5.0}, {-7.0}, -1, 3, 5), plot_of({"     ", " 001 ", "     "}));
}

TEST_F(Sketch, PointOnTheBorderOfTwoRowsIsInBoth) {
    // The margin is a sum of powers of two, so the border -4 - m + (8 + 2 m) / 2 is exactly 0.
    EXPECT_EQ(drawn({0.0, 10.0, 5.0}, {-4.0, 4.0, 0.0}, 3, 2, 3), plot_of({"** ", " **"}));
    EXPECT_EQ(drawn({5.0}, {5.0}, -1, 2, 3), plot_of({"001", "001"}));
}

TEST_F(Sketch, SmallestSecondCoordinateStandsAtTheTop) {
    EXPECT_EQ(drawn({0.0, 0.0}, {9.0, 1.0}, -2, 3, 3), plot_of({"002", "   ", "001"}));
}

// A point within the margin of the outermost one adds no margin of its own: the extent of 0 and
// 0.005 is -m to m, four columns of m / 2. Point 1 is in column 3 (m / (m / 2) = 2), point 2 in
// column 4 (3.0). From -m to 0.005 + m they would be in columns 2 and 3.
TEST_F(Sketch, ExtentGrowsWithPointsBeyondItOnly) {
    EXPECT_EQ(drawn({0.0, 0.005}, {0.0, 0.0}, 2, 1, 4), plot_of({"  **"}));
}

TEST_F(Sketch, MarksNeverTurnIntoM) {
    EXPECT_EQ(drawn({1.0, 1.0, 1.0}, {1.0, 1.0, 1.0}, 3, 1, 3), plot_of({" * "}));
}

TEST_F(Sketch, ThreeDigitNumbers) {
    const Reals same(400, 2.0);
    EXPECT_EQ(drawn(same, same, -7, 1, 5), plot_of({" 007 "}));
    EXPECT_EQ(drawn(same, same, -45, 1, 5), plot_of({" 045 "}));
    EXPECT_EQ(drawn(same, same, -123, 1, 5), plot_of({" 123 "}));
    EXPECT_EQ(drawn(same, same, -400, 1, 5), plot_of({" 400 "}));
}

TEST_F(Sketch, AutomaticRows) {
    // 40 / (20.02 / 10.02) * 24 / 39 = 12.32
    const std::string text = drawn({0.0, 20.0}, {0.0, 10.0}, 2, 0, 40);
    EXPECT_EQ(rows, 12);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1 + 12);
    EXPECT_EQ(text.size(), 2U + 12U * (2 + 40 + 1));
}

// A square of 130 columns has 130 * 24 / 39 = 80 rows. One that is wider by 0.02 in 1000.02 has
// 79.998, which is 79, and one that is higher by as much 80.002.
TEST_F(Sketch, AutomaticRowsAreCutToAWholeNumber) {
    const auto rows_of = [&](double width, double height) {
        drawn({0.0, width}, {0.0, height}, 2, 0, 130);
        return rows;
    };
    EXPECT_EQ(rows_of(1000.0, 1000.0), 80);
    EXPECT_EQ(rows_of(1000.02, 1000.0), 79);
    EXPECT_EQ(rows_of(1000.0, 1000.02), 80);
}

TEST_F(Sketch, AutomaticRowsOfALongNarrowGroup) {
    // 100 / (1000.02 / 0.02) * 24 / 39 = 0.001: no row
    EXPECT_EQ(drawn({0.0, 1000.0}, {0.0, 0.0}, -2, 0, 100), " \n");
    EXPECT_EQ(rows, 0);
    EXPECT_EQ(np, 2);
}

TEST_F(Sketch, AutomaticRowsOfATallGroupAreHeldAt200) {
    const std::string text = drawn({0.0, 0.0}, {0.0, 1000.0}, 2, 0, 3);
    EXPECT_EQ(rows, 200);
    EXPECT_EQ(
        text, " \n   * \n" + [] {
            std::string blank_rows;
            for (int i = 0; i < 198; ++i)
                blank_rows += "     \n";
            return blank_rows;
        }() + "   * \n");
}

TEST_F(Sketch, GivenRowsAreHeldAt200) {
    const std::string text = drawn({0.0, 0.0}, {0.0, 1000.0}, 2, 201, 3);
    EXPECT_EQ(rows, 200);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 201);
}

TEST_F(Sketch, NegativeRowsDrawNothing) {
    EXPECT_EQ(drawn({0.0}, {0.0}, -1, -3, 20), " \n");
    EXPECT_EQ(np, 1);
}

TEST_F(Sketch, TwoColumnsHoldTheLastTwoDigits) {
    // Column 1 becomes 2, and that, the last one, becomes 1 again: the hundreds fall outside.
    EXPECT_EQ(drawn({0.0}, {0.0}, -1, 1, 2), plot_of({"01"}));
}

TEST_F(Sketch, OneHundredAndThirtyColumnsAtMost) {
    const std::string text = drawn({0.0, 1.0}, {0.0, 0.0}, 2, 1, 130);
    EXPECT_EQ(text.size(), 2U + 2U + 130U + 1U);
    EXPECT_EQ(drawn({0.0, 1.0}, {0.0, 0.0}, 2, 1, 500), text);
}

// The margin is lost beside a number this large, and 1e20 / 1e19 is the eleventh column of ten.
TEST_F(Sketch, PointAtTheVeryEndIsInTheLastColumn) {
    EXPECT_EQ(drawn({0.0, 1.0e20}, {0.0, 0.0}, 2, 1, 10), plot_of({"*        *"}));
}

TEST_F(Sketch, CoordinatesThatAreNoNumbers) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    // Without an x: the first column. Without a y: nowhere.
    EXPECT_EQ(drawn({1.0, nan, 1.0}, {1.0, 1.0, nan}, 3, 1, 3), plot_of({"** "}));
    // Infinitely wide columns: every point in the first one.
    EXPECT_EQ(drawn({1.0, inf, -5.0}, {1.0, 1.0, 1.0}, 3, 1, 3), plot_of({"*  "}));
    EXPECT_EQ(drawn({1.0, -inf}, {1.0, 1.0}, 2, 1, 3), plot_of({"*  "}));
    // No row has finite ends; nothing crashes.
    EXPECT_EQ(drawn({1.0, 2.0}, {1.0, -inf}, 2, 2, 3).size(), 2U + 2U * 6U);
    drawn({nan, nan}, {nan, nan}, -2, 0, 3);
}

TEST_F(Sketch, WritesToTheUnitGiven) {
    int points = 1;
    int one_row = 1;
    const Reals zero = {0.0};
    sketch(cmn(), zero, zero, points, one_row, 3, 6);
    EXPECT_EQ(log(), plot_of({" * "}));
    EXPECT_EQ(listing(), "");
}

} // namespace
} // namespace korvat::test
