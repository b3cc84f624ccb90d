#include "compute/capacity_check.hpp"

#include <algorithm>
#include <cmath>
#include <string_view>

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

int input_error(const CheckedTube& given) {
    int error = 0;
    if (given.D < small) error = check_error::diameter;
    if (given.t < small) error = check_error::wall;
    if (given.E < small) error = check_error::elastic_modulus;
    if (given.fy < small) error = check_error::yield_stress;
    return error;
}

double shape_factor(double D, double t, double W) {
    return (cubed(D) - cubed(D - 2.0 * t)) / 6.0 / W;
}

// The section values that both checks work with.
struct Section {
    double D;
    double t; // wall, modified where a bending stiffness is given
    double E;
    double fy;
    double A; // area
    double W; // elastic section modulus
    double f; // plastic over elastic modulus

    // Elastic buckling stress, and the yield stress over it.
    [[nodiscard]] double fxe() const { return double{0.6F} * E * t / D; }
    [[nodiscard]] double r() const { return fy / fxe(); }
};

Section section_of(const CheckedTube& given) {
    const double D = given.D;
    const double d = D - 2.0 * given.t;
    const double A =
        given.EA > small ? given.EA / given.E : (D * D - d * d) * circle_constant() / 4.0;
    const double W = (to_the_fourth(D) - to_the_fourth(d)) * circle_constant() / D / 32.0;
    return {.D = D,
            .t = given.t,
            .E = given.E,
            .fy = given.fy,
            .A = A,
            .W = W,
            .f = shape_factor(D, given.t, W)};
}

// Gives the section the wall that has the stated bending stiffness. Returns the error of that wall.
int modify_wall(Section& section, double EI) {
    const double D = section.D;
    const double I = EI / section.E;
    section.W = 2.0 * I / D;
    const double b = to_the_fourth(D) - 64.0 * I / circle_constant();
    if (b < 0.0) return check_error::bending_stiffness;
    section.t = (D - std::pow(b, 0.25)) / 2.0;
    if (section.t > D / 2.0) return check_error::thick_modified_wall;
    if (section.t < small) return check_error::thin_modified_wall;
    section.f = shape_factor(D, section.t, section.W);
    return 0;
}

double bending_strength(const Section& section) {
    constexpr double first_limit = 0.0517F;
    constexpr double second_limit = 0.1034F;
    const double D = section.D;
    const double t = section.t;
    const double E = section.E;
    const double fy = section.fy;
    const double f = section.f;
    const double slenderness = fy * D / (E * t);
    if (slenderness < first_limit) return fy * f;
    if (slenderness < second_limit) {
        return fy * (double{1.13F} - double{2.58F} * fy * D / (E * t)) * f;
    }
    return fy * (double{0.94F} - double{0.76F} * fy * D / (E * t)) * f;
}

double resultant_moment(const SectionForces& forces) {
    const double M2 = forces[bending_2];
    const double M3 = forces[bending_3];
    return std::sqrt(M2 * M2 + M3 * M3);
}

constexpr double yields_below = 0.17F; // r below which the axial strength is the yield stress

double buckling_strength(const Section& section) {
    return (double{1.047F} - double{0.274F} * section.r()) * section.fy;
}

double isochk_utilisation(const Section& section, double N, double M) {
    const double sigb = M / section.W;
    const double siga = N / section.A;
    double Fc = section.r() < yields_below ? section.fy : buckling_strength(section);
    if (N < 0.0) Fc = -section.fy;
    // The factor of compression holds for tension too.
    return double{1.05F} * sigb / bending_strength(section) + double{1.18F} * siga / Fc;
}

double material_factor(double lambda) {
    if (lambda < double{0.5F}) return double{1.15F};
    if (lambda < 1.0) return double{0.85F} + double{0.6F} * lambda;
    return double{1.45F};
}

double norchk_utilisation(const Section& section, double N, double M) {
    constexpr double buckles_elastically_from = 1.911F;
    const double fy = section.fy;
    const double r = section.r();
    const double sigb = M / section.W;
    const double siga = N / section.A;
    double Fc = section.fxe();
    if (r < buckles_elastically_from) Fc = buckling_strength(section);
    if (r < yields_below) Fc = fy;
    if (N < 0.0) Fc = fy;
    const double lambda = std::fabs(sigb + siga) * std::sqrt(r) / Fc;
    const double gamma = material_factor(lambda);
    const double Nc = Fc * section.A / gamma;
    const double n = std::fabs(N) / Nc;
    const double m = M / (bending_strength(section) * section.W / gamma);
    if (N < 0.0) {
        return std::max(std::pow(n, double{1.75F}) + m, std::fabs(N) / (section.A * fy / gamma));
    }
    return std::max(n + m, N / (section.A * fy / gamma));
}

// What the two checks differ in.
struct Check {
    double (*utilisation)(const Section& section, double N, double M);
    std::string_view ratio_warning;
};

Utilisation checked(Store& cmn, const CheckedTube& given, const SectionForces& forces,
                    const Check& check) {
    Utilisation result{.error = input_error(given)};
    Section section = section_of(given);
    if (given.EI >= small) {
        if (const int error = modify_wall(section, given.EI); error != 0) result.error = error;
        if (result.error != 0) return result;
    }
    const double ratio = section.D / section.t;
    if (ratio > highest_ratio) {
        cmn.runtime.write(0, check.ratio_warning, given.D, given.t, section.t, ratio);
        result.U = beyond_ratio;
    } else {
        result.U = check.utilisation(section, forces[axial_force], resultant_moment(forces));
    }
    return result;
}

} // namespace

Utilisation isochk(Store& cmn, const CheckedTube& tube, const SectionForces& forces) {
    return checked(
        cmn, tube, forces,
        {isochk_utilisation,
         "(/,' **** SR/ISOCHK : DIAM,WALL,WALMOD,RAT=',4f10.4,/,' The diameter (DIAM) to wall thickness (WALMOD) ratio is',' higher than 120')"});
}

Utilisation norchk(Store& cmn, const CheckedTube& tube, const SectionForces& forces) {
    return checked(
        cmn, tube, forces,
        {norchk_utilisation,
         "(/,' **** SR/NORCHK : DIAM,WALL,WALMOD,RAT=',4f10.4,/,' The diameter (DIAM) to wall thickness (WALMOD) ratio is',' higher than 120')"});
}

} // namespace korvat
