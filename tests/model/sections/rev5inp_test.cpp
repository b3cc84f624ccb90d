// Tests of the cross-section lines of a revision-5 input: stored values, line count, checks.
#include "rev5_fixture.hpp"

#include "model/sections/deck_records.hpp"

namespace korvat::test {
namespace {

class Rev5inp : public Rev5Test {
protected:
    // The message of a failed check of section 1.
    static std::string control(const std::string& numbers, const std::string& detail) {
        return "\n **** SR/REV5INP : Cross section data input control\n Crs. no, IERR=" + numbers +
               "\n" + detail + "\n";
    }

    void expect_rejected(const std::string& line, const std::string& number,
                         const std::string& detail) {
        EXPECT_EQ(read_section({line}), control("   1" + number, detail)) << line;
        EXPECT_EQ(cmn().IERR, 4);
    }
};

TEST_F(Rev5inp, RecordsAreKeptWithThePlacesOfTheirValues) {
    cmn().report.keeps_records = true;
    EXPECT_EQ(read_lines({"", "a", "b", "c", "  1 1", section(" 0, 2,1.0 0.1")}), "");
    ASSERT_EQ(cmn().report.records.size(), 1U);
    const GivenRecord& record = cmn().report.records.front();
    EXPECT_EQ(record.kind, static_cast<int>(deck::RecordId::cross_section_5));
    EXPECT_EQ(record.k, 1);
    EXPECT_EQ(record.first_line, 5);
    ASSERT_EQ(record.numbers.size(), 15U);
    EXPECT_EQ(record.numbers[3].value, 2.0);
    EXPECT_EQ(record.numbers[3].place, (DeckPlace{.line = 6, .column = 5}));
    EXPECT_EQ(record.numbers[4].value, 1.0);
    EXPECT_EQ(record.numbers[4].place, (DeckPlace{.line = 6, .column = 7}));
}

TEST_F(Rev5inp, StoresAPlainSectionScaled) {
    cmn().FACF = 2.0;
    cmn().FACL = 4.0; // stress factor 2 / 4 / 4 = 0.125
    EXPECT_EQ(read_section({"1 1 -1 2 0.5 0.125 3 5 7 11 64 0.25 13 14 15"}), "");
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_EQ(cmn().ITYCRS(1), 1);
    EXPECT_EQ(cmn().NLCRS(1), -1);
    EXPECT_EQ(cmn().MATCRS(1), 2);
    EXPECT_EQ(cmn().DIAM(1), 2.0);
    EXPECT_EQ(cmn().WALL(1), 0.5);
    EXPECT_EQ(cmn().STFAX(1), 6.0);
    EXPECT_EQ(cmn().STFBN(1), 160.0); // 5 * 2 * 4 * 4
    EXPECT_EQ(cmn().STFSH(1), 14.0);
    EXPECT_EQ(cmn().STFTO(1), 352.0); // 11 * 2 * 4 * 4
    EXPECT_EQ(cmn().UWFLD(1), 2.0);   // 64 * (0.125 / 4)
    EXPECT_EQ(cmn().ECC(1), 0.25);    // as given, as are the three behind it
    EXPECT_EQ(cmn().CMISC(1, 1), 13.0);
    EXPECT_EQ(cmn().CMISC(2, 1), 14.0);
    EXPECT_EQ(cmn().CMISC(3, 1), 15.0);
    EXPECT_EQ(cmn().NUMCRS, 1);
    EXPECT_EQ(cmn().NLINE, lines_in_front + 1);
}

TEST_F(Rev5inp, StoresEverySection) {
    cmn().NUMCRS = 3;
    EXPECT_EQ(read_section({section("1 1 0 1 2 0.5"), section("2 1 -7 2 3 0.25"),
                            section("3 1 0 1 4 2"), "next section"}),
              "");
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_EQ(cmn().DIAM(2), 3.0);
    EXPECT_EQ(cmn().NLCRS(2), -7);
    EXPECT_EQ(cmn().WALL(3), 2.0); // half the diameter: a solid section
    EXPECT_EQ(cmn().NLINE, lines_in_front + 3);
    EXPECT_EQ(next_line(12), "next section");
}

TEST_F(Rev5inp, CountsContinuationsAndBlankLines) {
    EXPECT_EQ(read_section({"1 1 0", "", "1 2,", "0.5 0 0 0 0", "\t", "0 0 0 0 0 dropped", "next"}),
              "");
    EXPECT_EQ(cmn().NLINE, lines_in_front + 6);
    EXPECT_EQ(cmn().DIAM(1), 2.0);
    EXPECT_EQ(cmn().WALL(1), 0.5);
    EXPECT_EQ(next_line(12), "next");
}

TEST_F(Rev5inp, DataLinesHave120Columns) {
    // The last value begins in column 118 and is cut behind column 120.
    EXPECT_EQ(read_section({padded("1 1 0 1 2 0.5 0 0 0 0 0 0 0 0", 117) + "12345"}), "");
    EXPECT_EQ(cmn().CMISC(3, 1), 123.0);
}

TEST_F(Rev5inp, BlankLineIsJudgedBy80Columns) {
    EXPECT_EQ(read_lines({std::string(80, ' ') + "text", "", "", "", section("1 1 0 1 2 0.5")}),
              "");
    EXPECT_EQ(cmn().IERR, 0);
}

TEST_F(Rev5inp, MissingBlankLine) {
    EXPECT_EQ(read_lines({"heading", "", "", "", section("1 1 0 1 2 0.5")}),
              "\n **** SR/REV5INP : Missing blank line in front of cross section data section\n");
    EXPECT_EQ(cmn().IERR, 4);
    EXPECT_EQ(cmn().NLINE, 1);
}

TEST_F(Rev5inp, EndOfFileInFrontOfTheSections) {
    for (int lines = 0; lines < lines_in_front; ++lines) {
        EXPECT_EQ(read_lines(Lines(static_cast<std::size_t>(lines))), end_of_file("  100"));
        EXPECT_EQ(cmn().IERR, 2);
        EXPECT_EQ(cmn().NLINE, lines + 1);
    }
}

TEST_F(Rev5inp, EndOfFileInASection) {
    EXPECT_EQ(read_section({}), end_of_file("  101"));
    EXPECT_EQ(cmn().IERR, 2);
    EXPECT_EQ(cmn().NLINE, lines_in_front + 1);
    EXPECT_EQ(read_section({"1 1 0 1 2", "", "0.5 0"}), end_of_file("  101"));
    EXPECT_EQ(cmn().NLINE, lines_in_front + 4);
    cmn().NUMCRS = 2;
    EXPECT_EQ(read_section({section("1 1 0 1 2 0.5")}), end_of_file("  102"));
    EXPECT_EQ(cmn().NLINE, lines_in_front + 2);
}

TEST_F(Rev5inp, ValueThatCannotBeRead) {
    for (const std::string line :
         {"1.0 1 0 1 2 0.5 0 0 0 0 0 0 0 0 0", "1 1 0 1 2 0.5 0 0 0 0 0 0 0 0 /",
          "1 1 0 1 2 0.5 9*0", "1 1 0 1 2 0.5 0 0 0 0 0 0 0 ,0", "1 1 0 1 2,,0.5 0 0 0 0 0 0 0 0 0",
          "1 1 0 1 1e401 0.5 0 0 0 0 0 0 0 0 0", "1 2147483648 0 1 2 0.5 0 0 0 0 0 0 0 0 0"}) {
        EXPECT_EQ(read_section({line}), bad_data("  101")) << line;
        EXPECT_EQ(cmn().IERR, 1);
        EXPECT_EQ(cmn().NLINE, lines_in_front + 1);
    }
}

TEST_F(Rev5inp, EndOfFileComesAfterABadValueOnly) {
    EXPECT_EQ(read_section({"1 1 0 1 x"}), bad_data("  101"));
    EXPECT_EQ(read_section({"1 1 0 1", "", "x"}), bad_data("  101"));
    EXPECT_EQ(cmn().NLINE, lines_in_front + 3);
}

TEST_F(Rev5inp, UnreadableCopyIsAFormatErrorOnPosix) {
    give_directory(12, "unreadable");
    EXPECT_EQ(rev5inp(cmn()), Cause::format_error);
    EXPECT_EQ(log(), bad_data("  100"));
    EXPECT_EQ(cmn().IERR, 1);
}

TEST_F(Rev5inp, NumberMustBeTheNextOne) {
    EXPECT_EQ(read_section({section("12 1 0 1 2 0.5")}),
              "\n **** SR/REV5INP : Cross section = 12  Expected value =  1\n");
    EXPECT_EQ(cmn().IERR, 4);
    EXPECT_EQ(read_section({section("-2147483648 0 99 99 0 0")}), // before every other check
              "\n **** SR/REV5INP : Cross section = -2147483648  Expected value =  1\n");
}

TEST_F(Rev5inp, Diameter) {
    // Smaller than the tolerance 1E-10, the wall neither that nor above half of it + 1E-10.
    expect_rejected(section("1 1 0 1 5e-11 1.2e-10"), "   1", " Diameter =  0.0000");
}

TEST_F(Rev5inp, Wall) {
    expect_rejected(section("1 1 0 1 1 0"), "   2", " Wall =  0.0000");
    expect_rejected(section("1 1 0 1 1 -0.5"), "   2", " Wall = -0.5000");
}

TEST_F(Rev5inp, WallAboveHalfTheDiameter) {
    expect_rejected(section("1 1 0 1 1 0.75"), "   3", " Diameter,wall =  1.0000  0.7500");
    expect_rejected(section("1 1 0 1 -1 0.5"), "   3", " Diameter,wall = -1.0000  0.5000");
    // Too long for the runtime's editing: asterisks.
    expect_rejected(section("1 1 0 1 1 1e300"), "   3", " Diameter,wall =  1.0000********");
}

TEST_F(Rev5inp, MaterialNumber) {
    expect_rejected(section("1 1 0 0 1 0.5"), "   5", " Material no. =    0");
    expect_rejected(section("1 1 0 -2147483648 1 0.5"), "   5", " Material no. =-2147483648");
    expect_rejected(section("1 1 0 3 1 0.5"), "   6", " Material no. =    3");
    expect_rejected(section("1 1 0 2147483647 1 0.5"), "   6", " Material no. =2147483647");
}

TEST_F(Rev5inp, Type) {
    expect_rejected(section("1 0 0 1 1 0.5"), "   7", " Cross section type error    0");
    expect_rejected(section("1 -2147483648 0 1 1 0.5"), "   7",
                    " Cross section type error-2147483648");
}

TEST_F(Rev5inp, NonLinearCode) {
    expect_rejected(section("1 1 11 1 1 0.5"), "   8", " Non-linear code error   11");
    expect_rejected(section("1 1 2147483647 1 1 0.5"), "   8", " Non-linear code error2147483647");
    EXPECT_EQ(read_section({section("1 1 -2147483648 1 1 0.5")}), "");
    EXPECT_EQ(cmn().NLCRS(1), -2147483647 - 1);
}

TEST_F(Rev5inp, LaterNumberReplacesAnEarlierOne) {
    expect_rejected(section("1 1 0 1 0 0"), "   2", " Wall =  0.0000");
    expect_rejected(section("1 1 0 1 0 1"), "   3", " Diameter,wall =  0.0000  1.0000");
    expect_rejected(section("1 1 0 3 0 1"), "   6", " Material no. =    3");
    expect_rejected(section("1 0 0 3 0 1"), "   7", " Cross section type error    0");
    expect_rejected(section("1 0 11 3 0 1"), "   8", " Non-linear code error   11");
}

TEST_F(Rev5inp, FirstLineOfACompositeHoldsZeros) {
    const std::string detail = " Non-zero value given at composite crs sctn first line";
    for (const std::string numbers :
         {"1 0 0 0 0 0 0 0", "0 1 0 0 0 0 0 0", "0 0 1 0 0 0 0 0", "0 0 0 1 0 0 0 0",
          "0 0 0 0 1 0 0 0", "0 0 0 0 0 1 0 0", "0 0 0 0 0 0 1 0", "0 0 0 0 0 0 0 1e-9"}) {
        expect_rejected("1 2 0 " + numbers + " 0 0 0 0", "   9", detail);
    }
    expect_rejected("1 2147483647 0 1 0 0 0 0 0 0 0 0 0 0 0", "   9", detail);
}

TEST_F(Rev5inp, OnlyTheSumOfACompositesFirstLineIsTested) {
    // 1 - 1 = 0; and the eccentricity and the miscellaneous values are not in the sum.
    EXPECT_EQ(read_section({"1 2 0 1 -1 0 0 0 0 0 0 0.5 7 8 9"}), end_of_file(" 1001"));
    EXPECT_EQ(read_section({"1 2 0 0 0 0 0 0 0 0 1e-11 0 0 0 0"}), end_of_file(" 1001"));
}

TEST_F(Rev5inp, NonLinearCodeOfACompositeIsTestedBeforeItsZeros) {
    expect_rejected(section("1 2 11 0 0 0"), "   8", " Non-linear code error   11");
    expect_rejected(section("1 2 11 1 0 0"), "   9",
                    " Non-zero value given at composite crs sctn first line");
}

} // namespace
} // namespace korvat::test
