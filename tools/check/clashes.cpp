#include "check/clashes.hpp"

#include "check/thresholds.hpp"

#include <cmath>

namespace korvat::check {
namespace {

double distance(const Point& a, const Point& b) {
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

double radii_at_head(const group::Pile& a, const group::Pile& b) {
    return 0.5 * (a.elements.front().diameter + b.elements.front().diameter);
}

double radii_at_tip(const group::Pile& a, const group::Pile& b) {
    return 0.5 * (a.elements.back().diameter + b.elements.back().diameter);
}

// Piles that start from one point and part, as the raked pairs of a frame do, must overlap near it.
bool part_from_one_head(const group::Pile& a, const group::Pile& b) {
    return heads_coincide(a, b) && distance(tip_of(a), tip_of(b)) > radii_at_tip(a, b);
}

} // namespace

Point head_of(const group::Pile& pile) {
    return {pile.nodes.front().x, pile.nodes.front().y, pile.nodes.front().z};
}

Point tip_of(const group::Pile& pile) {
    return {pile.nodes.back().x, pile.nodes.back().y, pile.nodes.back().z};
}

bool heads_coincide(const group::Pile& a, const group::Pile& b) {
    return distance(head_of(a), head_of(b)) <= threshold::same_point * radii_at_head(a, b);
}

bool tips_coincide(const group::Pile& a, const group::Pile& b) {
    return distance(tip_of(a), tip_of(b)) <= threshold::same_point * radii_at_tip(a, b);
}

std::vector<Clash> clashes(const group::Group& group) {
    std::vector<Clash> found;
    each_pair(group, [&](const group::Pile& a, const group::Pile& b) {
        if (part_from_one_head(a, b) || (heads_coincide(a, b) && tips_coincide(a, b))) return;
        const auto nearest = least_clearance(a, b);
        if (!nearest || nearest->gap >= -threshold::overlap_rounding * nearest->radii) return;
        found.push_back({a.number, b.number, *nearest});
    });
    return found;
}

} // namespace korvat::check
