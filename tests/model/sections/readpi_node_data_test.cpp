// Tests of the pile tip/fix table and of the special pile node values.
#include "section_fixture.hpp"

namespace korvat::test {
namespace {

// One heading line, then records.
class TipFixTable : public SectionTest {
protected:
    TipFixTable() { cmn().NUMPIL = 5; }

    Cause read_table(std::vector<std::string> records) {
        records.insert(records.begin(), "heading");
        return read_section(read_tip_fix_table, records);
    }

    std::string log_of(const std::vector<std::string>& records) {
        const std::size_t start = log().size();
        EXPECT_EQ(read_table(records), Cause::bad_value) << records.back();
        return log().substr(start);
    }
};

std::string tip_fix_error(const std::string& values) {
    return "\n **** SR/READPI : PILE TIP/FIX TABLE  NP1,NP2,ITIP,IFIX,IERR=\n" + values + "\n";
}

TEST_F(TipFixTable, SetsRangesOfPiles) {
    EXPECT_EQ(read_table({"1 2 3 0", "3 3 -1 5", "4 5 0 1", "next"}), Cause::none);
    const std::vector<int> tips = {3, 3, -1, 0, 0};
    const std::vector<int> fixes = {0, 0, 5, 1, 1};
    for (int p = 1; p <= 5; ++p) {
        EXPECT_EQ(cmn().ITIP(p), tips[static_cast<std::size_t>(p - 1)]) << p;
        EXPECT_EQ(cmn().IFIX(p), fixes[static_cast<std::size_t>(p - 1)]) << p;
    }
    EXPECT_EQ(cmn().NLINE, 4);
    EXPECT_EQ(in.LOC, 803);
    EXPECT_EQ(next_line(12), "next");
    EXPECT_EQ(log(), "");
}

TEST_F(TipFixTable, RangesMayLeaveGaps) {
    cmn().ITIP(2) = 7;
    EXPECT_EQ(read_table({"1 1 2 0", "5 5 2 0"}), Cause::none);
    EXPECT_EQ(cmn().ITIP(2), 7);
}

TEST_F(TipFixTable, ErrorNumbers) {
    EXPECT_EQ(log_of({"1 3 0 0", "3 4 0 0"}), tip_fix_error("    3    4    0    0    1"));
    EXPECT_EQ(log_of({"1 3 0 0", "5 4 0 0"}), tip_fix_error("    5    4    0    0    2"));
    EXPECT_EQ(log_of({"1 6 0 0"}), tip_fix_error("    1    6    0    0    3"));
    EXPECT_EQ(log_of({"1 5 4 0"}), tip_fix_error("    1    5    4    0    4"));
    EXPECT_EQ(log_of({"1 5 0 -1"}), tip_fix_error("    1    5    0   -1    5"));
    EXPECT_EQ(log_of({"1 5 0 6"}), tip_fix_error("    1    5    0    6    5"));
    EXPECT_EQ(log_of({"2 5 0 0"}), tip_fix_error("    2    5    0    0    6"));
    EXPECT_EQ(log_of({"0 6 4 6"}), tip_fix_error("    0    6    4    6    6"));
}

TEST_F(TipFixTable, HugeIntegers) {
    EXPECT_EQ(log_of({"1e300 1e300 0 0"}), tip_fix_error("21474836472147483647    0    0    6"));
    EXPECT_EQ(log_of({"1 1 0 0", "1e300 1e300 0 0"}),
              tip_fix_error("21474836472147483647    0    0    3"));
    EXPECT_EQ(log_of({"1 1 0 0", "-1e300 2 0 0"}),
              tip_fix_error("-2147483648    2    0    0    1"));
    EXPECT_EQ(log_of({"1 1e300 0 0"}), tip_fix_error("    12147483647    0    0    3"));
    EXPECT_EQ(log_of({"1 5 1e300 0"}), tip_fix_error("    1    52147483647    0    4"));
    EXPECT_EQ(log_of({"1 5 0 1e300"}), tip_fix_error("    1    5    02147483647    5"));
    EXPECT_EQ(read_table({"1 5 -1e300 0"}), Cause::none);
    EXPECT_EQ(cmn().ITIP(5), -2147483647 - 1);
}

class SpecialNodeValues : public SectionTest {
protected:
    SpecialNodeValues() { cmn().NUMPIL = 5; }

    Cause read_values(std::vector<std::string> records) {
        records.emplace_back("0 0 0 0 0 0 0 0 0 0 0");
        return read_section(read_special_node_values, under_headings(2, records));
    }

    std::string log_of(const std::string& record) {
        const std::size_t start = log().size();
        EXPECT_EQ(read_values({record}), Cause::bad_value) << record;
        return log().substr(start);
    }

