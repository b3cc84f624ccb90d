// Tests of the sub-sections of composite cross sections: slots, nesting, checks, limits.
#include "rev5_fixture.hpp"

#include <exception>

namespace korvat::test {
namespace {

class Rev5SubSections : public Rev5Test {
protected:
    // Section 1 is a composite of two, the first as given, the second whatever follows.
    std::string read_composite(Lines sub_sections) {
        sub_sections.insert(sub_sections.begin(), composite(1, 2));
        return read_section(sub_sections);
    }

    static std::string composite(int N, int type) {
        return section(std::to_string(N) + " " + std::to_string(type) + " 0 0 0 0");
    }

    // Tube j of a nest of solid rings: diameter 4 - (j - 1) / 8, wall 1 / 16.
    static std::string ring(int N, int j) {
        return section(std::to_string(N) + " " + std::to_string(j) + " 1 0 1 " +
                       std::to_string(4.0 - 0.125 * (j - 1)) + " 0.0625");
    }

    static Lines composite_of_rings(int N, int type) {
        Lines lines = {composite(N, type)};
        for (int j = 1; j <= type; ++j)
            lines.push_back(ring(N, j));
        return lines;
    }

    static std::string control(const std::string& numbers, const std::string& detail) {
        return "\n **** SR/REV5INP : Composite cross section data input control\n"
               " Cross section, sub-section, IERR=" +
               numbers + "\n" + detail + "\n";
    }

