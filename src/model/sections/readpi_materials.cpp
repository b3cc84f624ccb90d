// Material types section.
#include "model/sections/section_reader.hpp"

#include "model/sections/value_error.hpp"

#include <algorithm>

namespace korvat {
namespace {

// Single-precision constants widened to double; they decide borderline cases.
constexpr double highest_poisson = 0.5001F;
constexpr double high_temperature_strain = 1.0e-4F;

void store_material(SectionReader& in, int N) {
    Store& cmn = in.cmn;
    const double stress = stress_factor(cmn);
    cmn.EMOD(N) = in.VAR(2) * stress;
    cmn.GMOD(N) = in.VAR(3) * stress;
    cmn.SIGYLD(N) = in.VAR(4) * stress;
    cmn.UWWALL(N) = in.VAR(5) * (stress / cmn.FACL);
    cmn.EPSTMP(N) = in.VAR(6);
}

ValueError modulus_error(const Store& cmn, int N) {
    ValueError error;
    if (cmn.TOL > cmn.EMOD(N)) error = {1, 2};
    if (cmn.TOL > cmn.GMOD(N)) error = {2, 3};
    return error;
}

void warn_of_poisson_ratio(SectionReader& in, int N) {
    const Store& cmn = in.cmn;
    const double nu = cmn.EMOD(N) * 0.5 / std::max(cmn.TOL, cmn.GMOD(N)) - 1.0;
    if (nu < -cmn.TOL || nu > highest_poisson) {
        in.warn(in.place(3), "(/,' WARNING FROM SR/READPI :  N,EMOD,GMOD=',i5,2e12.4)", N,
                cmn.EMOD(N), cmn.GMOD(N));
    }
}

void warn_of_yield_stress(SectionReader& in, int N) {
    const Store& cmn = in.cmn;
    if (cmn.SIGYLD(N) < cmn.TOL) return;
    const double ratio = cmn.EMOD(N) / std::max(cmn.TOL, cmn.SIGYLD(N));
    if (ratio < 50.0 || ratio > 5000.0) {
        in.warn(in.place(4), "(/,' WARNING FROM SR/READPI :  N,EMOD,SIGYLD=',i5,2e12.4)", N,
                cmn.EMOD(N), cmn.SIGYLD(N));
    }
}

Cause check_material(SectionReader& in, int N) {
    const Store& cmn = in.cmn;
    ValueError error = modulus_error(cmn, N);
    if (!error) {
        warn_of_poisson_ratio(in, N);
        warn_of_yield_stress(in, N);
    }
    if (cmn.EPSTMP(N) < -cmn.TOL) error = {6, 6};
    if (cmn.EPSTMP(N) > high_temperature_strain) {
        in.warn(in.place(6), "(/,' WARNING FROM SR/READPI :  N,EPSTMP=',i5,e12.4)", N,
                cmn.EPSTMP(N));
    }
    if (!error) return Cause::none;
    return in.reject(in.place(error.value), "(/,' **** SR/READPI : MATERIAL ERROR  MAT,IERR=',2i5)",
                     N, error.number);
}

} // namespace

Cause read_material_types(SectionReader& in) {
    const Store& cmn = in.cmn;
    in.LOC = deck::record(deck::RecordId::material).location;
    if (const Cause fault = in.require_blank_line("MATERIAL TYPES SECTION")) return fault;
    if (const Cause fault = in.skip_headings(cmn.IREV == 5 ? 3 : 2)) return fault;
    for (int N = 1; N <= cmn.NUMMAT; ++N) {
        if (const Cause fault = in.read_record(deck::RecordId::material, N)) return fault;
        if (in.integer(1) != N) {
            return in.reject(in.place(1),
                             "(/,' **** SR/READPI : MATERIAL TYPES SEQUENCE ERROR',2i5)", N,
                             in.integer(1));
        }
        store_material(in, N);
        if (const Cause fault = check_material(in, N)) return fault;
    }
    return Cause::none;
}

} // namespace korvat
