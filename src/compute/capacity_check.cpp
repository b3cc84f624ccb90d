// The two capacity checks of a tubular section under axial force and bending.
#include "compute/capacity_check.hpp"

#include <algorithm>
#include <cmath>
#include <optional>

namespace korvat {
namespace {

// Every constant of the checks is a single-precision value; the arithmetic is in double.
constexpr double small = 1.0e-6F;
constexpr double highest_ratio = 120.0F; // D/t
constexpr double beyond_ratio = 9.999F;  // utilisation above it

// Pi in single precision.
double circle_constant() {
    return 4.0F * std::atan(1.0F);
}

double cubed(double x) {
    return (x * x) * x;
}

double to_the_fourth(double x) {
    return (x * x) * (x * x);
}

int input_error(double D, double t, double E, double fy) {
    int error = 0;
    if (D < small) error = check_error::diameter;
    if (t < small) error = check_error::wall;
    if (E < small) error = check_error::elastic_modulus;
    if (fy < small) error = check_error::yield_stress;
    return error;
}

// Section values that both checks work with.
struct Tube {
    double A = 0.0;   // area
    double W = 0.0;   // elastic section modulus
    double f = 0.0;   // plastic over elastic modulus
    double t = 0.0;   // wall, modified where a bending stiffness is given
    double r = 0.0;   // yield stress over elastic buckling stress
    double fxe = 0.0; // elastic buckling stress
    double Fb = 0.0;  // bending strength
};

double shape_factor(double D, double t, double W) {
    return (cubed(D) - cubed(D - 2.0 * t)) / 6.0 / W;
}

// The wall that gives the stated bending stiffness. False when there is none.
bool modify_wall(Tube& tube, double D, double EI, double E, int& error) {
    const double I = EI / E;
    tube.W = 2.0 * I / D;
    const double b = to_the_fourth(D) - 64.0 * I / circle_constant();
    if (b < 0.0) {
        error = check_error::bending_stiffness;
        return false;
    }
    const double modified = (D - std::pow(b, 0.25)) / 2.0;
    if (modified < small) error = check_error::thin_modified_wall;
    if (modified > D / 2.0) error = check_error::thick_modified_wall;
    if (error != 0) return false;
    tube.f = shape_factor(D, modified, tube.W);
    tube.t = modified;
    return true;
}

double bending_strength(const Tube& tube, double D, double E, double fy) {
    constexpr double first_limit = 0.0517F;
    constexpr double second_limit = 0.1034F;
    const double slenderness = fy * D / (E * tube.t);
    if (slenderness < first_limit) return fy * tube.f;
    if (slenderness < second_limit) {
        return fy * (double{1.13F} - double{2.58F} * fy * D / (E * tube.t)) * tube.f;
    }
    return fy * (double{0.94F} - double{0.76F} * fy * D / (E * tube.t)) * tube.f;
}

// What a check works with, and the FORMAT of its warning.
struct Section {
    double D, t, EA, EI, E, fy;
    std::string_view ratio_warning;
};

// The section values, or nothing when U and the error are final.
std::optional<Tube> section_values(Store& cmn, const Section& section, double& U, int& error) {
    const auto& [D, t, EA, EI, E, fy, ratio_warning] = section;
    const double d = D - 2.0 * t;
    error = input_error(D, t, E, fy);
    Tube tube;
    tube.t = t;
    tube.A = EA > small ? EA / E : (D * D - d * d) * circle_constant() / 4.0;
    tube.W = (to_the_fourth(D) - to_the_fourth(d)) * circle_constant() / D / 32.0;
    tube.f = shape_factor(D, t, tube.W);
    if (EI >= small && !modify_wall(tube, D, EI, E, error)) return std::nullopt;
    const double ratio = D / tube.t;
    if (ratio > highest_ratio) {
        cmn.runtime.write(0, ratio_warning, D, t, tube.t, ratio);
        U = beyond_ratio;
        return std::nullopt;
    }
    tube.fxe = double{0.6F} * E * tube.t / D;
    tube.r = fy / tube.fxe;
    tube.Fb = bending_strength(tube, D, E, fy);
    return tube;
}

double resultant_moment(const SectionForces& forces) {
    const double M2 = forces[bending_2];
    const double M3 = forces[bending_3];
    return std::sqrt(M2 * M2 + M3 * M3);
}

constexpr double yields_below = 0.17F; // r below which the axial strength is the yield stress

double buckling_strength(const Tube& tube, double fy) {
    return (double{1.047F} - double{0.274F} * tube.r) * fy;
}

double material_factor(double lambda) {
    if (lambda < double{0.5F}) return double{1.15F};
    if (lambda < 1.0) return double{0.85F} + double{0.6F} * lambda;
    return double{1.45F};
}

} // namespace

void isochk(Store& cmn, double D, double t, double EA, double EI, double E, double fy,
            const SectionForces& forces, double& U, int& error) {
    const Section section{
        D,
        t,
        EA,
        EI,
        E,
        fy,
        "(/,' **** SR/ISOCHK : DIAM,WALL,WALMOD,RAT=',4f10.4,/,' The diameter (DIAM) to wall thickness (WALMOD) ratio is',' higher than 120')"};
    const auto tube = section_values(cmn, section, U, error);
    if (!tube) return;
    const double N = forces[axial_force];
    const double sigb = resultant_moment(forces) / tube->W;
    const double siga = N / tube->A;
    double Fc = tube->r < yields_below ? fy : buckling_strength(*tube, fy);
    if (N < 0.0) Fc = -fy;
    // The factor of compression holds for tension too.
    U = double{1.05F} * sigb / tube->Fb + double{1.18F} * siga / Fc;
}

void norchk(Store& cmn, double D, double t, double EA, double EI, double E, double fy,
            const SectionForces& forces, double& U, int& error) {
    const Section section{
        D,
        t,
        EA,
        EI,
        E,
        fy,
        "(/,' **** SR/NORCHK : DIAM,WALL,WALMOD,RAT=',4f10.4,/,' The diameter (DIAM) to wall thickness (WALMOD) ratio is',' higher than 120')"};
    const auto tube = section_values(cmn, section, U, error);
    if (!tube) return;
    constexpr double buckles_elastically_from = 1.911F;
    const double N = forces[axial_force];
    const double M = resultant_moment(forces);
    const double sigb = M / tube->W;
    const double siga = N / tube->A;
    double Fc = tube->fxe;
    if (tube->r < buckles_elastically_from) Fc = buckling_strength(*tube, fy);
    if (tube->r < yields_below) Fc = fy;
    if (N < 0.0) Fc = fy;
    const double lambda = std::fabs(sigb + siga) * std::sqrt(tube->r) / Fc;
    const double gamma = material_factor(lambda);
    const double Nc = Fc * tube->A / gamma;
    const double n = std::fabs(N) / Nc;
    const double m = M / (tube->Fb * tube->W / gamma);
    if (N < 0.0) {
        U = std::max(std::pow(n, double{1.75F}) + m, std::fabs(N) / (tube->A * fy / gamma));
    } else {
        U = std::max(n + m, N / (tube->A * fy / gamma));
    }
}

} // namespace korvat
