// Piles in the result listing: nodes, batter and length, dummy pile heads, check sums.
#include "model/store/slots.hpp"
#include "output/listing_pages.hpp"

#include <cmath>
#include <vector>

namespace korvat {
namespace {

constexpr int group_size = 5; // nodes between two blank records

void write_pile_heading(Store& cmn, int np) {
    cmn.runtime.write(
        cmn.NF13,
        "(' PILE NUMBER = ',i3.3,'   ELEMENTS =',i3,'   TIP CODE =',i4,5x,'FIXED TO PILE : ',i3.3)",
        np, cmn.NELP(np), cmn.ITIP(np), cmn.IFIX(np));
    cmn.runtime.write(
        cmn.NF13,
        "(/,' NODE   X-COORD    Y-COORD    Z-COORD    ELM CRS  ','DIAMETER  LENGTH   TEMP-STRN',/,' ')");
}

double element_length(const Store& cmn, int np, int e) {
    const double dx = cmn.XNOD(e + 1, np) - cmn.XNOD(e, np);
    const double dy = cmn.YNOD(e + 1, np) - cmn.YNOD(e, np);
    const double dz = cmn.ZNOD(e + 1, np) - cmn.ZNOD(e, np);
    return std::sqrt(dy * dy + dx * dx + dz * dz);
}

// 0.0 for an element of a composite, where the analysis file has the factor 1.0; intended.
double temperature_strain(const Store& cmn, int np, int e) {
    const int m = cmn.MATCRS(cmn.ICREL(e, np));
    if (m <= 0) return 0.0;
    return material_value(cmn, cmn.EPSTMP, m) * (cmn.TSNOD(e, np) + cmn.TSNOD(e + 1, np)) * 0.5;
}

void write_node(Store& cmn, int np, int n) {
    const std::string_view format = "(i4,3f11.4,i6,i4,f10.4,f9.4,1p,e12.3)";
    if (n > cmn.NELP(np)) { // the last node begins no element
        cmn.runtime.write(cmn.NF13, format, n, cmn.XNOD(n, np), cmn.YNOD(n, np), cmn.ZNOD(n, np));
        return;
    }
    const int ic = cmn.ICREL(n, np);
    cmn.runtime.write(cmn.NF13, format, n, cmn.XNOD(n, np), cmn.YNOD(n, np), cmn.ZNOD(n, np), n, ic,
                      cmn.CRSVAL(slot::diameter, ic), element_length(cmn, np, n),
                      temperature_strain(cmn, np, n));
}

void write_batter_and_length(Store& cmn, int np) {
    const int last = cmn.NELP(np) + 1;
    const double dx = cmn.XNOD(last, np) - cmn.XNOD(1, np);
    const double dy = cmn.YNOD(last, np) - cmn.YNOD(1, np);
    const double dz = cmn.ZNOD(last, np) - cmn.ZNOD(1, np);
    const double h = std::sqrt(dy * dy + dx * dx);
    const double length = std::sqrt(dz * dz + h * h);
    const double batter =
        std::fabs(dz) > cmn.TOL ? std::atan(h / dz) / cmn.PI * 180.0 : 90.0; // degrees
    cmn.runtime.write(cmn.NF13,
                      "(/,/,' TRUE PILE BATTER =',f8.2,' DEGREES',/,/,' PILE LENGTH      =',f10.4)",
                      batter, length);
}

bool is_dummy(const Store& cmn, int np) {
    return cmn.NELP(np) == 0;
}

// Eight connected piles to a line; the format ends with the start of a next one, so exactly eight
// are followed by an empty line.
void write_dummy_pile(Store& cmn, int d) {
    std::vector<fortran::Item> items = {d, cmn.XNOD(1, d), cmn.YNOD(1, d), cmn.ZNOD(1, d)};
    for (int np = 1; np <= cmn.NUMPIL; ++np) {
        if (np != d && cmn.IFIX(np) == d) items.emplace_back(np);
    }
    cmn.runtime.write_items(cmn.NF13, "(/,i4,1x,3f11.4,6x,8i4.3,/(44x,8i4.3))", items);
}

struct Sums {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    void add(const Store& cmn, int np, int node) {
        x += cmn.XNOD(node, np);
        y += cmn.YNOD(node, np);
        z += cmn.ZNOD(node, np);
    }
};

} // namespace

void write_pile_tables(Store& cmn, const PageTexts& texts) {
    for (int np = 1; np <= cmn.NUMPIL; ++np) {
        if (is_dummy(cmn, np)) continue;
        write_page_header(cmn, texts);
        write_pile_heading(cmn, np);
        const int nodes = cmn.NELP(np) + 1;
        for (int n = 1; n <= nodes; ++n) {
            write_node(cmn, np, n);
            if (n % group_size == 0 && n != nodes) cmn.runtime.write(cmn.NF13, "(' ')");
        }
        write_batter_and_length(cmn, np);
    }
}

void write_dummy_pile_heads(Store& cmn, const PageTexts& texts) {
    bool is_first = true;
    for (int np = 1; np <= cmn.NUMPIL; ++np) {
        if (!is_dummy(cmn, np)) continue;
        if (is_first) {
            write_page_header(cmn, texts);
            cmn.runtime.write(
                cmn.NF13,
                "(' DUMMY PILE HEAD COORDINATES',/,1x,27('*'),/,/,' PILE','     X-HEAD     Y-HEAD     Z-HEAD',7x,'PILES RIGIDLY CONNECTED')");
            is_first = false;
        }
        write_dummy_pile(cmn, np);
    }
}

// Dummy piles count among the heads but not among the tips; intended.
void write_check_sums(Store& cmn, const PageTexts& texts) {
    Sums heads;
    Sums tips;
    for (int np = 1; np <= cmn.NUMPIL; ++np) {
        heads.add(cmn, np, 1);
        if (!is_dummy(cmn, np)) tips.add(cmn, np, cmn.NELP(np) + 1);
    }
    write_page_header(cmn, texts);
    cmn.runtime.write(
        cmn.NF13,
        "(' CHECK SUMS FOR PILE NODE COORDINATES',/,1x,36('*'),/,/,' PILE HEADS :',9x,'SUM-X =',f13.4,/,22x,'SUM-Y =',f13.4,/,22x,'SUM-Z =',f13.4)",
        heads.x, heads.y, heads.z);
    cmn.runtime.write(
        cmn.NF13,
        "(/,' PILE TIPS :',10x,'SUM-X =',f13.4,/,22x,'SUM-Y =',f13.4,/,22x,'SUM-Z =',f13.4)",
        tips.x, tips.y, tips.z);
}

} // namespace korvat
