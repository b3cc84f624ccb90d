// Tests of the values of one cross section: scaling, size checks, storing.
#include "support/model_fixture.hpp"

#include "model/sections/tube_record.hpp"

namespace korvat::test {
namespace {

class TubeRecordTest : public ModelTest {
protected:
    TubeRecordTest() { cmn().FACF = cmn().FACL = 1.0; }

    // Error number and value at fault of a record that gives the diameter as its fifth value.
    std::pair<int, int> size_error_of(double DIAM, double WALL) {
        const ValueError error = size_error(TubeRecord{.DIAM = DIAM, .WALL = WALL}, cmn(), 5);
        return {error.number, error.value};
    }

    static constexpr std::pair accepted{0, 0};
    static constexpr std::pair no_diameter{1, 5};
    static constexpr std::pair no_wall{2, 6};
    static constexpr std::pair thick_wall{3, 6};
};

constexpr TubeRecord sample = {.MATCRS = 3,
                               .DIAM = 1.5,
                               .WALL = 0.3,
                               .STFAX = 5.7,
                               .STFBN = 7.3,
                               .STFSH = 11.9,
                               .STFTO = 13.1,
                               .UWFLD = 10.3};

TEST_F(TubeRecordTest, FactorsOfOneChangeNothing) {
    const TubeRecord tube = scaled(sample, cmn());
    EXPECT_EQ(tube.MATCRS, 3);
    EXPECT_EQ(tube.DIAM, 1.5);
    EXPECT_EQ(tube.WALL, 0.3);
    EXPECT_EQ(tube.STFAX, 5.7);
    EXPECT_EQ(tube.STFBN, 7.3);
    EXPECT_EQ(tube.STFSH, 11.9);
    EXPECT_EQ(tube.STFTO, 13.1);
    EXPECT_EQ(tube.UWFLD, 10.3);
}

TEST_F(TubeRecordTest, FactorIsFormedBeforeTheValueIsMultiplied) {
    cmn().FACF = 4.448;
    cmn().FACL = 0.3048;
    const double stress = 4.448 / 0.3048 / 0.3048;
    const TubeRecord tube = scaled(sample, cmn());
    EXPECT_EQ(tube.MATCRS, 3);
    EXPECT_EQ(tube.DIAM, 1.5 * 0.3048);
    EXPECT_EQ(tube.WALL, 0.3 * 0.3048);
    EXPECT_EQ(tube.STFAX, 5.7 * 4.448);
    EXPECT_EQ(tube.STFBN, 7.3 * (4.448 * 0.3048 * 0.3048));
    EXPECT_EQ(tube.STFSH, 11.9 * 4.448);
    EXPECT_EQ(tube.STFTO, 13.1 * (4.448 * 0.3048 * 0.3048));
    EXPECT_EQ(tube.UWFLD, 10.3 * (stress / 0.3048));
}

TEST_F(TubeRecordTest, Sizes) {
    EXPECT_EQ(size_error_of(1.0, 0.25), accepted);
    EXPECT_EQ(size_error_of(1.0, 0.5), accepted); // solid
    EXPECT_EQ(size_error_of(1.0, 0.5 + 5.0e-11), accepted);
    EXPECT_EQ(size_error_of(1.0, 0.5 + 2.0e-10), thick_wall);
    EXPECT_EQ(size_error_of(1.0, 0.0), no_wall);
    EXPECT_EQ(size_error_of(1.0, -0.25), no_wall);
    EXPECT_EQ(size_error_of(5.0e-11, 1.2e-10), no_diameter);
}

TEST_F(TubeRecordTest, LastSizeErrorCounts) {
    EXPECT_EQ(size_error_of(0.0, 0.0), no_wall);
    EXPECT_EQ(size_error_of(0.0, 0.5), thick_wall);
    EXPECT_EQ(size_error_of(-1.0, -0.25), thick_wall);
}

TEST_F(TubeRecordTest, ToleranceItselfIsAccepted) {
    EXPECT_EQ(size_error_of(1.0e-10, 1.0e-10), accepted); // the wall is not above 0.5E-10 + 1E-10
}

TEST_F(TubeRecordTest, IsStoredAtItsNumber) {
    store_tube(cmn(), 200, sample);
    EXPECT_EQ(cmn().MATCRS(200), 3);
    EXPECT_EQ(cmn().DIAM(200), 1.5);
    EXPECT_EQ(cmn().WALL(200), 0.3);
    EXPECT_EQ(cmn().STFAX(200), 5.7);
    EXPECT_EQ(cmn().STFBN(200), 7.3);
    EXPECT_EQ(cmn().STFSH(200), 11.9);
    EXPECT_EQ(cmn().STFTO(200), 13.1);
    EXPECT_EQ(cmn().UWFLD(200), 10.3);
    EXPECT_EQ(cmn().MATCRS(199), 0);
    EXPECT_EQ(cmn().ITYCRS(200), 0);
}

} // namespace
} // namespace korvat::test
