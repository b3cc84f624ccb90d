// Tables and grids of values.
#include "study/table.hpp"

#include "study/study_error.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using study::grid_axis;
using study::read_table;
using study::StudyError;
using Rows = std::vector<std::vector<std::string>>;
using Names = std::vector<std::string>;

std::string refusal(const std::string& text) {
    try {
        (void)read_table(text, "t.csv");
    } catch (const StudyError& error) {
        return error.what();
    }
    return "none";
}

std::string axis_refusal(const std::string& text) {
    try {
        (void)grid_axis(text);
    } catch (const StudyError& error) {
        return error.what();
    }
    return "none";
}

TEST(StudyTable, ReadsRows) {
    const study::Table table = read_table("wall,d\n0.05,1.5\n0.06, 1.6 \n", "t.csv");
    EXPECT_EQ(table.columns, (Names{"wall", "d"}));
    EXPECT_EQ(table.rows, (Rows{{"0.05", "1.5"}, {"0.06", "1.6"}}));
    EXPECT_EQ(study::row_of(table, 1), (study::Row{{"wall", "0.06"}, {"d", "1.6"}}));
}

TEST(StudyTable, ReadsWhatSpreadsheetsWrite) {
    const study::Table marked = read_table("\xEF\xBB\xBF"
                                           "a;b\r\n1;2,5\r\n\r\n3;4",
                                           "t.csv");
    EXPECT_EQ(marked.columns, (Names{"a", "b"}));
    EXPECT_EQ(marked.rows, (Rows{{"1", "2,5"}, {"3", "4"}}));
    const study::Table quoted =
        read_table("a,b\n\"x, \"\"y\"\"\" , 2\n\"two\nlines\",3\n", "t.csv");
    EXPECT_EQ(quoted.rows, (Rows{{"x, \"y\"", "2"}, {"two\nlines", "3"}}));
}

TEST(StudyTable, RefusesWithTheLine) {
    EXPECT_EQ(refusal(""), "t.csv:1: there is no header");
    EXPECT_EQ(refusal("a,b\n"), "t.csv:1: there is no row below the header");
    EXPECT_EQ(refusal("a,b\n1,2\n1,2,3\n"), "t.csv:3: 3 values, but the header has 2 columns");
    EXPECT_EQ(refusal("a,a\n1,2\n"), "t.csv:1: two columns are named a");
    EXPECT_EQ(
        refusal("a,wall [m]\n1,2\n"),
        "t.csv:1: 'wall [m]' cannot name a column: letters, digits and _ can, the first no digit");
    EXPECT_EQ(refusal("a,b\n1,\"2\n"), "t.csv:2: a quote is not closed");
    EXPECT_EQ(refusal("a,b\n\"1\n2\",3\n4\n"), "t.csv:4: 1 values, but the header has 2 columns");
    EXPECT_EQ(refusal("a,b\n1,\"2\"3\n"), "t.csv:2: something stands behind a closed quote");
}

TEST(StudyGrid, RangesEndWhereTheLastValueIsMet) {
    // 0.03 + 6 x 0.005 is 0.06 but for the last bit.
    EXPECT_EQ(grid_axis("wall=0.03:0.06:0.005").rows,
              (Rows{{"0.03"}, {"0.035"}, {"0.04"}, {"0.045"}, {"0.05"}, {"0.055"}, {"0.06"}}));
    EXPECT_EQ(grid_axis("n=1:6:2").rows, (Rows{{"1"}, {"3"}, {"5"}}));
    EXPECT_EQ(grid_axis("z=2:-2:-2").rows, (Rows{{"2"}, {"0"}, {"-2"}}));
    EXPECT_EQ(grid_axis("z=4:4:1").rows, (Rows{{"4"}}));
}

TEST(StudyGrid, ListsAreTakenAsTheyStand) {
    const study::Table axis = grid_axis("d= 1.50, 1.8");
    EXPECT_EQ(axis.columns, (Names{"d"}));
    EXPECT_EQ(axis.rows, (Rows{{"1.50"}, {"1.8"}}));
}

TEST(StudyGrid, RefusesWhatIsNoAxis) {
    EXPECT_EQ(axis_refusal("wall"),
              "--grid wall: it has the form NAME=FROM:TO:STEP or NAME=VALUE,VALUE,...");
    EXPECT_EQ(axis_refusal("w=1:2"), "--grid w=1:2: a range is FROM:TO:STEP");
    EXPECT_EQ(axis_refusal("w=1:2:x"), "--grid w=1:2:x: 'x' is no number");
    EXPECT_EQ(axis_refusal("w=1:2:0"), "--grid w=1:2:0: the step does not lead from FROM to TO");
    EXPECT_EQ(axis_refusal("w=1:2:-1"), "--grid w=1:2:-1: the step does not lead from FROM to TO");
    EXPECT_EQ(axis_refusal("w=0:1:1e-9"), "--grid w=0:1:1e-9: too many values");
    EXPECT_EQ(axis_refusal("w=1,,2"), "--grid w=1,,2: a value is missing");
}

TEST(StudyGrid, TheFirstAxisChangesSlowest) {
    const study::Table both = study::product(grid_axis("a=1,2"), grid_axis("b=x,y"));
    EXPECT_EQ(both.columns, (Names{"a", "b"}));
    EXPECT_EQ(both.rows, (Rows{{"1", "x"}, {"1", "y"}, {"2", "x"}, {"2", "y"}}));
    EXPECT_THROW((void)study::product(grid_axis("a=1"), grid_axis("a=2")), StudyError);
    const study::Table thousand = grid_axis("a=1:1001:1");
    EXPECT_THROW((void)study::product(thousand, grid_axis("b=1:1000:1")), StudyError);
}

} // namespace
} // namespace korvat::test
