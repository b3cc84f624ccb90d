// Tests of the plot file.
#include "support/model_fixture.hpp"

#include "output/plot_file.hpp"

#include <algorithm>
#include <limits>

namespace korvat::test {
namespace {

constexpr double steel = 2.1e8;

class PlotFile : public ModelTest {
protected:
    PlotFile() {
        cmn().LABEL.assign("Group of piles");
        cmn().FACF = 1.0;
        cmn().FACL = 1.0;
        cmn().NUMMAT = 2;
        cmn().EMOD(1) = steel;
        cmn().EMOD(2) = 3.0e7;
        cmn().NUMCRS = 2;
        give_section(1, 1, 1.5, 0.025);
        give_section(2, 2, 0.75, 0.375);
    }

    void give_section(int i, int material, double D, double t) {
        cmn().MATCRS(i) = material;
        cmn().DIAM(i) = D;
        cmn().WALL(i) = t;
    }

    // Pile np with its elements' sections and nodes at (np, -np, 0), (np, -np, 10) and so on.
    void give_pile(int np, const std::vector<int>& sections) {
        cmn().NUMPIL = std::max(cmn().NUMPIL, np);
        cmn().NELP(np) = static_cast<int>(sections.size());
        for (int n = 1; n <= cmn().NELP(np) + 1; ++n) {
            cmn().XNOD(n, np) = np;
            cmn().YNOD(n, np) = -np;
            cmn().ZNOD(n, np) = 10.0 * (n - 1);
        }
        for (std::size_t e = 0; e < sections.size(); ++e)
            cmn().ICREL(static_cast<int>(e) + 1, np) = sections[e];
    }

    std::string plotted() {
        const std::size_t start = plot().size();
        write_plot_file(cmn());
        return plot().substr(start);
    }

    // The kind shown for pile 1, of one element.
    char kind() {
        give_pile(1, {1});
        const std::string text = plotted();
        return text.at(text.find("  Pile,nodes") - 1);
    }
};

std::string heading(const std::string& piles) {
    return padded("Group of piles", 80) + "\n\n" + piles + "  Number of piles\n";
}

std::string pile(const std::string& values) {
    return "\n" + values +
           "  Pile,nodes,diam,wall,'material (1=steel 2=concrete)\n\n"
           "  Node     X         Y         Z\n";
}

TEST_F(PlotFile, WholeText) {
    give_pile(1, {1, 1});
    give_pile(2, {1, 2}); // the section at the tip counts
    cmn().XNOD(2, 1) = 1.2345;
    cmn().YNOD(2, 1) = -1234.5678;
    EXPECT_EQ(plotted(), heading("        2") +                        //
                             pile("   1   3  1.500  0.025   1") +      //
                             "    1     1.000    -1.000     0.000\n"   //
                             "    2     1.234 -1234.568    10.000\n"   //
                             "    3     1.000    -1.000    20.000\n" + //
                             pile("   2   3  0.750  0.375   2") +      //
                             "    1     2.000    -2.000     0.000\n"   //
                             "    2     2.000    -2.000    10.000\n"   //
                             "    3     2.000    -2.000    20.000\n");
    EXPECT_EQ(log(), "");
}

TEST_F(PlotFile, DummyPileIsLeftOut) {
    give_pile(1, {});
    cmn().ICREL(1, 1) = 1; // not looked at
    give_pile(2, {1});
    EXPECT_EQ(plotted(), heading("        2") + pile("   2   2  1.500  0.025   1") +
                             "    1     2.000    -2.000     0.000\n"
                             "    2     2.000    -2.000    10.000\n");
}

TEST_F(PlotFile, OnlyDummyPiles) {
    give_pile(1, {});
    EXPECT_EQ(plotted(), heading("        1"));
}

TEST_F(PlotFile, ModulusOfExactlyOneFifthIsConcrete) {
    cmn().EMOD(1) = 4.2e7; // 0.2 of the steel modulus, below 0.2 in single precision
    ASSERT_EQ(cmn().EMOD(1) / steel, 0.2);
    EXPECT_EQ(kind(), '2');
    // The limit is 0.20000000298: 42000000.626 of 2.1e8.
    cmn().EMOD(1) = 42000000.5;
    EXPECT_EQ(kind(), '2');
    cmn().EMOD(1) = 42000000.75;
    EXPECT_EQ(kind(), '1');
}

TEST_F(PlotFile, ModulusIsComparedInTheUnitsOfTheDeck) {
    cmn().EMOD(1) = 5.0e7; // steel of 2.1e8 times the force factor over the length factor squared
    EXPECT_EQ(kind(), '1');
    cmn().FACF = 2.0;
    EXPECT_EQ(kind(), '2'); // 4.2e8
    cmn().FACL = 2.0;
    EXPECT_EQ(kind(), '1'); // 1.05e8
}

TEST_F(PlotFile, SectionWithoutAMaterialIsConcrete) {
    for (const int material : {0, -1, 3}) {
        cmn().MATCRS(1) = material;
        EXPECT_EQ(kind(), '2') << material;
    }
}

TEST_F(PlotFile, TipElementWithoutASectionIsLeftOut) {
    give_pile(1, {1, 0});
    EXPECT_EQ(plotted(), heading("        1"));
}

TEST_F(PlotFile, ShowsWhatIsNotFiniteAndWhatIsTooLong) {
    give_section(1, 1, std::numeric_limits<double>::infinity(), 1e60);
    give_pile(1, {1});
    cmn().XNOD(1, 1) = std::numeric_limits<double>::infinity();
    cmn().YNOD(1, 1) = -std::numeric_limits<double>::infinity();
    cmn().ZNOD(1, 1) = std::numeric_limits<double>::quiet_NaN();
    cmn().XNOD(2, 1) = 1e60; // 65 characters with three decimals
    cmn().YNOD(2, 1) = 1e300;
    EXPECT_EQ(plotted(), heading("        1") + pile("   1   2    inf*******   1") +
                             "    1       inf      -inf       nan\n"
                             "    2********************    10.000\n");
}

} // namespace
} // namespace korvat::test
