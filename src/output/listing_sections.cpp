// Cross sections in the result listing.
#include "model/store/slots.hpp"
#include "output/listing_pages.hpp"

#include <algorithm>
#include <vector>

namespace korvat {
namespace {

void write_sizes(Store& cmn) {
    cmn.runtime.write(
        cmn.NF13,
        "(' CROSS SECTION VALUES',/,1x,20('*'),/,/,' CROSS       ','OUTER      WALL     CRSS SCTN    SECTION    UNIT WGHT   ','UNIT WGHT',/,' SECTN MAT  DIAMETER  THICKNESS    AREA       ','MODULUS    PILE WALL   PILE FLD')");
    for (int i = 1; i <= cmn.NUMCRS; ++i) {
        cmn.runtime.write(cmn.NF13, "(i4,i5,f10.4,f10.4,1x,1p,4e12.3)", i, cmn.MATCRS(i),
                          cmn.CRSVAL(slot::diameter, i), cmn.CRSVAL(slot::wall, i),
                          cmn.CRSVAL(slot::area, i), cmn.CRSVAL(slot::modulus, i),
                          cmn.CRSVAL(slot::wall_weight, i), cmn.CRSVAL(slot::fluid_weight, i));
    }
}

void write_stiffnesses(Store& cmn) {
    cmn.runtime.write(
        cmn.NF13,
        "(/,' CROSS         YIELD     ELASTIC     AXIAL      ','SHEAR     BENDING   TORSIONAL',/,' SECTN MAT    STRESS     ','MODULUS ',4('  STIFFNESS'))");
    double modulus = 0.0; // without a material number that of the section before is repeated
    for (int i = 1; i <= cmn.NUMCRS; ++i) {
        const int m = cmn.MATCRS(i);
        if (m >= 0) modulus = material_value(cmn, cmn.EMOD, m);
        cmn.runtime.write(cmn.NF13, "(i4,i5,2x,1p,6e11.3)", i, m, cmn.CRSVAL(slot::yield_stress, i),
                          modulus, cmn.CRSVAL(slot::axial, i), cmn.CRSVAL(slot::shear, i),
                          cmn.CRSVAL(slot::bending, i), cmn.CRSVAL(slot::torsion, i));
    }
}

void write_sums(Store& cmn) {
    cmn.runtime.write(
        cmn.NF13,
        "(/,' CROSS          NON-   ECCENTR    SUM',8x,' SUM       MISCL  MISCL  MISCL',/,' SECTN   TYPE  LINEAR    (m)    (A*Sigy)   (A*Tauy*R)    (1)','    (2)    (3)')");
    for (int i = 1; i <= cmn.NUMCRS; ++i) {
        cmn.runtime.write(cmn.NF13, "(i4,i8,i7,f10.3,1p,2e12.3,0p,f8.3,2f7.3)", i, cmn.ITYCRS(i),
                          cmn.NLCRS(i), cmn.ECC(i), cmn.CRSVAL(slot::axial_yield, i),
                          cmn.CRSVAL(slot::torsional_yield, i), cmn.CMISC(1, i), cmn.CMISC(2, i),
                          cmn.CMISC(3, i));
    }
}

bool is_composite(const Store& cmn, int i) {
    return cmn.ITYCRS(i) >= 2;
}

// The number and four sub-sections on a line; every further line starts the format anew.
void write_composite(Store& cmn, int i) {
    std::vector<fortran::Item> numbers = {i};
    const int sub_sections = std::min(cmn.ITYCRS(i), limits::sub_sections);
    for (int j = 1; j <= sub_sections; ++j) {
        numbers.emplace_back(cmn.ICOMP(j, i));
    }
    cmn.runtime.write_items(cmn.NF13, "(i5,i7,3i4)", numbers);
}

template <typename Condition>
bool any_section(const Store& cmn, Condition condition) {
    for (int i = 1; i <= cmn.NUMCRS; ++i) {
        if (condition(i)) return true;
    }
    return false;
}

void write_curves(Store& cmn, int i) {
    for (int p = 1; p <= cmn.NLCRS(i); ++p) {
        cmn.runtime.write(cmn.NF13, "(i5,i8,1p,e14.3,e11.3,e13.3,e11.3)", i, p, cmn.FAXEL(p, i),
                          cmn.FMOEL(p, i), cmn.FAXPL(p, i), cmn.FMOPL(p, i));
    }
}

} // namespace

void write_cross_section_tables(Store& cmn) {
    write_sizes(cmn);
    write_stiffnesses(cmn);
    write_sums(cmn);
}

void write_composite_table(Store& cmn) {
    cmn.runtime.write(cmn.NF13, "(/,' COMPOSITE CROSS SECTIONS',/,1x,24('*'))");
    if (!any_section(cmn, [&](int i) { return is_composite(cmn, i); })) {
        cmn.runtime.write(cmn.NF13, "(/,' There are no composite cross sections')");
        return;
    }
    cmn.runtime.write(cmn.NF13,
                      "(/,' Cross    Made up by the',/,' section  following',' sub-sections')");
    for (int i = 1; i <= cmn.NUMCRS; ++i) {
        if (is_composite(cmn, i)) write_composite(cmn, i);
    }
}

void write_curve_table(Store& cmn) {
    cmn.runtime.write(cmn.NF13, "(/,' NON-LINEAR CROSS SECTIONS',/,1x,25('*'))");
    if (!any_section(cmn, [&](int i) { return cmn.NLCRS(i) != 0; })) {
        cmn.runtime.write(cmn.NF13, "(/,' There are no non-linear cross sections')");
        return;
    }
    cmn.runtime.write(
        cmn.NF13,
        "(/,' Cross    Point   Elastic yield curve     Plastic',' yield curve',/,' section   no.     Axial      Moment','       Axial      Moment')");
    bool is_first = true;
    for (int i = 1; i <= cmn.NUMCRS; ++i) {
        if (cmn.NLCRS(i) <= 0) continue;
        if (!is_first) cmn.runtime.write(cmn.NF13, "(' ')");
        write_curves(cmn, i);
        is_first = false;
    }
}

} // namespace korvat
