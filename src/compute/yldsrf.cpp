#include "compute/yldsrf.hpp"

#include "compute/capacity_check.hpp"
#include "fortran/stop.hpp"
#include "model/store/report_error.hpp"
#include "model/store/slots.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace korvat {
namespace {

constexpr int points = limits::curve_points;
constexpr int most_iterations = 200; // the message says 100

// Single-precision constants widened to double.
constexpr double utilisation_tolerance = 0.001F;
constexpr double capacity_start = 0.9F;

constexpr int code_of_norchk = -1;

using Curve = std::array<double, points>;

// A check and the FORMAT of its error.
struct Check {
    Utilisation (*run)(Store& cmn, const CheckedTube& tube, const SectionForces& forces);
    std::string_view error;
};

Check check_of_code(int code) {
    if (code == code_of_norchk) {
        return {norchk, "(/,' **** SR/YLDSRF : Error from SR/NORCHK IERR=',i5)"};
    }
    return {isochk, "(/,' **** SR/YLDSRF : Error from SR/ISOCHK IERR=',i5)"};
}

// The section as its check and the curves need it.
struct Tube {
    Store& cmn;
    int section;
    Check check;
    CheckedTube given;
    double A = 0.0;
    double W = 0.0;

    [[nodiscard]] double sigy() const { return given.fy; }
};

[[noreturn]] void stop_run(Store& cmn) {
    cmn.runtime.write(cmn.NF6, "(/,' **** Run stopped by SR/YLDSRF')");
    fortran::stop();
}

[[noreturn]] void stop_at_iteration_limit(const Tube& tube) {
    Store& cmn = tube.cmn;
    report_error(cmn, cmn.NF6, cmn.report.places.NLCRS(tube.section),
                 "(/,' **** SR/YLDSRF : 100 iterations reached')");
    stop_run(cmn);
}

Tube tube_of(Store& cmn, int i) {
    Tube tube{.cmn = cmn,
              .section = i,
              .check = check_of_code(cmn.NLCRS(i)),
              .given = {.D = cmn.CRSVAL(slot::diameter, i),
                        .t = cmn.CRSVAL(slot::wall, i),
                        .E = cmn.CRSVAL(slot::elastic_modulus, i),
                        .fy = cmn.CRSVAL(slot::yield_stress, i)}};
    const double D = tube.given.D;
    const double d = D - 2.0 * tube.given.t;
    tube.A = (D * D - d * d) * cmn.PI * 0.25;
    tube.W = ((D * D) * (D * D) - (d * d) * (d * d)) * cmn.PI / D * 0.03125;
    return tube;
}

// Utilisation under an axial force N, positive in compression, and a moment M.
double utilisation(const Tube& tube, double N, double M) {
    Store& cmn = tube.cmn;
    SectionForces forces{};
    forces[axial_force] = N;
    forces[bending_2] = M;
    const Utilisation checked = tube.check.run(cmn, tube.given, forces);
    if (checked.error == 0) return checked.U;
    report_error(cmn, cmn.NF6, cmn.report.places.NLCRS(tube.section), tube.check.error,
                 checked.error);
    stop_run(cmn);
}

bool is_at_capacity(double U) {
    return std::fabs(U - 1.0) < utilisation_tolerance;
}

// The compression at which the utilisation is 1 without a moment.
double axial_capacity(const Tube& tube, double Ny) {
    double N = -capacity_start * Ny;
    for (int i = 0; i < most_iterations; ++i) {
        const double U = utilisation(tube, N, 0.0);
        if (is_at_capacity(U)) return N;
        N = N * (1.0 / std::sqrt(U));
    }
    stop_at_iteration_limit(tube);
}

// The moment at which the utilisation is 1 under an axial force N.
double plastic_moment(const Tube& tube, double N) {
    double M = tube.sigy() * 0.5 * tube.W;
    for (int i = 0; i < most_iterations; ++i) {
        const double U = utilisation(tube, N, M);
        if (is_at_capacity(U)) return M;
        M = M / U;
    }
    stop_at_iteration_limit(tube);
}

// The one of smallest magnitude, the first on a tie, becomes exactly 0.0. The search starts from
// 1.0e6: where every level lies beyond, as those of a large tube in N do, none becomes 0.0.
void set_zero_level(Curve& levels) {
    double smallest = 1.0e6;
    double* zero_level = nullptr;
    for (double& level : levels) {
        if (std::fabs(level) >= smallest) continue;
        smallest = std::fabs(level);
        zero_level = &level;
    }
    if (zero_level != nullptr) *zero_level = 0.0;
}

// Equally spaced from N down to Ny.
Curve axial_levels(double N, double Ny) {
    const double s = (N - Ny) / 9.0;
    Curve levels{};
    for (int k = 1; k <= points; ++k) {
        levels[static_cast<std::size_t>(k - 1)] = N - (k - 1) * s;
    }
    set_zero_level(levels);
    return levels;
}

// Moments are 0 at both ends of a curve.
Curve plastic_moments(const Tube& tube, const Curve& levels) {
    Curve moments{};
    for (std::size_t k = 1; k + 1 < levels.size(); ++k) {
        moments[k] = plastic_moment(tube, levels[k]);
    }
    return moments;
}

Curve elastic_moments(const Tube& tube, const Curve& levels, const Curve& plastic) {
    Store& cmn = tube.cmn;
    Curve moments{};
    for (std::size_t k = 1; k + 1 < levels.size(); ++k) {
        const double siga = std::fabs(levels[k]) / tube.A;
        if (tube.sigy() - siga < 0.0) {
            report_error(
                cmn, cmn.NF6, cmn.report.places.NLCRS(tube.section),
                "(/,' **** SR/YLDSRF : Negative bending stress',/,' N,FAXL(N),SIGA,SIGY=',i5,3f10.3)",
                static_cast<int>(k) + 1, levels[k], siga, tube.sigy());
            stop_run(cmn);
        }
        moments[k] = std::min(plastic[k], (tube.sigy() - siga) * tube.W);
    }
    return moments;
}

} // namespace

void yldsrf(Store& cmn, int section) {
    const Tube tube = tube_of(cmn, section);
    const double Ny = -tube.A * tube.sigy(); // tension yield
    const Curve levels = axial_levels(axial_capacity(tube, Ny), Ny);
    const Curve plastic = plastic_moments(tube, levels);
    const Curve elastic = elastic_moments(tube, levels, plastic);
    std::ranges::copy(levels, cmn.FAXEL.column(section).begin());
    std::ranges::copy(levels, cmn.FAXPL.column(section).begin());
    std::ranges::copy(elastic, cmn.FMOEL.column(section).begin());
    std::ranges::copy(plastic, cmn.FMOPL.column(section).begin());
    cmn.NLCRS(section) = points;
}

} // namespace korvat
