// Materials, cross sections and their yield curves, segment types.
#include "check/deck_view.hpp"
#include "check/substances.hpp"
#include "check/tell.hpp"
#include "check/text.hpp"
#include "check/thresholds.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>

namespace korvat::check {
namespace {

double slenderness(const TubeView& tube) {
    return tube.diameter / tube.wall;
}

double area(const TubeView& tube) {
    return std::numbers::pi * (tube.diameter - tube.wall) * tube.wall;
}

double second_moment(const TubeView& tube) {
    const double inner = tube.diameter - 2.0 * tube.wall;
    return std::numbers::pi * (std::pow(tube.diameter, 4) - std::pow(inner, 4)) / 64.0;
}

// A tube that the reader accepts.
bool is_tube(const TubeView& tube) {
    return tube.diameter > 0.0 && tube.wall > 0.0 && tube.wall <= 0.5 * tube.diameter;
}

const MaterialView* material_of(const TubeView& tube, const std::vector<MaterialView>& materials) {
    const auto found = std::ranges::find(materials, tube.material, &MaterialView::number);
    return found == materials.end() ? nullptr : &*found;
}

std::string the_wall(const TubeView& tube) {
    return "the wall " + text_of(tube.wall) + " of " + name_of(tube);
}

void look_at_walls_over_radius(const Subject& subject, const Rule& rule, Findings& findings) {
    constexpr double thousand = 1000.0;
    for (const TubeView& tube : tubes(subject)) {
        if (tube.diameter <= 0.0 || tube.wall <= 0.5 * tube.diameter) continue;
        const double slimmer = tube.diameter / (tube.wall / thousand);
        const bool looks_like_mm =
            slimmer >= threshold::least_slenderness && slimmer <= threshold::largest_slenderness;
        tell(findings, rule, tube.wall_place(),
             the_wall(tube) + " is more than half the diameter " + text_of(tube.diameter) +
                 (looks_like_mm ? "; it looks like mm under a diameter in m" : ""),
             "Give the wall in the unit of the diameter; half the diameter makes a solid bar.");
    }
}

void look_at_thick_walls(const Subject& subject, const Rule& rule, Findings& findings) {
    const MetalTubes metal_tubes(subject);
    for (const TubeView& tube : tubes(subject)) {
        const bool is_solid = tube.wall == 0.5 * tube.diameter;
        if (!is_tube(tube) || is_solid || !metal_tubes.holds(tube)) continue;
        if (slenderness(tube) >= threshold::least_slenderness) continue;
        tell(findings, rule, tube.wall_place(),
             the_wall(tube) + " makes D/t " + text_of(slenderness(tube), 4) +
                 "; tubes of metal have 8 or more",
             "Check wall and diameter " + text_of(tube.diameter) + ".");
    }
}

template <typename Condition>
void look_at_thin_walls(const Subject& subject, const Rule& rule, Findings& findings,
                        const Condition& is_looked_at, const std::string& consequence,
                        const std::string& remedy) {
    for (const TubeView& tube : tubes(subject)) {
        if (!is_tube(tube) || !is_looked_at(tube)) continue;
        if (slenderness(tube) <= threshold::largest_slenderness) continue;
        tell(findings, rule, tube.wall_place(),
             the_wall(tube) + " makes D/t " + text_of(slenderness(tube), 4) + consequence, remedy);
    }
}

void look_at_linear_thin_walls(const Subject& subject, const Rule& rule, Findings& findings) {
    look_at_thin_walls(
        subject, rule, findings, [](const TubeView& tube) { return tube.yield_code >= 0; },
        ", above 120: the wall buckles before it yields",
        "Check wall and diameter; a tube like this needs a shell buckling check of its own.");
}

void look_at_thin_walls_with_curves(const Subject& subject, const Rule& rule, Findings& findings) {
    look_at_thin_walls(
        subject, rule, findings, [](const TubeView& tube) { return tube.yield_code < 0; },
        ", above 120: no yield curve can be computed, and the run stops",
        "Make the wall thicker, or give the curve by points with a code of 1 to 10.");
}

void look_at_stiffnesses(const Subject& subject, const Rule& rule, Findings& findings) {
    constexpr std::array<std::string_view, 4> names = {"EA", "EI", "GA", "GJ"};
    const auto list = materials(subject);
    for (const TubeView& tube : tubes(subject)) {
        const MaterialView* const material = material_of(tube, list);
        if (!is_tube(tube) || material == nullptr) continue;
        const std::array<double, 4> computed = {
            material->modulus * area(tube), material->modulus * second_moment(tube),
            material->shear_modulus * area(tube),
            2.0 * material->shear_modulus * second_moment(tube)};
        for (std::size_t i = 0; i < computed.size(); ++i) {
            const double given = tube.stiffness[i];
            if (given <= 0.0 || computed[i] <= 0.0) continue;
            const double ratio = given / computed[i];
            if (std::max(ratio, 1.0 / ratio) <= threshold::stiffness_ratio) continue;
            tell(findings, rule, tube.stiffness_place(i),
                 "the given " + std::string(names[i]) + " " + text_of(given) + " of " +
                     name_of(tube) + " is " + text_of(ratio, 3) + " times that of the tube, " +
                     text_of(computed[i]),
                 "Check its units and the order EA, EI, GA, GJ; 0 has it computed.");
        }
    }
}

// Sum A sigma_y of the cross sections, in the units of the deck.
std::map<int, double> axial_yields(const Subject& subject) {
    const auto list = materials(subject);
    std::map<int, double> sums;
    for (const TubeView& tube : tubes(subject)) {
        const MaterialView* const material = material_of(tube, list);
        const double yield = material != nullptr ? material->yield_stress : 0.0;
        sums[tube.section] += is_tube(tube) ? area(tube) * yield : 0.0;
    }
    return sums;
}

void look_at_axial_yields(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto sums = axial_yields(subject);
    const MetalTubes metal_tubes(subject);
    for (const TubeView& tube : tubes(subject)) {
        const bool is_first = tube.tube <= 1;
        const Row* const row = section_row(subject, tube.section);
        if (!is_first || row == nullptr || row->id != deck::RecordId::cross_section_5) continue;
        const bool has_points = whole(*row, 3) > 0;
        if (has_points || sums.at(tube.section) > 0.0 || !metal_tubes.holds(tube)) continue;
        tell(findings, rule, tube.material_place(),
             "the sum of A sigma_y of section " + text_of(tube.section) +
                 " is 0: its material has no yield stress",
             "Give material " + text_of(tube.material) +
                 " its yield stress, if the axial capacity is wanted.");
    }
}

struct CurvePoint {
    const Row* row = nullptr;
    double elastic_axial = 0.0;
    double elastic_moment = 0.0;
    double plastic_axial = 0.0;
    double plastic_moment = 0.0;
};

// The given points by their sections, in stored units.
std::map<int, std::vector<CurvePoint>> given_curves(const Subject& subject) {
    std::map<int, std::vector<CurvePoint>> curves;
    for (const Row* const row : subject.outline.rows(deck::RecordId::curve_point)) {
        if (row->numbers.size() < 6) continue;
        const auto value = [&](std::size_t i) { return row->numbers[i - 1].value; };
        curves[whole(*row, 1)].push_back({row, value(3), value(4), value(5), value(6)});
    }
    return curves;
}

void look_at_curves(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto sums = axial_yields(subject);
    for (const auto& [section, points] : given_curves(subject)) {
        const auto sum = sums.find(section);
        if (sum == sums.end() || sum->second <= 0.0) continue;
        const double yield = sum->second * force_factor(subject);
        const auto magnitude = [](const CurvePoint& p) { return std::abs(p.plastic_axial); };
        const CurvePoint& largest = *std::ranges::max_element(points, {}, magnitude);
        const double ratio = magnitude(largest) / yield;
        if (ratio <= threshold::curve_ratio && ratio >= 1.0 / threshold::curve_ratio) continue;
        tell(findings, rule, place_of(largest.row, 5),
             "the largest axial force " + text_of(largest.plastic_axial) +
                 " of the yield curve of section " + text_of(section) + " is " + text_of(ratio, 3) +
                 " times its sum of A sigma_y, " + text_of(yield),
             "Give the points in stored units: they are not multiplied by the unit factors.");
    }
}

// Moment of the plastic curve at an axial force; below zero where the curve does not reach it.
double plastic_moment(const std::vector<CurvePoint>& points, double axial) {
    for (std::size_t i = 1; i < points.size(); ++i) {
        const CurvePoint& upper = points[i - 1];
        const CurvePoint& lower = points[i];
        if (axial > upper.plastic_axial || axial < lower.plastic_axial) continue;
        const double step = upper.plastic_axial - lower.plastic_axial;
        const double part = step > 0.0 ? (upper.plastic_axial - axial) / step : 0.0;
        return upper.plastic_moment + part * (lower.plastic_moment - upper.plastic_moment);
    }
    return -1.0;
}

void look_at_elastic_curves(const Subject& subject, const Rule& rule, Findings& findings) {
    for (const auto& [section, points] : given_curves(subject)) {
        const double largest =
            std::ranges::max_element(points, {}, &CurvePoint::plastic_moment)->plastic_moment;
        const double rounding = threshold::curve_rounding * largest;
        const auto is_outside = [&, &curve = points](const CurvePoint& p) {
            const double plastic = plastic_moment(curve, p.elastic_axial);
            return plastic >= 0.0 && p.elastic_moment > plastic + rounding;
        };
        const auto found = std::ranges::find_if(points, is_outside);
        if (found == points.end()) continue;
        tell(findings, rule, place_of(found->row, 4),
             "the elastic moment " + text_of(found->elastic_moment) + " of section " +
                 text_of(section) + " at the axial force " + text_of(found->elastic_axial) +
                 " is above the plastic one, " +
                 text_of(plastic_moment(points, found->elastic_axial)),
             "Exchange the curves, or correct the point: a section yields before it reaches its "
             "capacity.");
    }
}

void look_at_poisson(const Subject& subject, const Rule& rule, Findings& findings) {
    constexpr Range accepted{0.0, 0.5001}; // the program itself warns outside
    const auto units = deck_units(subject);
    if (!units) return;
    for (const MaterialView& material : materials(subject)) {
        if (material.shear_modulus <= 0.0) continue;
        const double ratio = 0.5 * material.modulus / material.shear_modulus - 1.0;
        const auto candidates = with_modulus(material.modulus * units->stress());
        const auto allows = [&](const Substance* s) {
            return s->poisson.largest == 0.0 || s->poisson.holds(ratio);
        };
        if (candidates.empty() || !accepted.holds(ratio) || std::ranges::any_of(candidates, allows))
            continue;
        const Substance& substance = *candidates.front();
        tell(findings, rule, place_of(material.row, 3),
             "E and G of material " + text_of(material.number) + " make Poisson's ratio " +
                 text_of(ratio, 3) + "; " + std::string(substance.name) + " has " +
                 text_of(substance.poisson.least) + " to " + text_of(substance.poisson.largest),
             "Check the shear modulus " + text_of(material.shear_modulus) +
                 ": it is E/(2 (1 + nu)).");
    }
}

void look_for_unused_sections(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.group == nullptr) return;
    const auto list = segments(subject);
    const auto look = [&](const Row* row) {
        const int section = whole(*row, 1);
        const auto uses = [&](const SegmentView& s) {
            const auto [least, largest] = std::minmax(s.first_section, s.last_section);
            return section >= least && section <= largest;
        };
        if (std::ranges::any_of(list, uses)) return;
        tell(findings, rule, place_of(row, 1), "no segment type uses section " + text_of(section),
             "Leave it out if it is a remnant; check the segment types if it is not.");
    };
    for (const auto id : {deck::RecordId::cross_section, deck::RecordId::cross_section_5}) {
        for (const Row* const row : subject.outline.rows(id)) {
            if (!row->numbers.empty()) look(row);
        }
    }
}

void look_for_unused_materials(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.group == nullptr) return;
    const auto list = tubes(subject);
    for (const MaterialView& material : materials(subject)) {
        if (std::ranges::find(list, material.number, &TubeView::material) != list.end()) continue;
        tell(findings, rule, place_of(material.row, 1),
             "no section uses material " + text_of(material.number),
             "Leave it out if it is a remnant; check the sections if it is not.");
    }
}

