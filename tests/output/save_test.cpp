// Tests of the analysis file of a store made by hand, read back by the independent reader.
#include "support/model_fixture.hpp"
#include "support/record_file.hpp"

#include "output/save.hpp"
#include "run/open_record_file.hpp"

#include <algorithm>

namespace korvat::test {
namespace {

using Reals = std::vector<double>;
using Integers = std::vector<int>;

Reals reals(const Record& record) {
    RecordCursor cursor(record);
    Reals values;
    while (!cursor.finished())
        values.push_back(cursor.take_double());
    return values;
}

Integers integers(const Record& record) {
    RecordCursor cursor(record);
    Integers values;
    while (!cursor.finished())
        values.push_back(cursor.take_int());
    return values;
}

// Pile 1 has two elements of lengths 13 and 5, pile 2 is a dummy. Records of revision 4: label,
// counts, one for each section, then 1 + 3 + 18 + 2 of pile 1 and 1 + 3 + 18 of pile 2.
class Save : public ModelTest {
protected:
    Save() {
        cmn().IREV = 4;
        cmn().LABEL.assign("Two piles");
        cmn().FACF = cmn().FACL = 1.0;
        cmn().NUMMAT = 2;
        cmn().EPSTMP(1) = 0.25;
        cmn().EPSTMP(2) = 0.5;
        cmn().NUMCRS = 2;
        for (int i = 1; i <= 2; ++i) {
            cmn().MATCRS(i) = i;
            for (int s = 1; s <= 20; ++s)
                cmn().CRSVAL(s, i) = 100.0 * i + s;
        }
        cmn().ECC(2) = 7.0;
        for (int j = 1; j <= 3; ++j)
            cmn().CMISC(j, 2) = 7.0 + j;
        cmn().NUMPIL = 2;
        cmn().NELP(1) = 2;
        cmn().IFIX(1) = 2;
        cmn().ITIP(1) = -1;
        cmn().ICREL(1, 1) = 2;
        cmn().ICREL(2, 1) = 1;
        give_node(1, 1, 0.0, 0.0, 0.0);
        give_node(2, 1, 3.0, 4.0, 12.0);
        give_node(3, 1, 3.0, 7.0, 16.0);
        give_node(1, 2, -1.0, -2.0, -3.0);
    }

    void give_node(int n, int np, double x, double y, double z) {
        cmn().XNOD(n, np) = x;
        cmn().YNOD(n, np) = y;
        cmn().ZNOD(n, np) = z;
    }

    // Piles NP1..NP2, nodes ND1..ND2; values first, first + 1, ....
    void add_special(int NP1, int NP2, int ND1, int ND2, int code, double first) {
        const int r = ++cmn().NUMSPC;
        cmn().ISPNOD(1, r) = NP1;
        cmn().ISPNOD(2, r) = NP2;
        cmn().ISPNOD(3, r) = ND1;
        cmn().ISPNOD(4, r) = ND2;
        cmn().ISPCOD(r) = code;
        for (int k = 1; k <= 6; ++k)
            cmn().SPVAL(k, r) = first + k - 1;
    }

    std::vector<Record> saved() {
        {
            const RecordFile file = open_record_file("PILE.07");
            save(cmn(), file);
        }
        return read_record_file("PILE.07");
    }

