// Material types section.
#include "model/sections/section_reader.hpp"

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

// The value that an error number is about.
int value_at_fault(int error) {
    return error == 6 ? 6 : error + 1;
}

// Error number of a modulus, 0 when both are positive.
int modulus_error(const Store& cmn, int N) {
    int error = 0;
    if (cmn.TOL > cmn.EMOD(N)) error = 1;
    if (cmn.TOL > cmn.GMOD(N)) error = 2;
    return error;
}

void warn_of_poisson_ratio(SectionReader& in, int N) {
    const Store& cmn = in.cmn;
    const double nu = cmn.EMOD(N) * 0.5 / std::max(cmn.TOL, cmn.GMOD(N)) - 1.0;
    if (nu < -cmn.TOL || nu > highest_poisson) {
        in.warn("(/,' WARNING FROM SR/READPI :  N,EMOD,GMOD=',i5,2e12.4)", N, cmn.EMOD(N),
                cmn.GMOD(N));
    }
}

void warn_of_yield_stress(SectionReader& in, int N) {
    const Store& cmn = in.cmn;
    if (cmn.SIGYLD(N) < cmn.TOL) return;
    const double ratio = cmn.EMOD(N) / std::max(cmn.TOL, cmn.SIGYLD(N));
    if (ratio < 50.0 || ratio > 5000.0) {
        in.warn("(/,' WARNING FROM SR/READPI :  N,EMOD,SIGYLD=',i5,2e12.4)", N, cmn.EMOD(N),
                cmn.SIGYLD(N));
    }
}

int check_material(SectionReader& in, int N) {
    const Store& cmn = in.cmn;
    int error = modulus_error(cmn, N);
    if (error == 0) {
        warn_of_poisson_ratio(in, N);
        warn_of_yield_stress(in, N);
    }
    if (cmn.EPSTMP(N) < -cmn.TOL) error = 6;
    if (cmn.EPSTMP(N) > high_temperature_strain) {
        in.warn("(/,' WARNING FROM SR/READPI :  N,EPSTMP=',i5,e12.4)", N, cmn.EPSTMP(N));
    }
    if (error == 0) return no_fault;
    return in.reject(in.place(value_at_fault(error)),
                     "(/,' **** SR/READPI : MATERIAL ERROR  MAT,IERR=',2i5)", N, error);
}

} // namespace

int read_material_types(SectionReader& in) {
    const Store& cmn = in.cmn;
    in.LOC = deck::record(deck::RecordId::material).location;
    if (const int fault = in.require_blank_line("MATERIAL TYPES SECTION")) return fault;
    if (const int fault = in.skip_headings(cmn.IREV == 5 ? 3 : 2)) return fault;
    for (int N = 1; N <= cmn.NUMMAT; ++N) {
        if (const int fault = in.read_record(deck::RecordId::material, N)) return fault;
        if (in.integer(1) != N) {
            return in.reject(in.place(1),
                             "(/,' **** SR/READPI : MATERIAL TYPES SEQUENCE ERROR',2i5)", N,
                             in.integer(1));
        }
        store_material(in, N);
        if (const int fault = check_material(in, N)) return fault;
    }
    return no_fault;
}

} // namespace korvat
