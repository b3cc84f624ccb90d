// Tests of the piles in the listing: nodes, batter and length, dummy heads, check sums.
#include "listing_fixture.hpp"

namespace korvat::test {
namespace {

class ListingPiles : public ListingTest {
protected:
    ListingPiles() {
        cmn().NUMMAT = 1;
        cmn().EPSTMP(1) = 0.0625;
        cmn().NUMCRS = 2;
        cmn().MATCRS(1) = 1;
        cmn().MATCRS(2) = 0; // a composite
        cmn().CRSVAL(1, 1) = 1.5;
        cmn().CRSVAL(1, 2) = 2.25;
    }

    std::string piles() {
        return written([&] { write_pile_tables(cmn(), texts()); });
    }
    std::string dummies() {
        return written([&] { write_dummy_pile_heads(cmn(), texts()); });
    }
    std::string sums() {
        return written([&] { write_check_sums(cmn(), texts()); });
    }

    static std::string heading(const std::string& values) {
        return page_header() + values + "\n" + std::string(node_heading);
    }

    static std::string batter(const std::string& degrees, const std::string& length) {
        return "\n\n TRUE PILE BATTER =" + degrees + " DEGREES\n\n PILE LENGTH      =" + length +
               "\n";
    }

    // Batter and length of a pile of one element.
    std::string batter_of(double x, double y, double z) {
        cmn().NUMPIL = 0;
        add_pile(1, 0.0, 0.0, 0.0);
        give_node(2, 1, x, y, z);
        const std::string text = piles();
        return text.substr(text.find("\n\n TRUE"));
    }

    // Rows of a vertical pile at (3, -4) from level 0 on, elements of 2.
    static std::string rows(int nodes) {
        std::string text;
        for (int n = 1; n <= nodes; ++n) {
            char row[100];
            std::snprintf(row, sizeof row, "%4d     3.0000    -4.0000%11.4f", n, 2.0 * (n - 1));
            text += row;
            if (n < nodes) {
                std::snprintf(row, sizeof row, "%6d   1    1.5000   2.0000   0.000E+00", n);
                text += row;
            }
            text += "\n";
            if (n % 5 == 0 && n < nodes) text += " \n";
        }
        return text;
    }

