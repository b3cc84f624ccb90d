// Piles in space.
#include "check/clashes.hpp"
#include "check/deck_view.hpp"
#include "check/tell.hpp"
#include "check/text.hpp"
#include "check/thresholds.hpp"

#include <algorithm>
#include <cmath>

namespace korvat::check {
namespace {

double distance(const Point& a, const Point& b) {
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

std::string shown(const Point& p) {
    return "(" + text_of(p[0]) + ", " + text_of(p[1]) + ", " + text_of(p[2]) + ")";
}

bool are_fixed_together(const group::Pile& a, const group::Pile& b) {
    return a.fixed_to != 0 && a.fixed_to == b.fixed_to;
}

// Calls `look` for each two piles with elements, in the order of their numbers.
template <typename Look>
void each_pair(const Subject& subject, const Look& look) {
    if (subject.group != nullptr) check::each_pair(*subject.group, look);
}

std::string both(const group::Pile& a, const group::Pile& b) {
    return "piles " + text_of(a.number) + " and " + text_of(b.number);
}

// What is rounding beside the sizes of piles counts as 0.
double without_noise(double length) {
    constexpr double noise = 1.0e-9;
    return std::abs(length) < noise ? 0.0 : length;
}

void look_for_clashes(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.group == nullptr) return;
    for (const Clash& clash : clashes(*subject.group)) {
        const group::Pile& b = *pile_numbered(*subject.group, clash.second_pile);
        const Clearance& nearest = clash.clearance;
        tell(findings, rule, place_of(pile_row(subject, b.number), 1),
             both(*pile_numbered(*subject.group, clash.first_pile), b) + " overlap by " +
                 text_of(-nearest.gap, 3) +
                 " at z = " + text_of(without_noise(nearest.point[2]), 4) + ": their axes are " +
                 text_of(without_noise(nearest.gap + nearest.radii), 4) +
                 " apart and their radii add up to " + text_of(nearest.radii, 4),
             "Move a head or a tip, or change a batter, until they pass each other.");
    }
}

void look_for_equal_heads(const Subject& subject, const Rule& rule, Findings& findings) {
    each_pair(subject, [&](const group::Pile& a, const group::Pile& b) {
        if (!heads_coincide(a, b) || tips_coincide(a, b) || are_fixed_together(a, b)) return;
        tell(findings, rule, place_of(pile_row(subject, b.number), 1),
             both(a, b) + " have the same head, " + shown(head_of(b)) +
                 ", and are not fixed to the same pile",
             "Move one of them, or fix both to one dummy pile if they meet on purpose.");
    });
}

void look_for_equal_piles(const Subject& subject, const Rule& rule, Findings& findings) {
    each_pair(subject, [&](const group::Pile& a, const group::Pile& b) {
        if (!heads_coincide(a, b) || !tips_coincide(a, b)) return;
        tell(findings, rule, place_of(pile_row(subject, b.number), 1),
             both(a, b) + " have the same head, " + shown(head_of(b)) + ", and the same tip, " +
                 shown(tip_of(b)),
             "Take one of them out; a pile on the mirror plane is its own mirror.");
    });
}

void look_at_tips_above_heads(const Subject& subject, const Rule& rule, Findings& findings) {
    const double rounding = threshold::same_length / length_factor(subject);
    for (const PileView& pile : piles(subject)) {
        if (pile.tip[2] >= pile.head[2] - rounding) continue;
        const std::string number = text_of(pile.number);
        if (pile.is_given()) {
            tell(findings, rule, place_of(pile.row, 9),
                 "the tip of pile " + number + " at z = " + text_of(pile.tip[2]) +
                     " is above its head at z = " + text_of(pile.head[2]),
                 "Exchange head and tip, or change the sign of z: +z points downwards.");
        } else {
            tell(findings, rule, place_of(pile.row, 9),
                 "the z of the tip of pile " + number + ", " + text_of(pile.tip[2]) +
                     ", is less than the z of its shift, " + text_of(pile.head[2]),
                 "Repeat the z of the shift as the z of the tip, which is not used otherwise.");
        }
    }
}

// The piles that are given with segments.
std::vector<PileView> given_piles(const Subject& subject) {
    const auto lists = segment_lists(subject);
    auto found = piles(subject);
    std::erase_if(found, [&](const PileView& pile) {
        const auto list = std::ranges::find(lists, pile.number, &SegmentListView::pile);
        return !pile.is_given() || list == lists.end() || list->types.empty();
    });
    return found;
}

// How a pile runs from head to tip: along x and y, and downwards.
struct Run {
    double x = 0.0;
    double y = 0.0;
    double down = 0.0;

