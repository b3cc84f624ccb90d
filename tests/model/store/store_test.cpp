// Tests of the store: its first state, its capacities and the reset of the pile data.
#include "support/model_fixture.hpp"

#include "fortran/save_holder.hpp"

#include <algorithm>

namespace korvat::test {
namespace {

// Calls `visit` with every table of reals that the reset leaves alone.
template <typename Visit>
void visit_kept_reals(Store& cmn, Visit visit) {
    for (Table1<double, 20>* table : {&cmn.EMOD, &cmn.GMOD, &cmn.SIGYLD, &cmn.UWWALL, &cmn.EPSTMP})
        visit(table->all());
    for (Table1<double, 200>* table : {&cmn.DIAM, &cmn.WALL, &cmn.STFAX, &cmn.STFBN, &cmn.STFSH,
                                       &cmn.STFTO, &cmn.UWFLD, &cmn.ECC})
        visit(table->all());
    for (Table2<double, 3, 200>* table : {&cmn.CMISC, &cmn.XHEAD, &cmn.XTIP})
        visit(table->all());
    visit(cmn.CRSVAL.all());
    for (Table2<double, 10, 200>* table : {&cmn.FAXEL, &cmn.FMOEL, &cmn.FAXPL, &cmn.FMOPL})
        visit(table->all());
    visit(cmn.SEGLEN.all());
    visit(cmn.SPVAL.all());
    for (Table2<double, 451, 200>* table : {&cmn.XNOD, &cmn.YNOD, &cmn.ZNOD})
        visit(table->all());
    for (Table1<double, 450>* table : {&cmn.ELDIA, &cmn.ELLEN, &cmn.ELTMP})
        visit(table->all());
    for (Table2<double, 6, 451>* table : {&cmn.VNOD1, &cmn.VNOD2, &cmn.VNOD3})
        visit(table->all());
}

// The same for the tables of integers.
template <typename Visit>
void visit_kept_integers(Store& cmn, Visit visit) {
    visit(cmn.IRDATE.all());
    for (Table1<int, 200>* table : {&cmn.MATCRS, &cmn.ITYCRS, &cmn.NLCRS, &cmn.NGEN, &cmn.NSYM})
        visit(table->all());
    visit(cmn.ICOMP.all());
    visit(cmn.ICRSEG.all());
    visit(cmn.NELSEG.all());
    visit(cmn.ISPNOD.all());
    visit(cmn.ISPCOD.all());
    visit(cmn.ICREL.all());
}

// The tables that the reset clears.
template <typename Visit>
void visit_reset(Store& cmn, Visit visit) {
    for (Table1<int, 200>* table : {&cmn.NSEGP, &cmn.NELP, &cmn.IFIX, &cmn.ITIP})
        visit(table->all());
    visit(cmn.ISEGP.all());
    visit(cmn.TSNOD.all());
}

template <typename Visit>
void visit_all(Store& cmn, Visit visit) {
    visit_kept_reals(cmn, visit);
    visit_kept_integers(cmn, visit);
    visit_reset(cmn, visit);
}

std::vector<int*> scalars(Store& cmn) {
    return {&cmn.NF5,    &cmn.NF6,    &cmn.NF7,    &cmn.NF9,    &cmn.NF11,   &cmn.NF12,
            &cmn.NF13,   &cmn.NF14,   &cmn.MAXPIL, &cmn.MAXCRS, &cmn.MAXMAT, &cmn.MAXSEG,
            &cmn.MAXELM, &cmn.MAXNOD, &cmn.MAXSPP, &cmn.MAXSPC, &cmn.IERR,   &cmn.NLINE,
            &cmn.NUMPIL, &cmn.NUMCRS, &cmn.NUMLOD, &cmn.NUMSPC, &cmn.JPRINT, &cmn.JECHO,
            &cmn.NUMMAT, &cmn.IREV};
}

TEST(Store, StartsWithEverythingZeroOrBlank) {
    const auto cmn = std::make_unique<Store>(0, nullptr);
    std::size_t count = 0;
    visit_all(*cmn, [&count](auto values) {
        for (const auto value : values)
            count += value == 0 ? 0U : 1U;
    });
    EXPECT_EQ(count, 0U);
    for (const int* const scalar : scalars(*cmn))
        EXPECT_EQ(*scalar, 0);
    for (const double scalar : {cmn->PI, cmn->TOL, cmn->FACF, cmn->FACL})
        EXPECT_EQ(scalar, 0.0);
    EXPECT_EQ(cmn->LABEL.view(), std::string(80, ' '));
    EXPECT_EQ(cmn->LINE.view(), std::string(640, ' '));
    EXPECT_TRUE(cmn->printpil_sve->is_empty());
    EXPECT_TRUE(cmn->sketch_sve->is_empty());
}

TEST(Store, HasTheCapacitiesOfItsLimits) {
    const auto cmn = std::make_unique<Store>(0, nullptr);
    std::size_t count = 0;
    visit_all(*cmn, [&count](auto values) { count += values.size(); });
    constexpr std::size_t per_material = 20 * 5;
    constexpr std::size_t per_section = 200 * (3 + 12 + 8 + 3 + 20 + 4 * 10);
    constexpr std::size_t per_segment_type = 1000 * (2 + 1 + 1);
    constexpr std::size_t per_pile = 200 * (2 + 3 + 3 + 1 + 20 + 3) + 200 * (450 + 4 * 451);
    constexpr std::size_t per_special_record = 500 * (4 + 1 + 6);
    constexpr std::size_t work = 3 * 450 + 3 * 6 * 451;
    constexpr std::size_t revision_date = 3;
    EXPECT_EQ(count, per_material + per_section + per_segment_type + per_pile + per_special_record +
                         work + revision_date);
}

TEST(Store, ResetClearsThePileDataOfEveryPileAndNothingElse) {
    const auto cmn = std::make_unique<Store>(0, nullptr);
    visit_all(*cmn, [](auto values) { std::ranges::fill(values, 3); });
    for (int* const scalar : scalars(*cmn))
        *scalar = 3;
    cmn->NUMPIL = 1; // the reset does not look at it
    cmn->FACL = 2.0;
    cmn->LABEL.assign("label");
    cmn->LINE.assign("line");
    rstpil(*cmn);

    std::size_t not_cleared = 0;
    visit_reset(*cmn, [&not_cleared](auto values) {
        for (const auto value : values)
            not_cleared += value == 0 ? 0U : 1U;
    });
    EXPECT_EQ(not_cleared, 0U);
    std::size_t touched = 0;
    const auto count_touched = [&touched](auto values) {
        for (const auto value : values)
            touched += value == 3 ? 0U : 1U;
    };
    visit_kept_reals(*cmn, count_touched);
    visit_kept_integers(*cmn, count_touched);
    EXPECT_EQ(touched, 0U);
    for (const int* const scalar : scalars(*cmn))
        EXPECT_EQ(*scalar, scalar == &cmn->NUMPIL ? 1 : 3);
    EXPECT_EQ(cmn->FACL, 2.0);
    EXPECT_EQ(fortran::trimmed(cmn->LABEL.view()), "label");
    EXPECT_EQ(fortran::trimmed(cmn->LINE.view()), "line");
}

TEST(Store, MaterialValueIsZeroForWhatIsNoMaterial) {
    const auto cmn = std::make_unique<Store>(0, nullptr);
    cmn->NUMMAT = 2;
    std::ranges::fill(cmn->EMOD.all(), 5.0);
    EXPECT_EQ(material_value(*cmn, cmn->EMOD, 1), 5.0);
    EXPECT_EQ(material_value(*cmn, cmn->EMOD, 2), 5.0);
    for (const int number : {0, -1, 3, 21, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(material_value(*cmn, cmn->EMOD, number), 0.0) << number;
    }
}

TEST_F(ModelTest, EndOfTheStoreClosesEveryUnit) {
    cmn().runtime.write(6, "('log')");
    cmn().runtime.write(13, "('listing')");
    end_run();
    EXPECT_EQ(log(), "log\n");
    EXPECT_EQ(listing(), "listing\n");
}

} // namespace
} // namespace korvat::test