    // A dummy pile 1 at (1, 2, -3) and so many piles fixed to it.
    std::string dummy_with(int connected) {
        add_pile(0, 1.0, 2.0, -3.0);
        for (int i = 0; i < connected; ++i)
            cmn().IFIX(add_pile(1, 0.0, 0.0, 0.0)) = 1;
        return dummies();
    }
};

TEST_F(ListingPiles, OnePile) {
    add_pile(3, 0.0, 0.0, 0.0);
    cmn().ITIP(1) = -2;
    cmn().IFIX(1) = 7;
    give_node(1, 1, 1.0, -2.0, 0.5);
    give_node(2, 1, 4.0, 2.0, 12.5);      // 13 further: 3, 4, 12
    give_node(3, 1, 4.0, 5.0, 16.5);      // 5 further: 0, 3, 4
    give_node(4, 1, 1234.5, 5.0, 1656.5); // 1230.5, 0 and 1640 further
    cmn().ICREL(2, 1) = 2;
    cmn().TSNOD(1, 1) = 10.0;
    cmn().TSNOD(2, 1) = 30.0;
    cmn().TSNOD(3, 1) = 5.0;
    cmn().TSNOD(4, 1) = -5.0;
    // Strains: 0.0625 * 40 / 2 = 1.25; 0 of the composite; 0.0625 * 0 / 2. The last length is
    // sqrt(1230.5**2 + 1640**2) = 2050.3000, for 1230.5**2 = 1514130.25 and 1640**2 = 2689600.
    // From head to tip: dx = 1233.5, dy = 7, dz = 1656; h**2 = 1521522.25 + 49 = 1521571.25,
    // h = 1233.51986, arctan(h / dz) = 36.6814 degrees, length sqrt(1521571.25 + 2742336).
    EXPECT_EQ(piles(),
              heading(" PILE NUMBER = 001   ELEMENTS =  3   TIP CODE =  -2     FIXED TO PILE : "
                      "007") +
                  "   1     1.0000    -2.0000     0.5000     1   1    1.5000  13.0000   1.250E+00\n"
                  "   2     4.0000     2.0000    12.5000     2   2    2.2500   5.0000   0.000E+00\n"
                  "   3     4.0000     5.0000    16.5000     3   1    1.50002050.3000   0.000E+00\n"
                  "   4  1234.5000     5.0000  1656.5000\n" +
                  batter("   36.68", " 2064.9231"));
}

TEST_F(ListingPiles, GroupsOfFiveNodes) {
    for (const int nodes : {2, 5, 6, 10, 11}) {
        cmn().NUMPIL = 0;
        add_pile(nodes - 1, 3.0, -4.0, 0.0);
        const std::string count = std::to_string(nodes - 1);
        const std::string length = std::to_string(2 * (nodes - 1)) + ".0000";
        EXPECT_EQ(piles(),
                  heading(" PILE NUMBER = 001   ELEMENTS =" + std::string(3 - count.size(), ' ') +
                          count + "   TIP CODE =   0     FIXED TO PILE : 000") +
                      rows(nodes) +
                      batter("    0.00", std::string(10 - length.size(), ' ') + length));
    }
}

TEST_F(ListingPiles, EachPileWithElementsStartsAPage) {
    add_pile(1, 3.0, -4.0, 0.0);
    add_pile(0, 9.0, 9.0, 9.0); // dummy: not listed here
    add_pile(1, 3.0, -4.0, 0.0);
    const std::string rest = "   ELEMENTS =  1   TIP CODE =   0     FIXED TO PILE : 000";
    const std::string pile = rows(2) + batter("    0.00", "    2.0000");
    EXPECT_EQ(piles(), heading(" PILE NUMBER = 001" + rest) + pile +
                           heading(" PILE NUMBER = 003" + rest) + pile);
}

TEST_F(ListingPiles, LongestPile) {
    add_pile(450, 3.0, -4.0, 0.0);
    EXPECT_EQ(piles(),
              heading(" PILE NUMBER = 001   ELEMENTS =450   TIP CODE =   0     FIXED TO PILE : "
                      "000") +
                  rows(451) + batter("    0.00", "  900.0000"));
}

TEST_F(ListingPiles, Batter) {
    EXPECT_EQ(batter_of(0.0, 0.0, 8.0), batter("    0.00", "    8.0000"));
    EXPECT_EQ(batter_of(3.0, 4.0, 0.0), batter("   90.00", "    5.0000"));
    EXPECT_EQ(batter_of(3.0, 4.0, 1.0e-10), batter("   90.00", "    5.0000"));
    EXPECT_EQ(batter_of(3.0, 4.0, -1.0e-10), batter("   90.00", "    5.0000"));
    EXPECT_EQ(batter_of(0.0, -2.0, 2.0), batter("   45.00", "    2.8284"));
    EXPECT_EQ(batter_of(3.0, 4.0, 5.0), batter("   45.00", "    7.0711"));
    EXPECT_EQ(batter_of(0.0, 1.0, 10.0), batter("    5.71", "   10.0499")); // arctan 0.1
    EXPECT_EQ(batter_of(0.0, 2.0, -2.0), batter("  -45.00", "    2.8284"));
    EXPECT_EQ(batter_of(0.0, 0.0, 0.0), batter("   90.00", "    0.0000"));
}

TEST_F(ListingPiles, NoDummyMeansNoPage) {
    add_pile(1, 0.0, 0.0, 0.0);
    EXPECT_EQ(dummies(), "");
}

constexpr std::string_view dummy_row = "\n   1      1.0000     2.0000    -3.0000";
constexpr std::string_view blank_44 = "                                            ";

TEST_F(ListingPiles, DummyWithoutConnectedPiles) {
    EXPECT_EQ(dummy_with(0),
              page_header() + std::string(dummy_heading) + std::string(dummy_row) + "\n");
}

TEST_F(ListingPiles, DummyWithSevenConnectedPiles) {
    EXPECT_EQ(dummy_with(7), page_header() + std::string(dummy_heading) + std::string(dummy_row) +
                                 "       002 003 004 005 006 007 008\n");
}

TEST_F(ListingPiles, DummyWithEightConnectedPilesHasALineMore) {
    EXPECT_EQ(dummy_with(8), page_header() + std::string(dummy_heading) + std::string(dummy_row) +
                                 "       002 003 004 005 006 007 008 009\n\n");
}

TEST_F(ListingPiles, DummyWithNineConnectedPiles) {
    EXPECT_EQ(dummy_with(9), page_header() + std::string(dummy_heading) + std::string(dummy_row) +
                                 "       002 003 004 005 006 007 008 009\n" +
                                 std::string(blank_44) + " 010\n");
}

TEST_F(ListingPiles, DummyWithSixteenConnectedPiles) {
    EXPECT_EQ(dummy_with(16), page_header() + std::string(dummy_heading) + std::string(dummy_row) +
                                  "       002 003 004 005 006 007 008 009\n" +
                                  std::string(blank_44) + " 010 011 012 013 014 015 016 017\n");
}

TEST_F(ListingPiles, DummyWithSeventeenConnectedPiles) {
    EXPECT_EQ(dummy_with(17), page_header() + std::string(dummy_heading) + std::string(dummy_row) +
                                  "       002 003 004 005 006 007 008 009\n" +
                                  std::string(blank_44) + " 010 011 012 013 014 015 016 017\n" +
                                  std::string(blank_44) + " 018\n");
}

TEST_F(ListingPiles, DummiesShareOnePageAndAreNotInTheirOwnLists) {
    add_pile(0, 1.0, 2.0, -3.0);
    add_pile(1, 5.0, 5.0, 5.0);
    add_pile(0, 4.0, 5.0, 6.0);
    cmn().IFIX(1) = 1; // itself
    cmn().IFIX(2) = 3;
    cmn().IFIX(3) = 1; // a dummy fixed to a dummy
    EXPECT_EQ(dummies(), page_header() + std::string(dummy_heading) + std::string(dummy_row) +
                             "       003\n"
                             "\n   3      4.0000     5.0000     6.0000       002\n");
}

TEST_F(ListingPiles, CheckSums) {
    add_pile(2, 1.5, -2.0, 3.0);    // tip at z = 7
    add_pile(1, 10.0, 20.0, -30.0); // tip at z = -28
    EXPECT_EQ(sums(), page_header() + std::string(sums_of_coordinates) +
                          " PILE HEADS :         SUM-X =      11.5000\n"
                          "                      SUM-Y =      18.0000\n"
                          "                      SUM-Z =     -27.0000\n"
                          "\n"
                          " PILE TIPS :          SUM-X =      11.5000\n"
                          "                      SUM-Y =      18.0000\n"
                          "                      SUM-Z =     -21.0000\n");
}

// 0.0000495 is shown as 0, 0.0000505 as 0.0001.
TEST_F(ListingPiles, CheckSumsStartFromNothing) {
    const auto sums_shown_for = [&](double value, const std::string& sum) {
        cmn().NUMPIL = 0;
        add_pile(1, value, value, value);
        give_node(2, 1, value, value, value);
        EXPECT_EQ(sums(), page_header() + std::string(sums_of_coordinates) +
                              " PILE HEADS :         SUM-X =" + sum +
                              "                      SUM-Y =" + sum +
                              "                      SUM-Z =" + sum +
                              "\n"
                              " PILE TIPS :          SUM-X =" +
                              sum + "                      SUM-Y =" + sum +
                              "                      SUM-Z =" + sum);
    };
    sums_shown_for(0.0000495, "       0.0000\n");
    sums_shown_for(0.0000505, "       0.0001\n");
}

TEST_F(ListingPiles, DummyCountsAmongTheHeadsOnly) {
    add_pile(1, 1.0, 2.0, 3.0);
    add_pile(0, 100.0, 200.0, 300.0);
    EXPECT_EQ(sums(), page_header() + std::string(sums_of_coordinates) +
                          " PILE HEADS :         SUM-X =     101.0000\n"
                          "                      SUM-Y =     202.0000\n"
                          "                      SUM-Z =     303.0000\n"
                          "\n"
                          " PILE TIPS :          SUM-X =       1.0000\n"
                          "                      SUM-Y =       2.0000\n"
                          "                      SUM-Z =       5.0000\n");
}

} // namespace
} // namespace korvat::test
