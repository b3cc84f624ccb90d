// Tests of the cross-section tables of the listing: properties, composites, yield curves.
#include "listing_fixture.hpp"

namespace korvat::test {
namespace {

class ListingSections : public ListingTest {
protected:
    ListingSections() {
        cmn().NUMMAT = 2;
        cmn().EMOD(1) = 2.1e8;
        cmn().EMOD(2) = 3.0e7;
    }

    std::string tables() {
        return written([&] { write_cross_section_tables(cmn()); });
    }
    std::string composites() {
        return written([&] { write_composite_table(cmn()); });
    }
    std::string curves() {
        return written([&] { write_curve_table(cmn()); });
    }

    // The rows of the second table for sections of these materials.
    std::string stiffness_rows(const std::vector<int>& materials) {
        cmn().NUMCRS = static_cast<int>(materials.size());
        for (std::size_t k = 0; k < materials.size(); ++k)
            cmn().MATCRS(static_cast<int>(k) + 1) = materials[k];
        const std::string text = tables();
        const std::size_t start = text.find(stiffness_heading) + stiffness_heading.size();
        return text.substr(start, text.find(sums_heading) - start);
    }

    void give_composite(int i, int first, int count) {
        cmn().ITYCRS(i) = count;
        for (int j = 1; j <= count; ++j)
            cmn().ICOMP(j, i) = first + j - 1;
    }

