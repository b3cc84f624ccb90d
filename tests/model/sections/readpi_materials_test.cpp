// Tests of the material types section: scaling, checks, warnings.
#include "section_fixture.hpp"

namespace korvat::test {
namespace {

class MaterialSection : public SectionTest {
protected:
    MaterialSection() {
        cmn().IREV = 4;
        cmn().NUMMAT = 1;
    }

    Cause read_materials(const std::vector<std::string>& records) {
        return read_section(read_material_types, under_headings(2, records));
    }

    // What one material adds to the log.
    std::string log_of(const std::string& record, Cause expected_cause) {
        const std::size_t start = log().size();
        EXPECT_EQ(read_materials({record}), expected_cause) << record;
        return log().substr(start);
    }
};

std::string material_error(const std::string& number) {
    return "\n **** SR/READPI : MATERIAL ERROR  MAT,IERR=    1    " + number + "\n";
}

TEST_F(MaterialSection, StoresEveryMaterial) {
    cmn().NUMMAT = 2;
    EXPECT_EQ(read_materials({"1 8 4 0.125 77 0.00005", "2 6 3 0 25 0"}), Cause::none);
    EXPECT_EQ(cmn().EMOD(1), 8.0);
    EXPECT_EQ(cmn().GMOD(1), 4.0);
    EXPECT_EQ(cmn().SIGYLD(1), 0.125);
    EXPECT_EQ(cmn().UWWALL(1), 77.0);
    EXPECT_NEAR(cmn().EPSTMP(1), 5e-5, 1e-19); // the deck's conversion may miss the last bit
    EXPECT_EQ(cmn().EMOD(2), 6.0);
    EXPECT_EQ(cmn().UWWALL(2), 25.0);
    EXPECT_EQ(cmn().NLINE, 5);
    EXPECT_EQ(in.LOC, 302);
    EXPECT_EQ(log(), "");
}

TEST_F(MaterialSection, ScalesByTheStressFactor) {
    set_factors(4.44822, 0.3048);
    const double stress = 4.44822 / 0.3048 / 0.3048;
    EXPECT_EQ(read_materials({"1 21.7 8.13 0.0271 0.283 0.000012"}), Cause::none);
    EXPECT_EQ(cmn().EMOD(1), in.VAR(2) * stress);
    EXPECT_EQ(cmn().GMOD(1), in.VAR(3) * stress);
    EXPECT_EQ(cmn().SIGYLD(1), in.VAR(4) * stress);
    EXPECT_EQ(cmn().UWWALL(1), in.VAR(5) * (stress / 0.3048)); // the factor is formed first
    EXPECT_EQ(cmn().EPSTMP(1), in.VAR(6));
}

TEST_F(MaterialSection, UnitWeightIsMultipliedByOneFactor) {
    set_factors(4.44822, 0.3048);
    int apart = 0;
    for (int weight = 70; weight < 90; ++weight) {
        EXPECT_EQ(read_materials({"1 21 8 0 " + std::to_string(weight) + " 0"}), Cause::none);
        const double factor = stress_factor(cmn()) / 0.3048;
        EXPECT_EQ(cmn().UWWALL(1), weight * factor);
        apart += weight * stress_factor(cmn()) / 0.3048 == weight * factor ? 0 : 1;
    }
    EXPECT_GT(apart, 0); // else this test could not tell one order from the other
}

TEST_F(MaterialSection, NumbersMustFollowOneAnother) {
    const std::string text = "\n **** SR/READPI : MATERIAL TYPES SEQUENCE ERROR    1";
    EXPECT_EQ(log_of("2 6 3 0 0 0", Cause::bad_value), text + "    2\n");
    EXPECT_EQ(log_of("0.49 6 3 0 0 0", Cause::bad_value), text + "    0\n");
    EXPECT_EQ(log_of("1e300 6 3 0 0 0", Cause::bad_value), text + "2147483647\n");
    EXPECT_EQ(log_of("-1e300 6 3 0 0 0", Cause::bad_value), text + "-2147483648\n");
    EXPECT_EQ(cmn().EMOD(1), 0.0);
    EXPECT_EQ(log_of("0.5 6 3 0 0 0", Cause::none), "");
}

TEST_F(MaterialSection, ModuliMustBePositive) {
    EXPECT_EQ(log_of("1 0 3 0 0 0", Cause::bad_value), material_error("1"));
    EXPECT_EQ(log_of("1 -6 3 0 0 0", Cause::bad_value), material_error("1"));
    EXPECT_EQ(log_of("1 6 0 0 0 0", Cause::bad_value), material_error("2"));
    EXPECT_EQ(log_of("1 0 0 0 0 0", Cause::bad_value), material_error("2"));
    EXPECT_EQ(log_of("1 6 3 0 0 -1", Cause::bad_value), material_error("6"));
    EXPECT_EQ(log_of("1 0 0 0 0 -1", Cause::bad_value), material_error("6"));
}

TEST_F(MaterialSection, ModuliEqualToTheToleranceAreAccepted) {
    cmn().TOL = 0.5;
    EXPECT_EQ(log_of("1 0.5 0.5 0 0 -0.5", Cause::none), ""); // nu is -0.5, just not below -TOL
    EXPECT_EQ(log_of("1 0.5 0.25 0 0 0", Cause::bad_value), material_error("2"));
    EXPECT_EQ(log_of("1 0.5 0.5 0 0 -0.75", Cause::bad_value), material_error("6"));
}

TEST_F(MaterialSection, PoissonRatioOutsideItsRangeIsWarnedAbout) {
    const std::string text = "\n WARNING FROM SR/READPI :  N,EMOD,GMOD=    1  0.6000E+01";
    EXPECT_EQ(log_of("1 6 3 0 0 0", Cause::none), "");                        // nu 0
    EXPECT_EQ(log_of("1 6 2 0 0 0", Cause::none), "");                        // nu 0.5
    EXPECT_EQ(log_of("1 6 1.5 0 0 0", Cause::none), text + "  0.1500E+01\n"); // nu 1
    EXPECT_EQ(log_of("1 6 4 0 0 0", Cause::none), text + "  0.4000E+01\n");   // nu -0.25
    EXPECT_EQ(log_of("1 3.1 1 0 0 0", Cause::none),                           // nu 0.55
              "\n WARNING FROM SR/READPI :  N,EMOD,GMOD=    1  0.3100E+01  0.1000E+01\n");
}

TEST_F(MaterialSection, LimitOfThePoissonRatioIsTheSinglePrecisionOne) {
    // E / 2G - 1 = 0.50010001: above 0.5001, and below the limit 0.50010001659....
    EXPECT_EQ(log_of("1 3.00020002 1 0 0 0", Cause::none), "");
    EXPECT_EQ(log_of("1 3.00020004 1 0 0 0", Cause::none), // nu 0.50010002
              "\n WARNING FROM SR/READPI :  N,EMOD,GMOD=    1  0.3000E+01  0.1000E+01\n");
}

TEST_F(MaterialSection, YieldStressOutOfProportionIsWarnedAbout) {
    const std::string text = "\n WARNING FROM SR/READPI :  N,EMOD,SIGYLD=    1  0.1000E+04";
    EXPECT_EQ(log_of("1 1000 400 20 0 0", Cause::none), "");                         // ratio 50
    EXPECT_EQ(log_of("1 1000 400 25 0 0", Cause::none), text + "  0.2500E+02\n");    // 40
    EXPECT_EQ(log_of("1 1000 400 0.25 0 0", Cause::none), "");                       // 4000
    EXPECT_EQ(log_of("1 1000 400 0.125 0 0", Cause::none), text + "  0.1250E+00\n"); // 8000
    EXPECT_EQ(log_of("1 5000 2000 1 0 0", Cause::none), "");                         // 5000
    EXPECT_EQ(log_of("1 1000 400 0 0 0", Cause::none), "");                          // not checked
    EXPECT_EQ(log_of("1 1000 400 -7 0 0", Cause::none), "");
}

TEST_F(MaterialSection, WarningsStandInOrderAndDoNotStop) {
    EXPECT_EQ(log_of("1 6 1.5 1 0 1", Cause::none),
              "\n WARNING FROM SR/READPI :  N,EMOD,GMOD=    1  0.6000E+01  0.1500E+01\n"
              "\n WARNING FROM SR/READPI :  N,EMOD,SIGYLD=    1  0.6000E+01  0.1000E+01\n"
              "\n WARNING FROM SR/READPI :  N,EPSTMP=    1  0.1000E+01\n");
}

TEST_F(MaterialSection, OnlyTheTemperatureWarningStandsBesideAnError) {
    EXPECT_EQ(log_of("1 0 1.5 1 0 1", Cause::bad_value),
              "\n WARNING FROM SR/READPI :  N,EPSTMP=    1  0.1000E+01\n" + material_error("1"));
}

TEST_F(MaterialSection, LimitOfTheTemperatureStrainIsTheSinglePrecisionOne) {
    // The limit 9.99999974...e-5 is below 1.0e-4.
    EXPECT_EQ(log_of("1 6 3 0 0 1.0e-4", Cause::none),
              "\n WARNING FROM SR/READPI :  N,EPSTMP=    1  0.1000E-03\n");
    EXPECT_EQ(log_of("1 6 3 0 0 9.9999997e-5", Cause::none), "");
}

TEST_F(MaterialSection, Revision5HasAThirdHeading) {
    cmn().IREV = 5;
    EXPECT_EQ(read_section(read_material_types, under_headings(3, {"1 6 3 0 0 0"})), Cause::none);
    EXPECT_EQ(cmn().EMOD(1), 6.0);
    EXPECT_EQ(cmn().NLINE, 5);
}

TEST_F(MaterialSection, ValuesThatOverflowWhenScaledAreShownAsAsterisks) {
    set_factors(1e10, 1.0);
    EXPECT_EQ(log_of("1 1e300 1e290 0 0 0", Cause::none), // infinity, and nu is infinite
              "\n WARNING FROM SR/READPI :  N,EMOD,GMOD=    1************  0.1000+301\n");
}

} // namespace
} // namespace korvat::test