    static constexpr std::size_t first_pile = 4; // position of pile 1's records, from 0
    static constexpr std::size_t node_values = first_pile + 4;
    static constexpr std::size_t elements = node_values + 18;
    static constexpr std::size_t second_pile = elements + 2;
};

TEST_F(Save, RecordsOfRevision4) {
    const auto records = saved();
    EXPECT_EQ(cmn().IERR, 0);
    ASSERT_EQ(records.size(), second_pile + 22);
    const std::string label = padded("Two piles", 80);
    EXPECT_EQ(records[0], Record(label.begin(), label.end()));
    EXPECT_EQ(integers(records[1]), (Integers{2, 2}));
    Reals section;
    for (int s = 1; s <= 20; ++s)
        section.push_back(100.0 + s);
    section[14] = section[17] = section[18] = section[19] = 0.0;
    EXPECT_EQ(reals(records[2]), section);
    EXPECT_EQ(reals(records[3])[13], 214.0);
    EXPECT_EQ(reals(records[3])[14], 7.0); // the eccentricity
    EXPECT_EQ(reals(records[3])[16], 217.0);
    EXPECT_EQ(reals(records[3])[17], 8.0);
    EXPECT_EQ(reals(records[3])[19], 10.0);
    EXPECT_EQ(cmn().CRSVAL(15, 2), 7.0); // the store has them too
    EXPECT_EQ(cmn().CRSVAL(20, 2), 10.0);

    EXPECT_EQ(integers(records[first_pile]), (Integers{1, 2, 2, -1}));
    EXPECT_EQ(reals(records[first_pile + 1]), (Reals{0.0, 3.0, 3.0}));
    EXPECT_EQ(reals(records[first_pile + 2]), (Reals{0.0, 4.0, 7.0}));
    EXPECT_EQ(reals(records[first_pile + 3]), (Reals{0.0, 12.0, 16.0}));
    for (std::size_t i = 0; i < 18; ++i)
        EXPECT_EQ(reals(records[node_values + i]), (Reals{0.0, 0.0, 0.0}));
    // Diameter is slot 1 of the element's section; length of (3, 4, 12) and of (0, 3, 4).
    EXPECT_EQ(reals(records[elements]), (Reals{201.0, 13.0, 101.0, 5.0}));
    EXPECT_EQ(log(), "");
}

TEST_F(Save, DummyPileHasNoElementRecords) {
    const auto records = saved();
    EXPECT_EQ(integers(records[second_pile]), (Integers{2, 0, 0, 0}));
    EXPECT_EQ(reals(records[second_pile + 1]), (Reals{-1.0}));
    EXPECT_EQ(reals(records[second_pile + 2]), (Reals{-2.0}));
    EXPECT_EQ(reals(records[second_pile + 3]), (Reals{-3.0}));
    for (std::size_t i = 4; i < 22; ++i)
        EXPECT_EQ(reals(records[second_pile + i]), (Reals{0.0}));
}

TEST_F(Save, RecordsOfRevision5) {
    cmn().IREV = 5;
    cmn().IRDATE(1) = 2009;
    cmn().IRDATE(2) = 9;
    cmn().IRDATE(3) = 1;
    for (int i = 1; i <= 200; ++i) {
        cmn().ITYCRS(i) = 1000 + i;
        cmn().NLCRS(i) = 2000 + i;
        for (int j = 1; j <= 12; ++j)
            cmn().ICOMP(j, i) = 100 * i + j;
        for (int p = 1; p <= 10; ++p) {
            const double place = 10.0 * (i - 1) + p; // section by section, points first
            cmn().FAXEL(p, i) = place;
            cmn().FMOEL(p, i) = 2000.0 + place;
            cmn().FAXPL(p, i) = 4000.0 + place;
            cmn().FMOPL(p, i) = 6000.0 + place;
        }
    }
    const auto records = saved();
    ASSERT_EQ(records.size(), second_pile + 22 + 3);
    EXPECT_EQ(integers(records[0]), (Integers{2009, 9, 1}));
    EXPECT_EQ(records[1].size(), 80U);
    EXPECT_EQ(integers(records[2]), (Integers{2, 2}));
    EXPECT_EQ(reals(records[4]).size(), 20U);
    Integers types;
    for (int i = 1; i <= 200; ++i)
        types.push_back(1000 + i);
    for (int i = 1; i <= 200; ++i)
        types.push_back(2000 + i);
    for (int i = 1; i <= 200; ++i) {
        for (int j = 1; j <= 12; ++j)
            types.push_back(100 * i + j);
    }
    EXPECT_EQ(integers(records[5]), types);
    Reals curves;
    for (int i = 1; i <= 8000; ++i)
        curves.push_back(i);
    EXPECT_EQ(reals(records[6]), curves);
    EXPECT_EQ(integers(records[7]), (Integers{1, 2, 2, -1}));
}

TEST_F(Save, SpecialValuesStandComponentByComponent) {
    add_special(1, 1, 1, 2, 1, 10.0);
    add_special(1, 1, 2, 3, 2, 20.0);
    add_special(1, 1, 3, 3, 3, 30.0);
    add_special(2, 2, 1, 1, 2, 40.0);
    const auto records = saved();
    for (std::size_t k = 0; k < 6; ++k) {
        const double c = static_cast<double>(k);
        EXPECT_EQ(reals(records[node_values + 3 * k]), (Reals{10.0 + c, 10.0 + c, 0.0}));
        EXPECT_EQ(reals(records[node_values + 3 * k + 1]), (Reals{0.0, 20.0 + c, 20.0 + c}));
        EXPECT_EQ(reals(records[node_values + 3 * k + 2]), (Reals{0.0, 0.0, 30.0 + c}));
        EXPECT_EQ(reals(records[second_pile + 4 + 3 * k]), (Reals{0.0})); // pile 1's are gone
        EXPECT_EQ(reals(records[second_pile + 5 + 3 * k]), (Reals{40.0 + c}));
        EXPECT_EQ(reals(records[second_pile + 6 + 3 * k]), (Reals{0.0}));
    }
}

TEST_F(Save, ValuesOfOnePileAreNotThoseOfTheNext) {
    for (const int code : {1, 2, 3})
        add_special(1, 1, 1, 3, code, 10.0);
    const auto records = saved();
    for (std::size_t i = 4; i < 22; ++i)
        EXPECT_EQ(reals(records[second_pile + i]), (Reals{0.0}));
}

TEST_F(Save, LaterRecordWins) {
    add_special(1, 2, 1, 1, 2, 20.0);
    add_special(1, 1, 1, 2, 2, 50.0);
    const auto records = saved();
    EXPECT_EQ(reals(records[node_values + 1]), (Reals{50.0, 50.0, 0.0}));
    EXPECT_EQ(reals(records[second_pile + 5]), (Reals{20.0}));
}

TEST_F(Save, TemperatureRecordsAndTurnedRangesAreNotCopied) {
    add_special(1, 1, 1, 3, 4, 20.0);
    add_special(1, 1, 3, 2, 2, 20.0);
    add_special(2, 1, 1, 1, 2, 20.0); // no pile lies in it
    const auto records = saved();
    EXPECT_EQ(cmn().IERR, 0);
    for (std::size_t i = 0; i < 18; ++i)
        EXPECT_EQ(reals(records[node_values + i]), (Reals{0.0, 0.0, 0.0}));
}

TEST_F(Save, OtherCodesAreDisplacements) {
    add_special(1, 1, 1, 1, 5, 20.0);
    EXPECT_EQ(reals(saved()[node_values + 2]), (Reals{20.0, 0.0, 0.0}));
}

// The temperature strains of pile 1's two elements.
class SaveStrains : public Save {
protected:
    SaveStrains() {
        for (int n = 1; n <= 3; ++n)
            cmn().TSNOD(n, 1) = 8.0 * n; // the means are 12 and 20
    }