    void give_point(int p, int i, double axial_elastic, double elastic, double axial_plastic,
                    double plastic) {
        cmn().NLCRS(i) = std::max(cmn().NLCRS(i), p);
        cmn().FAXEL(p, i) = axial_elastic;
        cmn().FMOEL(p, i) = elastic;
        cmn().FAXPL(p, i) = axial_plastic;
        cmn().FMOPL(p, i) = plastic;
    }
};

constexpr std::string_view zero_stiffnesses = "  0.000E+00  0.000E+00  0.000E+00  0.000E+00\n";

TEST_F(ListingSections, PropertiesOfOneSection) {
    cmn().NUMCRS = 1;
    cmn().MATCRS(1) = 2;
    cmn().ITYCRS(1) = 1;
    cmn().NLCRS(1) = 10;
    cmn().ECC(1) = -0.125;
    for (int s = 1; s <= 20; ++s)
        cmn().CRSVAL(s, 1) = s * 1000.0; // its slot shows where a value comes from
    cmn().CRSVAL(1, 1) = 1.25;
    cmn().CRSVAL(2, 1) = 0.0625;
    for (int j = 1; j <= 3; ++j)
        cmn().CMISC(j, 1) = j + 0.5;
    EXPECT_EQ(
        tables(),
        sizes_heading +
            std::string("   1    2    1.2500    0.0625    3.000E+03   4.000E+03   9.000E+03"
                        "   1.000E+04\n") +
            std::string(stiffness_heading) +
            "   1    2    1.200E+04  3.000E+07  5.000E+03  6.000E+03  7.000E+03  8.000E+03\n" +
            std::string(sums_heading) +
            "   1       1     10    -0.125   1.600E+04   1.700E+04   1.500  2.500  3.500\n");
}

TEST_F(ListingSections, SubSectionsAreListedToo) {
    cmn().NUMCRS = 3; // as build leaves it: a composite and its two tubes
    give_composite(1, 2, 2);
    cmn().ITYCRS(2) = cmn().ITYCRS(3) = 1;
    cmn().MATCRS(2) = cmn().MATCRS(3) = 1;
    const std::string zeros4 = "   0.000E+00   0.000E+00   0.000E+00   0.000E+00\n";
    EXPECT_EQ(tables(),
              sizes_heading +
                  ("   1    0    0.0000    0.0000 " + zeros4 + "   2    1    0.0000    0.0000 " +
                   zeros4 + "   3    1    0.0000    0.0000 " + zeros4) +
                  std::string(stiffness_heading) + "   1    0    0.000E+00  0.000E+00" +
                  std::string(zero_stiffnesses) + "   2    1    0.000E+00  2.100E+08" +
                  std::string(zero_stiffnesses) + "   3    1    0.000E+00  2.100E+08" +
                  std::string(zero_stiffnesses) + std::string(sums_heading) +
                  "   1       2      0     0.000   0.000E+00   0.000E+00   0.000  0.000  "
                  "0.000\n"
                  "   2       1      0     0.000   0.000E+00   0.000E+00   0.000  0.000  "
                  "0.000\n"
                  "   3       1      0     0.000   0.000E+00   0.000E+00   0.000  0.000  "
                  "0.000\n");
}

TEST_F(ListingSections, ModulusOfMaterialZeroIsZero) {
    EXPECT_EQ(stiffness_rows({1, 0, 2}),
              "   1    1    0.000E+00  2.100E+08" + std::string(zero_stiffnesses) +
                  "   2    0    0.000E+00  0.000E+00" + std::string(zero_stiffnesses) +
                  "   3    2    0.000E+00  3.000E+07" + std::string(zero_stiffnesses));
}

TEST_F(ListingSections, ModulusOfANegativeMaterialIsThatOfTheSectionBefore) {
    EXPECT_EQ(stiffness_rows({-3, 2, -1, -1, 0, -1}),
              "   1   -3    0.000E+00  0.000E+00" + std::string(zero_stiffnesses) +
                  "   2    2    0.000E+00  3.000E+07" + std::string(zero_stiffnesses) +
                  "   3   -1    0.000E+00  3.000E+07" + std::string(zero_stiffnesses) +
                  "   4   -1    0.000E+00  3.000E+07" + std::string(zero_stiffnesses) +
                  "   5    0    0.000E+00  0.000E+00" + std::string(zero_stiffnesses) +
                  "   6   -1    0.000E+00  0.000E+00" + std::string(zero_stiffnesses));
}

TEST_F(ListingSections, MaterialBeyondTheTableHasNoModulus) {
    EXPECT_EQ(stiffness_rows({2147483647}),
              "   12147483647    0.000E+00  0.000E+00" + std::string(zero_stiffnesses));
}

TEST_F(ListingSections, NoComposites) {
    cmn().NUMCRS = 2;
    cmn().ITYCRS(1) = cmn().ITYCRS(2) = 1;
    EXPECT_EQ(composites(),
              composite_heading + std::string("\n There are no composite cross sections\n"));
}

TEST_F(ListingSections, CompositesOfTwoFourFiveAndTwelve) {
    cmn().NUMCRS = 28;
    give_composite(1, 6, 2);
    cmn().ITYCRS(2) = 1;
    give_composite(3, 8, 4);
    give_composite(4, 12, 5);
    give_composite(5, 17, 12);
    EXPECT_EQ(composites(), composite_heading + std::string("\n"
                                                            " Cross    Made up by the\n"
                                                            " section  following sub-sections\n"
                                                            "    1      6   7\n"
                                                            "    3      8   9  10  11\n"
                                                            // a further line begins with i5
                                                            "    4     12  13  14  15\n"
                                                            "   16\n"
                                                            "    5     17  18  19  20\n"
                                                            "   21     22  23  24  25\n"
                                                            "   26     27  28\n"));
}

TEST_F(ListingSections, NoCurves) {
    cmn().NUMCRS = 2;
    EXPECT_EQ(curves(), curve_heading + std::string("\n There are no non-linear cross sections\n"));
}

constexpr std::string_view point_heading =
    "\n"
    " Cross    Point   Elastic yield curve     Plastic yield curve\n"
    " section   no.     Axial      Moment       Axial      Moment\n";

TEST_F(ListingSections, PointsOfCurves) {
    cmn().NUMCRS = 4;
    give_point(1, 2, 8.0, 0.0, 9.0, 0.0);
    give_point(2, 2, -8.5, 1.0, -9.5, 2.0);
    give_point(1, 4, 1.0e5, -1.0e-5, 12340.0, 0.25);
    EXPECT_EQ(curves(),
              curve_heading + std::string(point_heading) +
                  "    2       1     8.000E+00  0.000E+00    9.000E+00  0.000E+00\n"
                  "    2       2    -8.500E+00  1.000E+00   -9.500E+00  2.000E+00\n"
                  " \n" // before every section but the first printed
                  "    4       1     1.000E+05 -1.000E-05    1.234E+04  2.500E-01\n");
}

TEST_F(ListingSections, TenPointsOfTheLastSection) {
    cmn().NUMCRS = 200;
    std::string rows;
    for (int p = 1; p <= 10; ++p) {
        give_point(p, 200, 0.0, 0.0, 0.0, 0.0);
        rows += (p < 10 ? "  200       " : "  200      ") + std::to_string(p) +
                "     0.000E+00  0.000E+00    0.000E+00  0.000E+00\n";
    }
    EXPECT_EQ(curves(), curve_heading + std::string(point_heading) + rows);
}

TEST_F(ListingSections, NegativeCodeWithoutPoints) {
    cmn().NUMCRS = 1;
    cmn().NLCRS(1) = -1;
    EXPECT_EQ(curves(), curve_heading + std::string(point_heading));
}

} // namespace
} // namespace korvat::test