    explicit Run(const PileView& pile)
        : x(std::abs(pile.tip[0] - pile.head[0])), y(std::abs(pile.tip[1] - pile.head[1])),
          down(std::abs(pile.tip[2] - pile.head[2])) {}

    [[nodiscard]] double horizontal() const { return std::hypot(x, y); }
    [[nodiscard]] bool is_flat() const { return horizontal() > threshold::flattest_batter * down; }
    // Whether it is steep with z and its longer horizontal axis exchanged.
    [[nodiscard]] bool is_steep_exchanged() const {
        return std::max(x, y) >= threshold::exchanged_batter * std::hypot(std::min(x, y), down);
    }
};

void look_for_exchanged_axes(const Subject& subject, const Rule& rule, Findings& findings) {
    for (const PileView& pile : given_piles(subject)) {
        const Run run(pile);
        if (!run.is_flat() || !run.is_steep_exchanged()) continue;
        const bool is_x = run.x >= run.y;
        tell(findings, rule, place_of(pile.row, is_x ? 7 : 8),
             "pile " + text_of(pile.number) + " runs " + text_of(std::max(run.x, run.y)) + " in " +
                 (is_x ? "x" : "y") + " and only " + text_of(run.down) + " downwards",
             std::string("Check whether ") + (is_x ? "x" : "y") + " and z are exchanged.");
    }
}

void look_for_flat_piles(const Subject& subject, const Rule& rule, Findings& findings) {
    for (const PileView& pile : given_piles(subject)) {
        const Run run(pile);
        if (!run.is_flat() || run.is_steep_exchanged()) continue;
        tell(findings, rule, place_of(pile.row, 9),
             "pile " + text_of(pile.number) + " runs " + text_of(run.horizontal()) +
                 " horizontally and " + text_of(run.down) + " downwards, flatter than 1:1",
             "Check head and tip.");
    }
}

void look_at_cap_points(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.group == nullptr) return;
    for (const group::Pile& cap : subject.group->piles) {
        if (!cap.is_dummy()) continue;
        int count = 0;
        double lowest = 0.0;
        for (const group::Pile& pile : subject.group->piles) {
            if (pile.is_dummy() || pile.fixed_to != cap.number) continue;
            lowest = count == 0 ? head_of(pile)[2] : std::max(lowest, head_of(pile)[2]);
            ++count;
        }
        const double z = head_of(cap)[2];
        if (count == 0 || z <= lowest) continue;
        tell(findings, rule, place_of(pile_row(subject, cap.number), 6),
             "pile " + text_of(cap.number) + ", to which " + text_of(count) +
                 (count == 1 ? " pile is" : " piles are") + " fixed, is at z = " + text_of(z) +
                 ", below the lowest of their heads at z = " + text_of(lowest),
             "Check the sign of z: +z points downwards, and a cap is above its piles.");
    }
}

// What a mirror repeats of its own head and tip is harmless.
void look_at_mirrors(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.group == nullptr) return;
    const double factor = length_factor(subject);
    for (const PileView& pile : piles(subject)) {
        const group::Pile* const made = pile_numbered(*subject.group, pile.number);
        if (pile.is_given() || pile.mirror == 0 || made == nullptr) continue;
        const Point head = head_of(*made);
        const Point tip = tip_of(*made);
        for (std::size_t i = 0; i < 6; ++i) {
            const double given = i < 3 ? pile.head[i] : pile.tip[i - 3];
            const double used = (i < 3 ? head[i] : tip[i - 3]) / factor;
            const double rounding = threshold::length_difference * (1.0 + std::abs(used));
            if (given == 0.0 || std::abs(given - used) <= rounding) continue;
            tell(findings, rule, place_of(pile.row, i + 4),
                 "pile " + text_of(pile.number) + " is a mirror of pile " + text_of(pile.source) +
                     ": its coordinate " + text_of(given) + " is not used",
                 "Give zeros; for a mirror that is shifted too, give the pile itself.");
            break;
        }
    }
}

const PileView* numbered(const std::vector<PileView>& list, int number) {
    const auto found = std::ranges::find(list, number, &PileView::number);
    return found == list.end() ? nullptr : &*found;
}

