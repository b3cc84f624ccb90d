#include "check/clearance.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace korvat::check {
namespace {

using Vector = std::array<double, 3>;

Vector operator-(const Vector& a, const Vector& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

double dot(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector point_on(const Vector& from, const Vector& along, double part) {
    return {from[0] + part * along[0], from[1] + part * along[1], from[2] + part * along[2]};
}

double within_0_and_1(double part) {
    return std::clamp(part, 0.0, 1.0);
}

// A straight part of a pile with one diameter.
struct Part {
    Vector from{};
    Vector to{};
    double radius = 0.0;
};

struct Approach {
    double distance = 0.0; // between the axes
    Vector midway{};
};

// The nearest points of two segments of a line: those of the lines, drawn back to the ends where they
// lie beyond. Of parallel parts, the first end of `a` counts where it can.
Approach approach(const Part& a, const Part& b) {
    const Vector u = a.to - a.from;
    const Vector v = b.to - b.from;
    const Vector w = a.from - b.from;
    const double uu = dot(u, u);
    const double vv = dot(v, v);
    const double uv = dot(u, v);
    const double uw = dot(u, w);
    const double vw = dot(v, w);
    constexpr double parallel = 1.0e-12; // square of the sine of an angle that is none
    const double area = uu * vv - uv * uv;
    double s = area > parallel * uu * vv ? within_0_and_1((uv * vw - vv * uw) / area) : 0.0;
    double t = vv > 0.0 ? (uv * s + vw) / vv : 0.0;
    if (t < 0.0 || t > 1.0) {
        t = within_0_and_1(t);
        s = uu > 0.0 ? within_0_and_1((uv * t - uw) / uu) : 0.0;
    }
    const Vector p = point_on(a.from, u, s);
    const Vector q = point_on(b.from, v, t);
    const Vector between = p - q;
    return {std::sqrt(dot(between, between)), point_on(q, between, 0.5)};
}

Vector place_of(const group::Node& node) {
    return {node.x, node.y, node.z};
}

// Elements of one diameter make one part: a pile is straight.
std::vector<Part> parts_of(const group::Pile& pile) {
    std::vector<Part> parts;
    for (std::size_t i = 0; i < pile.elements.size(); ++i) {
        const double radius = 0.5 * pile.elements[i].diameter;
        if (parts.empty() || parts.back().radius != radius)
            parts.push_back({place_of(pile.nodes[i]), {}, radius});
        parts.back().to = place_of(pile.nodes[i + 1]);
    }
    return parts;
}

Part whole(const group::Pile& pile) {
    const auto largest =
        std::ranges::max_element(pile.elements, {}, &group::Element::diameter)->diameter;
    return {place_of(pile.nodes.front()), place_of(pile.nodes.back()), 0.5 * largest};
}

} // namespace

std::optional<Clearance> least_clearance(const group::Pile& a, const group::Pile& b) {
    const Part whole_a = whole(a);
    const Part whole_b = whole(b);
    const double reach = whole_a.radius + whole_b.radius;
    if (approach(whole_a, whole_b).distance > reach) return std::nullopt;
    const double rounding = 1.0e-9 * reach;
    std::optional<Clearance> least;
    for (const Part& part_a : parts_of(a)) {
        for (const Part& part_b : parts_of(b)) {
            const Approach nearest = approach(part_a, part_b);
            const double radii = part_a.radius + part_b.radius;
            const double gap = nearest.distance - radii;
            if (!least || gap < least->gap - rounding) least = {gap, radii, nearest.midway};
        }
    }
    return least;
}

} // namespace korvat::check
