#include "output/plot_file.hpp"

namespace korvat {
namespace {

// The single-precision 0.2 widened: a modulus ratio of exactly 0.2 lies below it.
constexpr double concrete_ratio = 0.2F;

// 1 steel, 2 concrete, by the modulus of the material against that of steel, 2.1e8 kN/m2. The
// factors are those of the deck, so a model that is not in kN and m may show another kind.
int material_kind(const Store& cmn, int section) {
    const double Es = cmn.FACF * 2.1e8 / cmn.FACL / cmn.FACL;
    const double E = material_value(cmn, cmn.EMOD, cmn.MATCRS(section)); // 0.0 for a composite
    return concrete_ratio > E / Es ? 2 : 1;
}

void write_pile(Store& cmn, int np) {
    const int tip_element = cmn.NELP(np);
    if (tip_element == 0) return; // a dummy pile
    const int ic = cmn.ICREL(tip_element, np);
    if (ic <= 0) return;
    const int nodes = cmn.NELP(np) + 1;
    cmn.runtime.write(
        cmn.NF14,
        "(/,i4,i4,2f7.3,i4,'  Pile,nodes,diam,wall,''material (1=steel 2=concrete)',/,/,'  Node     X         Y         Z')",
        np, nodes, cmn.DIAM(ic), cmn.WALL(ic), material_kind(cmn, ic));
    for (int n = 1; n <= nodes; ++n) {
        cmn.runtime.write(cmn.NF14, "(i5,3f10.3)", n, cmn.XNOD(n, np), cmn.YNOD(n, np),
                          cmn.ZNOD(n, np));
    }
}

} // namespace

void write_plot_file(Store& cmn) {
    cmn.runtime.write(cmn.NF14, "(a80,/,/,i9,'  Number of piles')", cmn.LABEL, cmn.NUMPIL);
    for (int np = 1; np <= cmn.NUMPIL; ++np) {
        write_pile(cmn, np);
    }
}

} // namespace korvat
