// Tests of the whole result listing: page header, order of its parts, print levels, revisions.
#include "listing_fixture.hpp"

#include "output/printpil.hpp"

namespace korvat::test {
namespace {

// A tube of material 1; pile 1 of one element fixed to pile 2, a dummy.
class Printpil : public ListingTest {
protected:
    Printpil() {
        cmn().NUMMAT = 1;
        cmn().EMOD(1) = 8.0;
        cmn().NUMCRS = 1;
        cmn().MATCRS(1) = 1;
        cmn().ITYCRS(1) = 1;
        cmn().CRSVAL(1, 1) = 1.0;
        add_pile(1, 1.0, 2.0, 3.0);
        add_pile(0, 10.0, 20.0, 30.0);
        cmn().IFIX(1) = 2;
    }

    std::string printed(int revision, int level) {
        cmn().IREV = revision;
        cmn().JPRINT = level;
        return written([&] { printpil(cmn(), version_, release_date_, time_); });
    }

    static std::string properties() {
        return page_header() + std::string(sizes_heading) +
               "   1    1    1.0000    0.0000    0.000E+00   0.000E+00   0.000E+00   0.000E+00\n" +
               std::string(stiffness_heading) +
               "   1    1    0.000E+00  8.000E+00  0.000E+00  0.000E+00  0.000E+00  0.000E+00\n" +
               std::string(sums_heading) +
               "   1       1      0     0.000   0.000E+00   0.000E+00   0.000  0.000  0.000\n";
    }

    static std::string no_composites_no_curves() {
        return std::string(composite_heading) + "\n There are no composite cross sections\n" +
               std::string(curve_heading) + "\n There are no non-linear cross sections\n";
    }

    static std::string piles() {
        return page_header() +
               " PILE NUMBER = 001   ELEMENTS =  1   TIP CODE =   0     FIXED TO PILE : 002\n" +
               std::string(node_heading) +
               "   1     1.0000     2.0000     3.0000     1   1    1.0000   2.0000   0.000E+00\n"
               "   2     1.0000     2.0000     5.0000\n"
               "\n"
               "\n"
               " TRUE PILE BATTER =    0.00 DEGREES\n"
               "\n"
               " PILE LENGTH      =    2.0000\n" +
               page_header() + std::string(dummy_heading) +
               "\n   2     10.0000    20.0000    30.0000       001\n";
    }

    static std::string check_sums() {
        return page_header() + std::string(sums_of_coordinates) +
               " PILE HEADS :         SUM-X =      11.0000\n"
               "                      SUM-Y =      22.0000\n"
               "                      SUM-Z =      33.0000\n"
               "\n"
               " PILE TIPS :          SUM-X =       1.0000\n"
               "                      SUM-Y =       2.0000\n"
               "                      SUM-Z =       5.0000\n";
    }
};

TEST_F(Printpil, Revision4) {
    EXPECT_EQ(printed(4, 2), properties() + piles() + check_sums());
    EXPECT_EQ(log(), "");
    EXPECT_EQ(cmn().IERR, 0);
}

TEST_F(Printpil, Revision5) {
    EXPECT_EQ(printed(5, 2), properties() + no_composites_no_curves() + piles() + check_sums());
}

TEST_F(Printpil, LowPrintLevelsLeaveThePilesOut) {
    EXPECT_EQ(printed(4, 1), properties() + check_sums());
    EXPECT_EQ(printed(4, 0), properties() + check_sums());
    EXPECT_EQ(printed(5, 1), properties() + no_composites_no_curves() + check_sums());
}

TEST_F(Printpil, EveryMonthOfTheHeader) {
    const std::vector<std::string> months = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                             "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    for (int month = 0; month < 12; ++month) {
        time_(2) = month;
        const std::string expected = " KORVAT Output   Program Version =  7.6.0.81  03-Feb-2026"
                                     "     Time = 05-" +
                                     months[static_cast<std::size_t>(month)] + "-2026  07:08:09\n";
        const std::string text = written([&] { write_page_header(cmn(), texts()); });
        EXPECT_EQ(text, "\n1\n" + expected + "\n " + padded("Group of piles", 80) + "\n \n");
    }
}

TEST_F(Printpil, LabelIsShownWhole) {
    cmn().LABEL.assign(std::string(79, 'x') + "y");
    const std::string text = written([&] { write_page_header(cmn(), texts()); });
    EXPECT_NE(text.find("\n " + std::string(79, 'x') + "y\n \n"), std::string::npos);
}

} // namespace
} // namespace korvat::test
