// The two capacity checks once more, in extended precision and with formulas of their own, so that
// the program's figures can be compared with something else than themselves.
#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

namespace korvat::test {

using Real = long double;

// The single-precision value of a constant; all constants of the checks are such.
constexpr Real single(float constant) {
    return constant;
}

// Which branches a check took.
struct Branches {
    int bending = 0;  // 1 to 3, by the slenderness of the wall
    int strength = 0; // 1 yields, 2 buckles, 3 buckles elastically
    int factor = 0;   // 1 to 3, by the reduced slenderness; the first check has none
};

// A tube of diameter D and wall t. W, f and the wall of the buckling formulas may be overwritten.
struct ReferenceTube {
    Real D, t, E, fy;
    Real pi = static_cast<Real>(std::numbers::pi_v<float>); // 4 atan(1) in single precision
    Real A = pi * t * (D - t);
    Real W = 2 * (pi / 64) * ring(4) / D;
    Real f = ring(3) / 6 / W;

    // D^n less the same power of the inner diameter, by the factors of the difference.
    [[nodiscard]] Real ring(int n) const {
        const Real d = D - 2 * t;
        Real sum = 0;
        for (int k = 0; k < n; ++k)
            sum += std::pow(D, Real(k)) * std::pow(d, Real(n - 1 - k));
        return 2 * t * sum;
    }

    [[nodiscard]] Real slenderness() const { return fy * D / (E * t); }
    [[nodiscard]] Real elastic_buckling() const { return single(0.6F) * E * t / D; }
    [[nodiscard]] Real r() const { return slenderness() / single(0.6F); }

    [[nodiscard]] Real bending_strength(Branches& branches) const {
        const Real s = slenderness();
        branches.bending = s < single(0.0517F) ? 1 : s < single(0.1034F) ? 2 : 3;
        switch (branches.bending) {
        case 1:
            return f * fy;
        case 2:
            return f * fy * (single(1.13F) - single(2.58F) * s);
        default:
            return f * fy * (single(0.94F) - single(0.76F) * s);
        }
    }

    [[nodiscard]] Real reduced_strength() const {
        return fy * (single(1.047F) - single(0.274F) * r());
    }
};

// Utilisation by the check of non-linear codes other than -1.
inline Real reference_isochk(const ReferenceTube& tube, Real N, Real M, Branches& branches) {
    branches.strength = tube.r() < single(0.17F) ? 1 : 2;
    const Real strength = branches.strength == 1 ? tube.fy : tube.reduced_strength();
    const Real axial = N < 0 ? -N / (tube.A * tube.fy) : N / (tube.A * strength);
    const Real bending = M / (tube.W * tube.bending_strength(branches));
    return single(1.05F) * bending + single(1.18F) * axial;
}

// Utilisation by the check of code -1.
inline Real reference_norchk(const ReferenceTube& tube, Real N, Real M, Branches& branches) {
    const Real r = tube.r();
    branches.strength = r < single(0.17F) ? 1 : r < single(1.911F) ? 2 : 3;
    Real strength = tube.fy;
    if (branches.strength == 2) strength = tube.reduced_strength();
    if (branches.strength == 3) strength = tube.elastic_buckling();
    if (N < 0) strength = tube.fy;
    const Real lambda = std::abs(M / tube.W + N / tube.A) * std::sqrt(r) / strength;
    branches.factor = lambda < single(0.5F) ? 1 : lambda < 1 ? 2 : 3;
    Real gamma = single(1.45F);
    if (branches.factor == 1) gamma = single(1.15F);
    if (branches.factor == 2) gamma = single(0.85F) + single(0.6F) * lambda;
    const Real n = gamma * std::abs(N) / (strength * tube.A);
    const Real m = gamma * M / (tube.bending_strength(branches) * tube.W);
    const Real yield = gamma * std::abs(N) / (tube.fy * tube.A);
    return std::max((N < 0 ? std::pow(n, Real(1.75)) : n) + m, yield);
}

inline Real reference_isochk(const ReferenceTube& tube, Real N, Real M) {
    Branches branches;
    return reference_isochk(tube, N, M, branches);
}

inline Real reference_norchk(const ReferenceTube& tube, Real N, Real M) {
    Branches branches;
    return reference_norchk(tube, N, M, branches);
}

} // namespace korvat::test
