// A store with results made by hand for the listing, and the texts of its headings.
#pragma once

#include "support/model_fixture.hpp"

#include "output/listing_pages.hpp"

#include <algorithm>

namespace korvat::test {

class ListingTest : public ModelTest {
protected:
    ListingTest() : version_("7.6.0.81"), release_date_("03-Feb-2026") {
        cmn().LABEL.assign("Group of piles");
        cmn().IREV = 5;
        const std::vector<int> time = {2026, 2, 5, 7, 8, 9}; // months are counted from 0
        std::ranges::copy(time, time_.all().begin());
    }

    static std::string page_header() {
        return "\n"
               "1\n"
               " KORVAT Output   Program Version =  7.6.0.81  03-Feb-2026     "
               "Time = 05-MAR-2026  07:08:09\n"
               "\n"
               " " +
               padded("Group of piles", 80) +
               "\n"
               " \n";
    }

    PageTexts texts() const { return {version_, release_date_, time_}; }

    // What the call has added to the listing.
    template <typename Write>
    std::string written(Write write) {
        const std::size_t start = listing().size();
        write();
        return listing().substr(start);
    }

    void give_node(int n, int np, double x, double y, double z) {
        cmn().XNOD(n, np) = x;
        cmn().YNOD(n, np) = y;
        cmn().ZNOD(n, np) = z;
    }

    // The next pile, with nodes from the head on; returns its number.
    int add_pile(int elements, double x, double y, double z) {
        const int np = ++cmn().NUMPIL;
        cmn().NELP(np) = elements;
        for (int n = 1; n <= elements + 1; ++n)
            give_node(n, np, x, y, z + 2.0 * (n - 1));
        for (int e = 1; e <= elements; ++e)
            cmn().ICREL(e, np) = 1;
        return np;
    }

    fortran::Text<10> version_;
    fortran::Text<11> release_date_;
    TimeFields time_;
};

// Headings of the tables.
constexpr std::string_view sizes_heading =
    " CROSS SECTION VALUES\n"
    " ********************\n"
    "\n"
    " CROSS       OUTER      WALL     CRSS SCTN    SECTION    UNIT WGHT   UNIT WGHT\n"
    " SECTN MAT  DIAMETER  THICKNESS    AREA       MODULUS    PILE WALL   PILE FLD\n";

constexpr std::string_view stiffness_heading =
    "\n"
    " CROSS         YIELD     ELASTIC     AXIAL      SHEAR     BENDING   TORSIONAL\n"
    " SECTN MAT    STRESS     MODULUS   STIFFNESS  STIFFNESS  STIFFNESS  STIFFNESS\n";

constexpr std::string_view sums_heading =
    "\n"
    " CROSS          NON-   ECCENTR    SUM         SUM       MISCL  MISCL  MISCL\n"
    " SECTN   TYPE  LINEAR    (m)    (A*Sigy)   (A*Tauy*R)    (1)    (2)    (3)\n";

constexpr std::string_view composite_heading = "\n"
                                               " COMPOSITE CROSS SECTIONS\n"
                                               " ************************\n";

constexpr std::string_view curve_heading = "\n"
                                           " NON-LINEAR CROSS SECTIONS\n"
                                           " *************************\n";

constexpr std::string_view node_heading =
    "\n"
    " NODE   X-COORD    Y-COORD    Z-COORD    ELM CRS  DIAMETER  LENGTH   TEMP-STRN\n"
    " \n";

constexpr std::string_view dummy_heading =
    " DUMMY PILE HEAD COORDINATES\n"
    " ***************************\n"
    "\n"
    " PILE     X-HEAD     Y-HEAD     Z-HEAD       PILES RIGIDLY CONNECTED\n";

constexpr std::string_view sums_of_coordinates = " CHECK SUMS FOR PILE NODE COORDINATES\n"
                                                 " ************************************\n"
                                                 "\n";

inline std::string operator+(std::string_view a, const std::string& b) {
    return std::string(a) + b;
}

} // namespace korvat::test