void look_at_shifts(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto list = piles(subject);
    for (const PileView& pile : list) {
        const PileView* const source = numbered(list, pile.source);
        if (pile.is_given() || pile.mirror != 0 || source == nullptr || !source->is_given())
            continue;
        const double z = source->head[2];
        if (z == 0.0 || pile.head[2] != z) continue;
        tell(findings, rule, place_of(pile.row, 6),
             "pile " + text_of(pile.number) + " is shifted by z = " + text_of(z) +
                 ", which is the z of the head of its source, pile " + text_of(source->number) +
                 ": its head is at z = " + text_of(2.0 * z),
             "Give the shift from the source, not the coordinates of the head.");
    }
}

void look_for_copies_of_copies(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto list = piles(subject);
    const auto is_copy = [](const PileView& pile) { return !pile.is_given() && pile.mirror == 0; };
    for (const PileView& pile : list) {
        const PileView* const source = numbered(list, pile.source);
        if (!is_copy(pile) || source == nullptr || !is_copy(*source)) continue;
        const Point shift = {pile.head[0] + source->head[0], pile.head[1] + source->head[1],
                             pile.head[2] + source->head[2]};
        tell(findings, rule, place_of(pile.row, 2),
             "pile " + text_of(pile.number) + " is a copy of pile " + text_of(source->number) +
                 ", itself a copy of pile " + text_of(source->source) + ": the shifts add up to " +
                 shown(shift),
             "Check the shift, or copy pile " + text_of(source->source) + " itself.");
    }
}

void look_at_pile_lengths(const Subject& subject, const Rule& rule, Findings& findings) {
    constexpr double refused = 0.0010000000474974513; // by the program, which says so
    const auto lists = segment_lists(subject);
    const auto types = segments(subject);
    for (const PileView& pile : given_piles(subject)) {
        double sum = 0.0;
        for (const int type :
             std::ranges::find(lists, pile.number, &SegmentListView::pile)->types) {
            const auto segment = std::ranges::find(types, type, &SegmentView::number);
            sum += segment == types.end() ? 0.0 : segment->length;
        }
        const double length = distance(pile.head, pile.tip);
        const double part = sum > 0.0 ? std::abs(length - sum) / sum : 0.0;
        if (part <= threshold::length_difference || part > refused) continue;
        tell(findings, rule, place_of(pile.row, 9),
             "pile " + text_of(pile.number) + " is " + text_of(length) +
                 " long from head to tip and its segments " + text_of(sum) + ": " +
                 text_of(100.0 * part, 2) + " % apart, where more than 0.1 % is an error",
             "Move the tip, or give the last segment the rest of the length.");
    }
}

void look_at_dummies(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto list = piles(subject);
    const double rounding = threshold::same_length / length_factor(subject);
    for (const SegmentListView& table : segment_lists(subject)) {
        const PileView* const pile = numbered(list, table.pile);
        if (pile == nullptr || !table.types.empty()) continue;
        if (distance(pile->head, pile->tip) <= rounding) continue;
        tell(findings, rule, place_of(table.row, 2),
             "pile " + text_of(pile->number) +
                 " has no segments and becomes a dummy pile, but its tip is " +
                 text_of(distance(pile->head, pile->tip)) + " from its head",
             "List its segment types; for a dummy pile, repeat the head as the tip.");
    }
}

constexpr Rule rules[] = {
    {"pile-clash", Level::warning, "piles that are nearer than the sum of their radii",
     look_for_clashes},
    {"heads-coincide", Level::warning, "piles with the same head", look_for_equal_heads},
    {"pile-duplicate", Level::warning, "piles with the same head and tip", look_for_equal_piles},
    {"tip-above-head", Level::warning, "a tip above its head", look_at_tips_above_heads},
    {"axes-exchanged", Level::warning, "a pile that lies along x or y", look_for_exchanged_axes},
    {"batter-flat", Level::warning, "a batter flatter than 1:1", look_for_flat_piles},
    {"cap-below-piles", Level::warning, "a cap point below its piles", look_at_cap_points},
    {"mirror-shift", Level::warning, "coordinates of a mirror, which are not used",
     look_at_mirrors},
    {"copy-shift-absolute", Level::warning, "coordinates where a shift belongs", look_at_shifts},
    {"copy-of-copy", Level::note, "shifts that add up", look_for_copies_of_copies},
    {"length-near-limit", Level::warning, "a length that is barely accepted", look_at_pile_lengths},
    {"dummy-with-tip", Level::warning, "a dummy pile with a length", look_at_dummies},
};

} // namespace

std::span<const Rule> geometry_rules() {
    return rules;
}

} // namespace korvat::check