    std::vector<double> stored(int r) {
        const auto values = cmn().SPVAL.column(r);
        return {values.begin(), values.end()};
    }
};

std::string special_error(const std::string& values) {
    return "\n **** SR/READPI : SPEC NODE VALUES  NOW,NP1,NP2,ND1,,ND2,CODE=\n    1" + values +
           "\n";
}

TEST_F(SpecialNodeValues, StoresEveryRecord) {
    EXPECT_EQ(read_values({"1 2 3 4 2 1 2 3 4 5 6", "5 5 1 451 3 7 8 9 10 11 12"}), Cause::none);
    EXPECT_EQ(cmn().NUMSPC, 2);
    const auto first = cmn().ISPNOD.column(1);
    EXPECT_EQ(std::vector<int>(first.begin(), first.end()), (std::vector{1, 2, 3, 4}));
    const auto second = cmn().ISPNOD.column(2);
    EXPECT_EQ(std::vector<int>(second.begin(), second.end()), (std::vector{5, 5, 1, 451}));
    EXPECT_EQ(cmn().ISPCOD(1), 2);
    EXPECT_EQ(cmn().ISPCOD(2), 3);
    EXPECT_EQ(stored(1), (std::vector{1.0, 2.0, 3.0, 4.0, 5.0, 6.0}));
    EXPECT_EQ(cmn().NLINE, 6);
    EXPECT_EQ(in.LOC, 903);
    EXPECT_EQ(log(), "");
}

TEST_F(SpecialNodeValues, ScalesByTheCode) {
    const double F = 4.44822;
    const double L = 0.3048;
    set_factors(F, L);
    EXPECT_EQ(read_values({"1 1 1 1 1 11 13 17 19 23 29", "1 1 1 1 2 11 13 17 19 23 29",
                           "1 1 1 1 3 11 13 17 19 23 29", "1 1 1 1 4 11 13 17 19 23 29"}),
              Cause::none);
    // Each formula from left to right.
    EXPECT_EQ(stored(1), (std::vector{11 * F / L, 13 * F / L, 17 * F / L, 19 * F * L, 23 * F * L,
                                      29 * F * L}));
    EXPECT_EQ(stored(2), (std::vector{11 * F, 13 * F, 17 * F, 19 * F * L, 23 * F * L, 29 * F * L}));
    EXPECT_EQ(stored(3), (std::vector{11 * L, 13 * L, 17 * L, 19.0, 23.0, 29.0}));
    EXPECT_EQ(stored(4), (std::vector{11.0, 13.0, 17.0, 19.0, 23.0, 29.0}));
}

TEST_F(SpecialNodeValues, FormulasGoFromLeftToRight) {
    set_factors(4.44822, 0.3048);
    int apart = 0;
    for (int v = 11; v < 31; ++v) {
        const std::string text = std::to_string(v);
        EXPECT_EQ(read_values({"1 1 1 1 1 " + text + " 0 0 " + text + " 0 0"}), Cause::none);
        EXPECT_EQ(cmn().SPVAL(1, 1), v * 4.44822 / 0.3048);
        EXPECT_EQ(cmn().SPVAL(4, 1), v * 4.44822 * 0.3048);
        apart += v * 4.44822 / 0.3048 == v * (4.44822 / 0.3048) ? 0 : 1;
    }
    EXPECT_GT(apart, 0); // else this test could not tell one order from the other
}

TEST_F(SpecialNodeValues, Code4SetsTheFirstValueAtEveryNodeOfTheRange) {
    set_factors(2.0, 4.0);
    EXPECT_EQ(read_values({"2 3 2 4 4 7 1 1 1 1 1", "3 3 4 5 4 8 1 1 1 1 1"}), Cause::none);
    for (const int p : {1, 4, 5})
        EXPECT_EQ(cmn().TSNOD(3, p), 0.0);
    for (const int p : {2, 3}) {
        EXPECT_EQ(cmn().TSNOD(1, p), 0.0);
        EXPECT_EQ(cmn().TSNOD(2, p), 7.0);
        EXPECT_EQ(cmn().TSNOD(3, p), 7.0);
    }
    EXPECT_EQ(cmn().TSNOD(4, 2), 7.0);
    EXPECT_EQ(cmn().TSNOD(4, 3), 8.0); // the later record
    EXPECT_EQ(cmn().TSNOD(5, 2), 0.0);
    EXPECT_EQ(cmn().TSNOD(5, 3), 8.0);
}

TEST_F(SpecialNodeValues, OtherCodesLeaveTheTemperatures) {
    EXPECT_EQ(
        read_values({"1 1 1 1 1 7 7 7 7 7 7", "1 1 1 1 2 7 7 7 7 7 7", "1 1 1 1 3 7 7 7 7 7 7"}),
        Cause::none);
    EXPECT_EQ(cmn().TSNOD(1, 1), 0.0);
}

TEST_F(SpecialNodeValues, RangesAndCodeHaveLimits) {
    const std::string rest = " 0 0 0 0 0 0";
    EXPECT_EQ(log_of("2 1 1 1 2" + rest), special_error("    2    1    1    1    2"));
    EXPECT_EQ(log_of("1 6 1 1 2" + rest), special_error("    1    6    1    1    2"));
    EXPECT_EQ(log_of("1 1 0 1 2" + rest), special_error("    1    1    0    1    2"));
    EXPECT_EQ(log_of("1 1 2 1 2" + rest), special_error("    1    1    2    1    2"));
    EXPECT_EQ(log_of("1 1 1 452 2" + rest), special_error("    1    1    1  452    2"));
    EXPECT_EQ(log_of("1 1 1 1 0" + rest), special_error("    1    1    1    1    0"));
    EXPECT_EQ(log_of("1 1 1 1 5" + rest), special_error("    1    1    1    1    5"));
    EXPECT_EQ(cmn().NUMSPC, 0);
}

TEST_F(SpecialNodeValues, HugeIntegers) {
    const std::string rest = " 0 0 0 0 0 0";
    EXPECT_EQ(log_of("1e300 1 1 1 4" + rest), special_error("2147483647    1    1    1    4"));
    EXPECT_EQ(log_of("1 1e300 1 1 4" + rest), special_error("    12147483647    1    1    4"));
    EXPECT_EQ(log_of("1 1 -1e300 1 4" + rest), special_error("    1    1-2147483648    1    4"));
    EXPECT_EQ(log_of("1 1 1 1e300 4" + rest), special_error("    1    1    12147483647    4"));
    EXPECT_EQ(log_of("1 1 1 1 1e300" + rest), special_error("    1    1    1    12147483647"));
    EXPECT_EQ(log_of("1 1 1 1 -1e300" + rest), special_error("    1    1    1    1-2147483648"));
    EXPECT_EQ(read_values({"-1e300 1e300 1e300 1e300 1e300" + rest}),
              Cause::none); // the end record
}

TEST_F(SpecialNodeValues, SpringStiffnessMustNotBeNegative) {
    const std::string text = "\n **** SR/READPI : SPEC NODE VALUES  NOW,VAL=    1";
    EXPECT_EQ(log_of("1 1 1 1 1 0 0 0 0 0 -2"), text + " -0.2000E+01\n");
    EXPECT_EQ(log_of("1 1 1 1 1 0 -3 0 0 0 -2"), text + " -0.3000E+01\n"); // the first
    EXPECT_EQ(read_values({"1 1 1 1 2 -1 -1 -1 -1 -1 -1"}), Cause::none);
    EXPECT_EQ(read_values({"1 1 1 1 3 -1 -1 -1 -1 -1 -1"}), Cause::none);
    cmn().TOL = 0.5;
    EXPECT_EQ(read_values({"1 1 1 1 1 -0.25 0 0 0 0 0"}), Cause::none);
    EXPECT_EQ(log_of("1 1 1 1 1 -0.5 0 0 0 0 0"), text + " -0.5000E+00\n"); // not above -TOL
}

TEST_F(SpecialNodeValues, EndRecordIsNotChecked) {
    EXPECT_EQ(read_section(read_special_node_values,
                           under_headings(2, {"0 9 9 8 7 -1 0 0 0 0 0", "not blank"})),
              Cause::none);
    EXPECT_EQ(cmn().NUMSPC, 0);
    EXPECT_EQ(next_line(12), "not blank"); // without load vectors nothing more is read
}

TEST_F(SpecialNodeValues, LoadVectorsBeginWithABlankLine) {
    cmn().NUMLOD = 1;
    const std::string end = "0 0 0 0 0 0 0 0 0 0 0";
    EXPECT_EQ(read_section(read_special_node_values, under_headings(2, {end, "", "load"})),
              Cause::none);
    EXPECT_EQ(cmn().NLINE, 5);
    EXPECT_EQ(next_line(12), "load");
    EXPECT_EQ(read_section(read_special_node_values, under_headings(2, {end, "load"})),
              Cause::bad_value);
    EXPECT_EQ(log(), "\n **** SR/READPI : NO BLANK LINE AT START OF \"LOAD VECTOR SECTION\"\n " +
                         padded("load", 80) + "\n");
}

TEST_F(SpecialNodeValues, FiveHundredRecordsCannotBeFollowedByAnEndRecord) {
    const std::string record = "1 1 1 1 2 1 2 3 4 5 6";
    EXPECT_EQ(read_values(std::vector<std::string>(499, record)), Cause::none);
    EXPECT_EQ(cmn().NUMSPC, 499);
    EXPECT_EQ(read_values(std::vector<std::string>(500, record)), Cause::bad_value);
    EXPECT_EQ(cmn().NUMSPC, 500);
    EXPECT_EQ(log(), "\n **** SR/READPI : SPEC NODE VALUES  NOW,MAX=  501  500\n");
    EXPECT_EQ(in.LOC, 1400);
}

} // namespace
} // namespace korvat::test
