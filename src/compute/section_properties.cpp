#include "compute/section_properties.hpp"

#include "model/store/slots.hpp"

namespace korvat {
namespace {

// A given stiffness overrides the computed one.
double given_or(const Store& cmn, double given, double computed) {
    return given > cmn.TOL ? given : computed;
}

// Slots 1 to 14 of cross section i, a tube of one material.
void form_tube(Store& cmn, int i) {
    const int m = cmn.MATCRS(i);
    const double D = cmn.DIAM(i);
    const double t = cmn.WALL(i);
    const double d = D - 2.0 * t;
    const double EMOD = material_value(cmn, cmn.EMOD, m);
    const double GMOD = material_value(cmn, cmn.GMOD, m);

    const double A = ((D - t) * cmn.PI) * t;
    const double I = ((D * D) * (D * D) - (d * d) * (d * d)) * cmn.PI * 0.015625;
    const double W = 2.0 * I / D;

    cmn.CRSVAL(slot::diameter, i) = D;
    cmn.CRSVAL(slot::wall, i) = t;
    cmn.CRSVAL(slot::area, i) = A;
    cmn.CRSVAL(slot::modulus, i) = W;
    cmn.CRSVAL(slot::axial, i) = given_or(cmn, cmn.STFAX(i), A * EMOD);
    cmn.CRSVAL(slot::shear, i) = given_or(cmn, cmn.STFSH(i), A * GMOD);
    cmn.CRSVAL(slot::bending, i) = given_or(cmn, cmn.STFBN(i), I * EMOD);
    cmn.CRSVAL(slot::torsion, i) = given_or(cmn, cmn.STFTO(i), (2.0 * I) * GMOD);
    cmn.CRSVAL(slot::wall_weight, i) = material_value(cmn, cmn.UWWALL, m);
    cmn.CRSVAL(slot::fluid_weight, i) = cmn.UWFLD(i);
    cmn.CRSVAL(slot::temperature_strain, i) = material_value(cmn, cmn.EPSTMP, m);
    cmn.CRSVAL(slot::yield_stress, i) = material_value(cmn, cmn.SIGYLD, m);
    cmn.CRSVAL(slot::elastic_modulus, i) = EMOD;
    cmn.CRSVAL(slot::shear_modulus, i) = GMOD;
}

// Slots 16 and 17 of a tube.
void form_yield_sums(Store& cmn, int i) {
    const double D = cmn.CRSVAL(slot::diameter, i);
    const double t = cmn.CRSVAL(slot::wall, i);
    const double A = cmn.CRSVAL(slot::area, i);
    const double sigy = cmn.CRSVAL(slot::yield_stress, i);
    cmn.CRSVAL(slot::axial_yield, i) = A * sigy;
    cmn.CRSVAL(slot::torsional_yield, i) = (A * (0.5 * sigy)) * ((D - t) * 0.5);
}

void add_to_composite(Store& cmn, int composite, int sub_section) {
    constexpr int summed[] = {slot::area,    slot::axial,       slot::shear,          slot::bending,
                              slot::torsion, slot::axial_yield, slot::torsional_yield};
    for (const int s : summed) {
        cmn.CRSVAL(s, composite) += cmn.CRSVAL(s, sub_section);
    }
}

// Forms the sub-sections behind number k and sums them up; returns the number of the last one.
int form_composite(Store& cmn, int composite, int k) {
    for (int s = 1; s <= slot::torsional_yield; ++s) {
        cmn.CRSVAL(s, composite) = 0.0;
    }
    double largest = 0.0;
    for (int j = 1; j <= cmn.ITYCRS(composite); ++j) {
        ++k;
        form_tube(cmn, k);
        form_yield_sums(cmn, k);
        add_to_composite(cmn, composite, k);
        if (cmn.DIAM(k) > largest) largest = cmn.DIAM(k); // on a tie the first wins
    }
    cmn.CRSVAL(slot::diameter, composite) = largest;
    cmn.MATCRS(composite) = 0; // a composite has no single material
    return k;
}

} // namespace

void form_section_properties(Store& cmn) {
    for (int i = 1; i <= cmn.NUMCRS; ++i) {
        form_tube(cmn, i);
        cmn.CRSVAL(slot::eccentricity, i) = 0.0;
    }
}

void form_composite_sections(Store& cmn) {
    if (cmn.IREV == 4) return;
    int k = cmn.NUMCRS;
    for (int ic = 1; ic <= cmn.NUMCRS; ++ic) {
        if (cmn.ITYCRS(ic) == 1) {
            form_yield_sums(cmn, ic);
        } else {
            k = form_composite(cmn, ic, k);
        }
    }
    cmn.NUMCRS = k;
}

} // namespace korvat