    Reals strains() {
        const Record record = saved()[elements + 1];
        RecordCursor cursor(record);
        Reals values;
        for (int e = 1; e <= 2; ++e) {
            EXPECT_EQ(cursor.take_int(), cmn().ICREL(e, 1));
            values.push_back(cursor.take_double());
        }
        EXPECT_TRUE(cursor.finished());
        return values;
    }
};

TEST_F(SaveStrains, FactorIsTheStrainOfTheMaterial) {
    EXPECT_EQ(strains(), (Reals{0.5 * 12, 0.25 * 20})); // sections 2 and 1
}

TEST_F(SaveStrains, FactorOfACompositeIsOne) {
    cmn().MATCRS(2) = 0;
    EXPECT_EQ(strains(), (Reals{12.0, 0.25 * 20}));
}

TEST_F(SaveStrains, NegativeMaterialKeepsTheFactorBefore) {
    cmn().MATCRS(1) = -1;
    EXPECT_EQ(strains(), (Reals{0.5 * 12, 0.5 * 20}));
    cmn().MATCRS(2) = -1; // it starts at zero
    EXPECT_EQ(strains(), (Reals{0.0, 0.0}));
}

TEST_F(SaveStrains, NumberThatIsNoMaterialHasNoStrain) {
    cmn().MATCRS(2) = 3;
    EXPECT_EQ(strains(), (Reals{0.0, 0.25 * 20}));
}

TEST_F(Save, RecordBeyondTheLastNodeEndsTheFile) {
    add_special(1, 1, 2, 4, 2, 20.0);
    const auto records = saved();
    EXPECT_EQ(cmn().IERR, 1);
    EXPECT_EQ(log(), "\n **** SPECIAL NODE VALUES PROBLEM\n"
                     " PILE, NODE, MAX ALLOWED NODE =    1    4    3\n");
    EXPECT_EQ(records.size(), first_pile + 4); // up to the coordinates of pile 1
    EXPECT_EQ(plot(), "");
}

TEST_F(Save, TemperatureRecordBeyondTheLastNodeIsRefusedToo) {
    add_special(1, 2, 1, 2, 4, 20.0); // of the dummy pile
    EXPECT_EQ(saved().size(), second_pile + 4);
    EXPECT_EQ(cmn().IERR, 1);
    EXPECT_EQ(log(), "\n **** SPECIAL NODE VALUES PROBLEM\n"
                     " PILE, NODE, MAX ALLOWED NODE =    2    2    1\n");
}

TEST_F(Save, SoilDisplacementsOfADummyPileNeedSprings) {
    add_special(2, 2, 1, 1, 3, -20.0);
    const auto records = saved();
    EXPECT_EQ(cmn().IERR, 2);
    EXPECT_EQ(log(), "\n **** SPECIAL NODE VALUES PROBLEM\n"
                     " SOIL DISPL WERE GIVEN AT DUMMY PILE =    2\n"
                     " -0.2000E+02 -0.1900E+02 -0.1800E+02\n");
    EXPECT_EQ(records.size(), second_pile + 4);
    EXPECT_EQ(plot(), "");
}

TEST_F(Save, DummyPileWithSpringsMayHaveSoilDisplacements) {
    add_special(2, 2, 1, 1, 3, 20.0);
    add_special(2, 2, 1, 1, 1, 10.0);
    saved();
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_NE(plot(), "");
}

TEST_F(Save, LimitsOfTheDummyPileTest) {
    cmn().TOL = 0.5;
    add_special(2, 2, 1, 1, 3, 0.0);
    add_special(2, 2, 1, 1, 1, 0.0);
    const auto fails_with = [&](const Reals& displacements, const Reals& springs) {
        for (int k = 1; k <= 3; ++k) {
            cmn().SPVAL(k, 1) = displacements[static_cast<std::size_t>(k - 1)];
            cmn().SPVAL(k, 2) = springs[static_cast<std::size_t>(k - 1)];
        }
        cmn().IERR = 0;
        saved();
        return cmn().IERR == 2;
    };
    EXPECT_TRUE(fails_with({0.25, -0.25, 0.0}, {0.25, 0.25, 0.0})); // at the tolerance, both
    EXPECT_FALSE(fails_with({0.25, -0.125, 0.0}, {0.0, 0.0, 0.0}));
    EXPECT_FALSE(fails_with({1.0, 1.0, 1.0}, {0.25, 0.25, 0.25}));
    EXPECT_TRUE(fails_with({1.0, 1.0, 1.0}, {1.0, -1.0, 0.0})); // springs are summed with signs
}

TEST_F(Save, FileThatCouldNotBeOpenedLosesTheRecordsOnly) {
    save(cmn(), RecordFile());
    EXPECT_EQ(cmn().IERR, 0);
    EXPECT_EQ(plot().substr(0, 9), "Two piles");
}

} // namespace
} // namespace korvat::test
