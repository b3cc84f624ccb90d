// Tests of the cross-section type data of revision 4: scaling, checks, skipped numbers.
#include "section_fixture.hpp"

namespace korvat::test {
namespace {

class CrossSectionSection : public SectionTest {
protected:
    CrossSectionSection() {
        cmn().IREV = 4;
        cmn().NUMMAT = 3;
        cmn().NUMCRS = 1;
    }

    Cause read_sections(const std::vector<std::string>& records) {
        return read_section(read_cross_sections, under_headings(2, records));
    }

    // What a failing section adds to the log.
    std::string log_of(const std::vector<std::string>& records) {
        const std::size_t start = log().size();
        EXPECT_EQ(read_sections(records), Cause::bad_value) << records.back();
        return log().substr(start);
    }

    std::vector<double> values(int N) {
        return {cmn().DIAM(N),  cmn().WALL(N),  cmn().STFAX(N), cmn().STFBN(N),
                cmn().STFSH(N), cmn().STFTO(N), cmn().UWFLD(N)};
    }
};

std::string section_error(const std::string& number_and_error) {
    return "\n **** SR/READPI : CROSS SECTION ERROR  NUM,IERR=" + number_and_error + "\n";
}

TEST_F(CrossSectionSection, StoresEveryValue) {
    cmn().NUMCRS = 2;
    EXPECT_EQ(read_sections({"1 3 1.5 0.25 1 2 3 4 5", "2 1 2 1 0 0 0 0 10"}), Cause::none);
    EXPECT_EQ(cmn().MATCRS(1), 3);
    EXPECT_EQ(values(1), (std::vector{1.5, 0.25, 1.0, 2.0, 3.0, 4.0, 5.0}));
    EXPECT_EQ(cmn().MATCRS(2), 1);
    EXPECT_EQ(values(2), (std::vector{2.0, 1.0, 0.0, 0.0, 0.0, 0.0, 10.0}));
    EXPECT_EQ(cmn().ITYCRS(1), 0);
    EXPECT_EQ(cmn().NLCRS(1), 0);
    EXPECT_EQ(cmn().NLINE, 5);
    EXPECT_EQ(in.LOC, 402);
    EXPECT_EQ(log(), "");
}

TEST_F(CrossSectionSection, EveryValueIsMultipliedByOneFactor) {
    set_factors(4.44822, 0.3048);
    const double stiffness = 4.44822 * 0.3048 * 0.3048;
    const double weight = 4.44822 / 0.3048 / 0.3048 / 0.3048;
    int apart = 0;
    for (int v = 11; v < 31; ++v) {
        const std::string text = std::to_string(v);
        EXPECT_EQ(read_sections({"1 1 " + text + " 1 " + text + " " + text + " " + text + " " +
                                 text + " " + text}),
                  Cause::none);
        EXPECT_EQ(values(1), (std::vector{v * 0.3048, 0.3048, v * 4.44822, v * stiffness,
                                          v * 4.44822, v * stiffness, v * weight}));
        apart += v * 4.44822 * 0.3048 * 0.3048 == v * stiffness ? 0 : 1;
    }
    EXPECT_GT(apart, 0); // else this test could not tell one order from the other
}

TEST_F(CrossSectionSection, SkippedSectionsSitAtTheMiddlesOfEqualParts) {
    cmn().NUMCRS = 4;
    EXPECT_EQ(read_sections({"1 2 10 1 100 1000 0 8 40", "4 3 18 2 300 2000 4 0 0"}), Cause::none);
    // Two parts, a quarter and three quarters of the way.
    EXPECT_EQ(values(2), (std::vector{12.0, 1.25, 150.0, 1250.0, 1.0, 6.0, 30.0}));
    EXPECT_EQ(values(3), (std::vector{16.0, 1.75, 250.0, 1750.0, 3.0, 2.0, 10.0}));
    EXPECT_EQ(cmn().MATCRS(2), 2); // the material of the section before
    EXPECT_EQ(cmn().MATCRS(3), 2);
    EXPECT_EQ(cmn().MATCRS(4), 3);
}

TEST_F(CrossSectionSection, OneSkippedSectionIsTheMean) {
    cmn().NUMCRS = 3;
    EXPECT_EQ(read_sections({"1 2 10 1 100 1000 0 8 40", "3 3 18 2 300 2000 4 0 0"}), Cause::none);
    EXPECT_EQ(values(2), (std::vector{14.0, 1.5, 200.0, 1500.0, 2.0, 4.0, 20.0}));
    EXPECT_EQ(cmn().MATCRS(2), 2);
}

TEST_F(CrossSectionSection, SkippedSectionsAreFormedFromScaledValues) {
    set_factors(4.44822, 0.3048);
    cmn().NUMCRS = 4;
    EXPECT_EQ(read_sections({"1 1 11 1 0 0 0 0 0", "4 1 17 1 0 0 0 0 0"}), Cause::none);
    const double first = 11 * 0.3048;
    const double last = 17 * 0.3048;
    EXPECT_EQ(cmn().DIAM(2), first + (last - first) / 2 * 0.5);
    EXPECT_EQ(cmn().DIAM(3), first + (last - first) / 2 * 1.5);
}

TEST_F(CrossSectionSection, EndsWithTheLastNumberWhateverFollows) {
    cmn().NUMCRS = 3;
    EXPECT_EQ(read_sections({"1 1 2 1 0 0 0 0 0", "3 1 2 1 0 0 0 0 0", "next"}), Cause::none);
    EXPECT_EQ(next_line(12), "next");
    EXPECT_EQ(in.LOC, 402); // the second record
}

TEST_F(CrossSectionSection, NumbersMustIncreaseFromOne) {
    cmn().NUMCRS = 9;
    const std::string text = "\n **** SR/READPI : CROSS SECTION SEQUENCE ERROR";
    EXPECT_EQ(log_of({"0 1 2 1 0 0 0 0 0"}), text + "    0    0\n");
    EXPECT_EQ(log_of({"-1e300 1 2 1 0 0 0 0 0"}), text + "-2147483648    0\n");
    EXPECT_EQ(log_of({"1 1 2 1 0 0 0 0 0", "1 1 2 1 0 0 0 0 0"}), text + "    1    1\n");
    EXPECT_EQ(log_of({"2 1 2 1 0 0 0 0 0"}), "\n **** SR/READPI : FIRST CROSS SECTION MUST BE 1\n");
    EXPECT_EQ(log_of({"1e300 1 2 1 0 0 0 0 0"}),
              "\n **** SR/READPI : FIRST CROSS SECTION MUST BE 1\n");
}

TEST_F(CrossSectionSection, ErrorNumbers) {
    cmn().NUMCRS = 2;
    EXPECT_EQ(log_of({"1 1 0 1 0 0 0 0 0"}), section_error("    1    3")); // the later one
    EXPECT_EQ(log_of({"1 1 -1 -1 0 0 0 0 0"}), section_error("    1    2"));
    EXPECT_EQ(log_of({"1 1 2 0 0 0 0 0 0"}), section_error("    1    2"));
    EXPECT_EQ(log_of({"1 1 2 1.5 0 0 0 0 0"}), section_error("    1    3"));
    EXPECT_EQ(log_of({"1 0 2 1.5 0 0 0 0 0"}), section_error("    1    5"));
    EXPECT_EQ(log_of({"1 4 2 1 0 0 0 0 0"}), section_error("    1    6"));
    EXPECT_EQ(log_of({"1 1 2 1 0 0 0 0 0", "3 1 2 1 0 0 0 0 0"}), section_error("    3    4"));
}

TEST_F(CrossSectionSection, DiameterBelowTheToleranceAlone) {
    cmn().TOL = 0.5;
    EXPECT_EQ(log_of({"1 1 0.25 0.5 0 0 0 0 0"}), section_error("    1    1"));
    EXPECT_EQ(read_sections({"1 1 0.5 0.75 0 0 0 0 0"}), Cause::none); // both at their limits
}

TEST_F(CrossSectionSection, NumbersOutsideEveryTableAreRefused) {
    cmn().NUMCRS = 200;
    const std::string first = "1 1 2 1 0 0 0 0 0";
    EXPECT_EQ(log_of({first, "201 1 2 1 0 0 0 0 0"}), section_error("  201    4"));
    EXPECT_EQ(log_of({first, "1e300 1 2 1 0 0 0 0 0"}), section_error("2147483647    4"));
    EXPECT_EQ(log_of({first, "1e300 1e300 2 1 0 0 0 0 0"}), section_error("2147483647    6"));
    EXPECT_EQ(log_of({"1 1e300 2 1 0 0 0 0 0"}), section_error("    1    6"));
    EXPECT_EQ(log_of({"1 -1e300 2 1 0 0 0 0 0"}), section_error("    1    5"));
}

TEST_F(CrossSectionSection, HugeSizes) {
    EXPECT_EQ(log_of({"1 1 1 1e300 0 0 0 0 0"}), section_error("    1    3"));
    EXPECT_EQ(read_sections({"1 1 1e300 1 0 0 0 0 0"}), Cause::none);
    EXPECT_EQ(cmn().DIAM(1), in.VAR(3));
}

} // namespace
} // namespace korvat::test
