#include "compute/discretise.hpp"

#include "model/store/integer.hpp"
#include "model/store/report_error.hpp"

#include <algorithm>
#include <cmath>

namespace korvat {
namespace {

// The single-precision 0.001 widened; it decides borderline lengths.
constexpr double length_tolerance = 0.001F;

// Copies pile s, mirrored or shifted. A shifted copy has its translation in XHEAD.
void copy_pile(Store& cmn, int np, int s) {
    const double sx = cmn.NSYM(np) == 2 ? -1.0 : 1.0;
    const double sy = cmn.NSYM(np) == 1 ? -1.0 : 1.0;
    const bool is_shifted = cmn.NSYM(np) == 0;
    const double tx = is_shifted ? cmn.XHEAD(1, np) : 0.0;
    const double ty = is_shifted ? cmn.XHEAD(2, np) : 0.0;
    const double tz = is_shifted ? cmn.XHEAD(3, np) : 0.0;
    for (int n = 1; n <= cmn.NELP(s) + 1; ++n) {
        cmn.XNOD(n, np) = sx * cmn.XNOD(n, s) + tx;
        cmn.YNOD(n, np) = sy * cmn.YNOD(n, s) + ty;
        cmn.ZNOD(n, np) = cmn.ZNOD(n, s) + tz;
    }
    cmn.NELP(np) = cmn.NELP(s);
    for (int e = 1; e <= cmn.NELP(s); ++e) {
        cmn.ICREL(e, np) = cmn.ICREL(e, s);
    }
}

void place_dummy_pile(Store& cmn, int np) {
    cmn.XNOD(1, np) = cmn.XHEAD(1, np);
    cmn.YNOD(1, np) = cmn.XHEAD(2, np);
    cmn.ZNOD(1, np) = cmn.XHEAD(3, np);
    cmn.NELP(np) = 0;
}

// Adds the elements of segment type g behind node `node`, distances from the head in ZNOD. The
// cross section steps linearly from one end to the other, rounded at the element midpoints.
bool add_segment(Store& cmn, int np, int g, int& node) {
    const int c1 = cmn.ICRSEG(1, g);
    const int c2 = cmn.ICRSEG(2, g);
    const double L = cmn.SEGLEN(g);
    const int ne = cmn.NELSEG(g);
    const double le = L / ne;
    const double r = (c2 - c1) / L;
    const int lo = std::min(c1, c2);
    const int hi = std::max(c1, c2);
    double x = -0.5 * le;
    for (int e = 1; e <= ne; ++e) {
        x = x + le;
        ++node;
        if (node > cmn.MAXNOD) {
            report_error(cmn, cmn.NF6, cmn.report.places.NSEGP(np),
                         "(/,' **** SR/BUILD : Too many nodes on pile NP',/,' NP,ND,MAX =',3i5)",
                         np, node, cmn.MAXNOD);
            cmn.IERR = 1;
            return false;
        }
        cmn.ZNOD(node, np) = cmn.ZNOD(node - 1, np) + le;
        cmn.ICREL(node - 1, np) = truncated(r * x + c1 + 0.5, lo, hi);
    }
    return true;
}

// X and Y are scaled by the head-to-tip distance L2 but Z by the sum of the segments L1; this is
// intended.
void place_nodes(Store& cmn, int np, double dx, double dy, double dz, double L1, double L2) {
    for (int n = 1; n <= cmn.NELP(np) + 1; ++n) {
        const double s = cmn.ZNOD(n, np);
        cmn.XNOD(n, np) = (s / L2) * dx + cmn.XHEAD(1, np);
        cmn.YNOD(n, np) = (s / L2) * dy + cmn.XHEAD(2, np);
        cmn.ZNOD(n, np) = (dz / L1) * s + cmn.XHEAD(3, np);
    }
}

bool build_pile_of_segments(Store& cmn, int np) {
    cmn.ZNOD(1, np) = 0.0;
    int node = 1;
    for (int k = 1; k <= cmn.NSEGP(np); ++k) {
        if (!add_segment(cmn, np, cmn.ISEGP(k, np), node)) return false;
    }
    cmn.NELP(np) = node - 1;
    const double L1 = cmn.ZNOD(node, np);
    const double dx = cmn.XTIP(1, np) - cmn.XHEAD(1, np);
    const double dy = cmn.XTIP(2, np) - cmn.XHEAD(2, np);
    const double dz = cmn.XTIP(3, np) - cmn.XHEAD(3, np);
    const double L2 = std::sqrt(dy * dy + dx * dx + dz * dz);
    const double d = std::fabs(L1) < cmn.TOL ? cmn.TOL : L1;
    if (std::fabs(L2 - L1) / d > length_tolerance) {
        report_error(cmn, cmn.NF6, cmn.report.places.NSEGP(np),
                     "(/,' **** SR/BUILD : PILE LENGTH ERROR  NP,L1,L2=',i5,2f12.4)", np, L1, L2);
        cmn.IERR = 1;
        return false;
    }
    place_nodes(cmn, np, dx, dy, dz, L1, L2);
    return true;
}

} // namespace

bool discretise_piles(Store& cmn) {
    for (int np = 1; np <= cmn.NUMPIL; ++np) {
        if (cmn.NGEN(np) != 0) {
            copy_pile(cmn, np, cmn.NGEN(np));
        } else if (cmn.NSEGP(np) > 0) {
            if (!build_pile_of_segments(cmn, np)) return false;
        } else {
            place_dummy_pile(cmn, np);
        }
    }
    return true;
}

} // namespace korvat