void look_for_unused_segments(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.group == nullptr) return;
    std::set<int> used;
    for (const SegmentListView& list : segment_lists(subject))
        used.insert(list.types.begin(), list.types.end());
    for (const SegmentView& segment : segments(subject)) {
        if (used.contains(segment.number)) continue;
        tell(findings, rule, place_of(segment.row, 1),
             "no pile uses segment type " + text_of(segment.number),
             "Leave it out if it is a remnant; check the segment table if it is not.");
    }
}

constexpr Rule rules[] = {
    {"wall-over-radius", Level::warning, "a wall over half the diameter",
     look_at_walls_over_radius},
    {"dt-small", Level::warning, "D/t below 8", look_at_thick_walls},
    {"dt-large", Level::warning, "D/t above 120", look_at_linear_thin_walls},
    {"dt-stops-run", Level::warning, "D/t above 120 with a yield curve to compute",
     look_at_thin_walls_with_curves},
    {"stiffness-far", Level::warning, "a given stiffness far from that of the tube",
     look_at_stiffnesses},
    {"no-axial-yield", Level::note, "a section of revision 5 without axial yield force",
     look_at_axial_yields},
    {"curve-far", Level::warning, "a given yield curve far from A sigma_y", look_at_curves},
    {"elastic-outside-plastic", Level::warning, "an elastic curve outside the plastic one",
     look_at_elastic_curves},
    {"poisson-unusual", Level::warning, "a Poisson's ratio that does not fit the material",
     look_at_poisson},
    {"section-unused", Level::note, "cross sections that nothing uses", look_for_unused_sections},
    {"material-unused", Level::note, "materials that nothing uses", look_for_unused_materials},
    {"segment-unused", Level::note, "segment types that nothing uses", look_for_unused_segments},
};

} // namespace

std::span<const Rule> section_rules() {
    return rules;
}

} // namespace korvat::check
