// Tests of the control section: stored values, limits, levels.
#include "section_fixture.hpp"

namespace korvat::test {
namespace {

// FACF, FACL, NUMPIL, NUMCRS, NUMMAT, NUMSEG, NUMLOD, JPRINT, JECHO.
using Control = std::vector<std::string>;

constexpr std::size_t piles = 2;
constexpr std::size_t echo_level = 8;

class ControlSection : public SectionTest {
protected:
    Cause read_control(const Control& values) {
        return read_section(read_control_section, under_headings(1, values));
    }

    Cause read_with(std::size_t place, const std::string& value) {
        Control values = good;
        values[place] = value;
        return read_control(values);
    }

    const Control good = {"1", "1", "1", "1", "1", "1", "0", "0", "0"};
};

TEST_F(ControlSection, StoresEveryValue) {
    EXPECT_EQ(read_control({"2.5", "0.5", "3", "4", "5", "6", "7", "2", "1"}), Cause::none);
    EXPECT_EQ(cmn().FACF, 2.5);
    EXPECT_EQ(cmn().FACL, 0.5);
    EXPECT_EQ(stress_factor(cmn()), 10.0); // 2.5 / 0.5 / 0.5
    EXPECT_EQ(cmn().NUMPIL, 3);
    EXPECT_EQ(cmn().NUMCRS, 4);
    EXPECT_EQ(cmn().NUMMAT, 5);
    EXPECT_EQ(in.NUMSEG, 6);
    EXPECT_EQ(cmn().NUMLOD, 7);
    EXPECT_EQ(cmn().JPRINT, 2);
    EXPECT_EQ(cmn().JECHO, 1);
    EXPECT_EQ(cmn().NLINE, 11);
    EXPECT_EQ(in.LOC, 255);
    EXPECT_EQ(log(), "");
}

TEST_F(ControlSection, StressFactorIsDividedTwice) {
    int apart = 0;
    for (int force = 1; force <= 20; ++force) {
        EXPECT_EQ(
            read_control({std::to_string(force), "0.3048", "1", "1", "1", "1", "0", "0", "0"}),
            Cause::none);
        const double length = cmn().FACL;
        EXPECT_NEAR(length, 0.3048, 1e-15); // the deck's conversion may miss the last bit
        EXPECT_EQ(stress_factor(cmn()), force / length / length);
        apart += force / length / length == force / (length * length) ? 0 : 1;
    }
    EXPECT_GT(apart, 0); // else this test could not tell one order from the other
}

TEST_F(ControlSection, FactorBelowTheToleranceIsOne) {
    for (const std::string small : {"0", "-5", "0.9e-10", "1e-300"}) {
        EXPECT_EQ(read_control({small, small, "1", "1", "1", "1", "0", "0", "0"}), Cause::none);
        EXPECT_EQ(cmn().FACF, 1.0) << small;
        EXPECT_EQ(cmn().FACL, 1.0) << small;
        EXPECT_EQ(stress_factor(cmn()), 1.0) << small;
    }
    EXPECT_EQ(read_control({"1.1e-10", "1", "1", "1", "1", "1", "0", "0", "0"}), Cause::none);
    EXPECT_NEAR(cmn().FACF, 1.1e-10, 1e-24);
}

TEST_F(ControlSection, FactorEqualToTheToleranceIsKept) {
    cmn().TOL = 0.5;
    EXPECT_EQ(read_control({"0.5", "0.25", "1", "1", "1", "1", "0", "0", "0"}), Cause::none);
    EXPECT_EQ(cmn().FACF, 0.5);
    EXPECT_EQ(cmn().FACL, 1.0);
}

TEST_F(ControlSection, IntegersAreRoundedHalfUp) {
    EXPECT_EQ(read_control({"1", "1", "1.5", "2.49", "0.5", "3.5", "-0.5", "0.49", "-0.5"}),
              Cause::none);
    EXPECT_EQ(cmn().NUMPIL, 2);
    EXPECT_EQ(cmn().NUMCRS, 2);
    EXPECT_EQ(cmn().NUMMAT, 1);
    EXPECT_EQ(in.NUMSEG, 4);
    EXPECT_EQ(cmn().NUMLOD, 0);
    EXPECT_EQ(cmn().JPRINT, 0);
    EXPECT_EQ(cmn().JECHO, 0);
    EXPECT_EQ(log(), "");
}

TEST_F(ControlSection, CountsHaveLimits) {
    struct Count {
        std::string name;
        int most;
        std::string most_shown;
    };
    const std::vector<Count> counts = {{"NUMPIL", 200, "  200"},
                                       {"NUMCRS", 200, "  200"},
                                       {"NUMMAT", 20, "   20"},
                                       {"NUMSEG", 1000, " 1000"}};
    for (std::size_t i = 0; i < counts.size(); ++i) {
        const auto& [name, most, most_shown] = counts[i];
        EXPECT_EQ(read_with(piles + i, std::to_string(most)), Cause::none) << name;
        const auto expect_refused = [&](const std::string& value, const std::string& shown) {
            const std::size_t start = log().size();
            EXPECT_EQ(read_with(piles + i, value), Cause::bad_value) << name;
            EXPECT_EQ(log().substr(start), "\n **** SR/READPI : " + name + " PROBLEM  " + name +
                                               ",MAX=" + shown + most_shown + "\n");
        };
        expect_refused("0", "    0");
        expect_refused("0.49", "    0");
        expect_refused("-3", "   -3");
        const std::string above = std::to_string(most + 1);
        expect_refused(above, std::string(5 - above.size(), ' ') + above);
        expect_refused("1e300", "2147483647");
        expect_refused("-1e300", "-2147483648");
    }
}

TEST_F(ControlSection, FirstCountOutOfRangeIsReported) {
    EXPECT_EQ(read_control({"1", "1", "1", "201", "21", "1001", "0", "9", "9"}), Cause::bad_value);
    EXPECT_EQ(log(), "\n **** SR/READPI : NUMCRS PROBLEM  NUMCRS,MAX=  201  200\n");
    EXPECT_EQ(cmn().JPRINT, 9); // the levels are not looked at
}

TEST_F(ControlSection, HugeNumberOfLoadVectors) {
    EXPECT_EQ(read_with(6, "1e300"), Cause::none);
    EXPECT_EQ(cmn().NUMLOD, 2147483647);
    EXPECT_EQ(read_with(6, "-1e300"), Cause::none);
    EXPECT_EQ(cmn().NUMLOD, -2147483647 - 1);
}

struct Level {
    std::string given;
    int kept;
    std::string warning; // the number shown; empty without a warning
};

TEST_F(ControlSection, PrintLevelIsHeldWithin0And2) {
    for (const Level& level : std::vector<Level>{{"0", 0, ""},
                                                 {"1", 1, ""},
                                                 {"2", 2, ""},
                                                 {"3", 2, "    3"},
                                                 {"-1", 0, "   -1"},
                                                 {"1e300", 2, "2147483647"},
                                                 {"-1e300", 0, "-2147483648"}}) {
        const std::size_t start = log().size();
        EXPECT_EQ(read_with(7, level.given), Cause::none);
        EXPECT_EQ(cmn().JPRINT, level.kept);
        EXPECT_EQ(log().substr(start),
                  level.warning.empty()
                      ? ""
                      : "\n WARNING FROM SR/READPI :  JPRINT=" + level.warning + "\n");
    }
}

TEST_F(ControlSection, EchoLevel2IsWarnedAboutAndKept) {
    for (const Level& level : std::vector<Level>{{"0", 0, ""},
                                                 {"1", 1, ""},
                                                 {"2", 2, "    2"},
                                                 {"3", 2, "    3"},
                                                 {"-1", 0, "   -1"},
                                                 {"1e300", 2, "2147483647"},
                                                 {"-1e300", 0, "-2147483648"}}) {
        const std::size_t start = log().size();
        EXPECT_EQ(read_with(echo_level, level.given), Cause::none);
        EXPECT_EQ(cmn().JECHO, level.kept);
        EXPECT_EQ(log().substr(start),
                  level.warning.empty()
                      ? ""
                      : "\n WARNING FROM SR/READPI :  JECHO=" + level.warning + "\n");
    }
}

TEST_F(ControlSection, StopsAtTheFirstRecordThatFails) {
    EXPECT_EQ(read_with(echo_level, "x"), Cause::record_fault);
    EXPECT_EQ(in.LOC, 255);
    EXPECT_EQ(cmn().NUMPIL, 1); // what was stored before stays
    for (std::size_t record = 0; record < good.size(); ++record) {
        EXPECT_EQ(read_with(record, "x"), Cause::record_fault);
        EXPECT_EQ(in.LOC, 215 + 5 * static_cast<int>(record));
    }
}

} // namespace
} // namespace korvat::test