    void expect_rejected(const std::string& values, const std::string& number,
                         const std::string& detail) {
        EXPECT_EQ(read_composite({"1 1 1 0 " + values}), control("   1   1" + number, detail))
            << values;
        EXPECT_EQ(cmn().IERR, 4);
    }
};

TEST_F(Rev5SubSections, StoresASubSectionScaled) {
    cmn().FACF = 2.0;
    cmn().FACL = 4.0; // stress factor 0.125
    EXPECT_EQ(read_composite({"1 1 1 0 2 0.5 0.125 3 5 7 11 64 -0.25 13 14 15",
                              section("1 2 1 0 1 0.25 0.125")}),
              "");
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_EQ(cmn().ITYCRS(2), 1);
    EXPECT_EQ(cmn().NLCRS(2), 0);
    EXPECT_EQ(cmn().MATCRS(2), 2);
    EXPECT_EQ(cmn().DIAM(2), 2.0);
    EXPECT_EQ(cmn().WALL(2), 0.5);
    EXPECT_EQ(cmn().STFAX(2), 6.0);
    EXPECT_EQ(cmn().STFBN(2), 160.0); // 5 * 2 * 4 * 4
    EXPECT_EQ(cmn().STFSH(2), 14.0);
    EXPECT_EQ(cmn().STFTO(2), 352.0); // 11 * 2 * 4 * 4
    EXPECT_EQ(cmn().UWFLD(2), 2.0);   // 64 * (0.125 / 4)
    EXPECT_EQ(cmn().ECC(2), -0.25);   // a negative one is accepted, and kept as given
    EXPECT_EQ(cmn().CMISC(1, 2), 13.0);
    EXPECT_EQ(cmn().CMISC(2, 2), 14.0);
    EXPECT_EQ(cmn().CMISC(3, 2), 15.0);
    EXPECT_EQ(cmn().DIAM(3), 1.0); // the inner diameter 2 - 2 * 0.5
    EXPECT_EQ(cmn().ITYCRS(1), 2);
    EXPECT_EQ(cmn().ICOMP(1, 1), 2);
    EXPECT_EQ(cmn().ICOMP(2, 1), 3);
    EXPECT_EQ(cmn().NUMCRS, 1);
    EXPECT_EQ(cmn().NLINE, lines_in_front + 3);
}

TEST_F(Rev5SubSections, SlotsFollowTheCrossSectionsInDeckOrder) {
    cmn().NUMCRS = 3;
    Lines lines = composite_of_rings(1, 2);
    lines.push_back(section("2 1 0 1 9 0.5"));
    for (const std::string& line : composite_of_rings(3, 3))
        lines.push_back(line);
    EXPECT_EQ(read_section(lines), "");
    EXPECT_EQ(cmn().ICOMP(1, 1), 4);
    EXPECT_EQ(cmn().ICOMP(2, 1), 5);
    EXPECT_EQ(cmn().ICOMP(1, 2), 0);
    EXPECT_EQ(cmn().ICOMP(1, 3), 6);
    EXPECT_EQ(cmn().ICOMP(3, 3), 8);
    EXPECT_DOUBLE_EQ(cmn().DIAM(5), 3.875); // the conversion is not correctly rounded
    EXPECT_EQ(cmn().DIAM(2), 9.0);
    EXPECT_DOUBLE_EQ(cmn().DIAM(8), 3.75);
    EXPECT_EQ(cmn().NUMCRS, 3);
    EXPECT_EQ(cmn().NLINE, lines_in_front + 8);
}

TEST_F(Rev5SubSections, OuterDiameterIsTheInnerOneOfTheTubeBefore) {
    const std::string outer = section("1 1 1 0 1 1.0 0.05");
    EXPECT_EQ(read_composite({outer, section("1 2 1 0 1 0.9 0.05")}), "");
    EXPECT_EQ(cmn().IERR, 0);
    // A smaller one is refused too, whatever the text says.
    EXPECT_EQ(read_composite({outer, section("1 2 1 0 1 0.8 0.05")}),
              "\n **** SR/REV5INP : Composite cross section data input control\n"
              " Cross section, sub-section, D.inside.last, OD =   1   2  0.90000  0.80000\n"
              " Sub-section diameters must be in decreasing order\n");
    EXPECT_EQ(cmn().IERR, 4);
    EXPECT_EQ(read_composite({outer, section("1 2 1 0 1 1.0 0.05")}),
              "\n **** SR/REV5INP : Composite cross section data input control\n"
              " Cross section, sub-section, D.inside.last, OD =   1   2  0.90000  1.00000\n"
              " Sub-section diameters must be in decreasing order\n");
}

TEST_F(Rev5SubSections, SixteenValuesOverSeveralLines) {
    EXPECT_EQ(read_composite({"1 1", "", "1 0 1 4", "0.0625 0 0 0 0 0 0 0 0", "0 dropped",
                              ring(1, 2), "next"}),
              "");
    EXPECT_EQ(cmn().NLINE, lines_in_front + 7);
    EXPECT_EQ(next_line(12), "next");
}

TEST_F(Rev5SubSections, FifteenValuesAreTooFew) {
    EXPECT_EQ(read_composite({"1 1 1 0 1 4 0.0625 0 0 0 0 0 0 0 0"}), end_of_file(" 1001"));
    EXPECT_EQ(cmn().IERR, 2);
    EXPECT_EQ(cmn().NLINE, lines_in_front + 3);
}

TEST_F(Rev5SubSections, ValueThatCannotBeRead) {
    EXPECT_EQ(read_composite({ring(1, 1), section("1 2 1 0.0 1 3.875 0.0625")}), bad_data(" 1002"));
    EXPECT_EQ(cmn().IERR, 1);
    EXPECT_EQ(cmn().NLINE, lines_in_front + 3);
}

TEST_F(Rev5SubSections, LocationOfALargeSectionNumber) {
    cmn().NUMCRS = 150;
    Lines lines;
    for (int N = 1; N < 150; ++N)
        lines.push_back(section(std::to_string(N) + " 1 0 1 4 0.5"));
    lines.push_back(composite(150, 2));
    EXPECT_EQ(read_section(lines), end_of_file("150001"));
}

TEST_F(Rev5SubSections, CrossSectionNumber) {
    EXPECT_EQ(read_composite({section("2 7 7 7 7 0 0")}), // tested before all else
              "\n **** SR/REV5INP : Composite cross section numbers\n"
              " Crs no. =  2  Expected value =  1\n");
    EXPECT_EQ(cmn().IERR, 4);
}

TEST_F(Rev5SubSections, SequenceNumber) {
    EXPECT_EQ(read_composite({section("1 2 7 7 7 0 0")}),
              "\n **** SR/REV5INP : Composite cross section sequence\n"
              " Crs no. =  1 Sub-sctn =  2  Expected value =  1\n");
    EXPECT_EQ(cmn().IERR, 4);
}

TEST_F(Rev5SubSections, TypeMustBe1) {
    EXPECT_EQ(read_composite({section("1 1 2 7 7 0 0")}),
              "\n **** SR/REV5INP : Composite cross section input\n"
              " Crs no. =  1 Sub-sctn =  1 Crs type is not 1 :   2\n");
    EXPECT_EQ(cmn().IERR, 4);
    EXPECT_EQ(read_composite({section("1 1 -2147483648 7 7 0 0")}),
              "\n **** SR/REV5INP : Composite cross section input\n"
              " Crs no. =  1 Sub-sctn =  1 Crs type is not 1 :-2147483648\n");
}

TEST_F(Rev5SubSections, NonLinearCodeMustBe0) {
    EXPECT_EQ(read_composite({section("1 1 1 -1 7 0 0")}),
              "\n **** SR/REV5INP : Composite cross section input\n"
              " Crs no. =  1 Sub-sctn =  1 Non-linear is not zero:  -1\n");
    EXPECT_EQ(cmn().IERR, 4);
}

TEST_F(Rev5SubSections, Values) {
    expect_rejected("1 5e-11 1.2e-10 0 0 0 0 0 0 0 0 0", "  21", " Diameter =  0.0000");
    expect_rejected("1 1 0 0 0 0 0 0 0 0 0 0", "  22", " Wall =  0.0000");
    expect_rejected("1 1 0.75 0 0 0 0 0 0 0 0 0", "  23", " Diameter,wall =  1.0000  0.7500");
    expect_rejected("0 1 0.5 0 0 0 0 0 0 0 0 0", "  24", " Material no. =    0");
    expect_rejected("3 1 0.5 0 0 0 0 0 0 0 0 0", "  25", " Material no. =    3");
    expect_rejected("1 1 0.5 0 0 0 0 0 0.1 0 0 0", "  26",
                    " Composite sub-section, eccentricity is not zero  0.1000");
}

TEST_F(Rev5SubSections, LaterNumberReplacesAnEarlierOne) {
    expect_rejected("1 0 0 0 0 0 0 0 0 0 0 0", "  22", " Wall =  0.0000");
    expect_rejected("-2147483648 0 1 0 0 0 0 0 0 0 0 0", "  24", " Material no. =-2147483648");
    expect_rejected("2147483647 0 1 0 0 0 0 0 0.1 0 0 0", "  26",
                    " Composite sub-section, eccentricity is not zero  0.1000");
}

TEST_F(Rev5SubSections, TwelveAreAccepted) {
    EXPECT_EQ(read_section(composite_of_rings(1, 12)), "");
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_EQ(cmn().ICOMP(12, 1), 13);
    EXPECT_DOUBLE_EQ(cmn().DIAM(13), 2.625); // 4 - 11 / 8
}

TEST_F(Rev5SubSections, ThirteenthStopsTheRun) {
    EXPECT_THROW(read_section(composite_of_rings(1, 13)), std::exception);
    EXPECT_EQ(log(), "\n **** SR/REV5INP : Composite cross section input\n"
                     " Cross section  1 has more than 12 sub-sections\n"
                     "\n"
                     " **** Program stopped by SR/REV5INP\n");
    EXPECT_EQ(cmn().NLINE, lines_in_front + 14);
}

TEST_F(Rev5SubSections, ThirteenthIsReadAndCheckedFirst) {
    Lines lines = composite_of_rings(1, 13);
    lines.back() = section("1 13 1 0 1 9 0.5"); // the inner diameter is 4 - 12 / 8 = 2.5
    EXPECT_EQ(read_section(lines),
              "\n **** SR/REV5INP : Composite cross section data input control\n"
              " Cross section, sub-section, D.inside.last, OD =   1  13  2.50000  9.00000\n"
              " Sub-section diameters must be in decreasing order\n");
    lines.pop_back();
    EXPECT_EQ(read_section(lines), end_of_file(" 1013"));
}

TEST_F(Rev5SubSections, HugeTypeStopsAtTheThirteenth) {
    Lines lines = composite_of_rings(1, 13);
    lines.front() = composite(1, 2147483647);
    EXPECT_THROW(read_section(lines), std::exception);
}

TEST_F(Rev5SubSections, SlotBeyondTheLastIsRefusedBeforeItsLineIsRead) {
    cmn().NUMCRS = 199;
    EXPECT_EQ(read_section({composite(1, 2), ring(1, 1)}),
              "\n **** SR/REV5INP : Too many cross sections, sub-sections included, max =  200\n");
    EXPECT_EQ(cmn().IERR, 4);
    EXPECT_EQ(cmn().NLINE, lines_in_front + 2);
    EXPECT_EQ(cmn().ICOMP(1, 1), 200);
    EXPECT_EQ(cmn().ICOMP(2, 1), 0);
}

TEST_F(Rev5SubSections, SlotIsTestedBeforeTheCountOfSubSections) {
    cmn().NUMCRS = 188; // the 13th would get slot 201
    EXPECT_EQ(read_section(composite_of_rings(1, 13)),
              "\n **** SR/REV5INP : Too many cross sections, sub-sections included, max =  200\n");
    EXPECT_EQ(cmn().NLINE, lines_in_front + 13);
}

} // namespace
} // namespace korvat::test
