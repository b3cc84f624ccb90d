// Division of the piles into elements.
#include "check/deck_view.hpp"
#include "check/tell.hpp"
#include "check/text.hpp"
#include "check/thresholds.hpp"

#include <algorithm>
#include <cmath>
#include <set>

namespace korvat::check {
namespace {

// A segment of a pile with its elements.
struct PileSegment {
    const SegmentView* segment = nullptr;
    std::size_t item = 0; // of its type in the record of the segment table
    std::span<const group::Element> elements;
    double element_length = 0.0; // L, as given

    [[nodiscard]] double least_diameter() const {
        return std::ranges::min_element(elements, {}, &group::Element::diameter)->diameter;
    }
    [[nodiscard]] double largest_diameter() const {
        return std::ranges::max_element(elements, {}, &group::Element::diameter)->diameter;
    }
};

// A pile that is given by segments.
struct SegmentedPile {
    const SegmentListView* list = nullptr;
    const group::Pile* pile = nullptr;
    std::vector<PileSegment> segments;
};

// Looks the elements of a deck up in the group that its run has written.
class Division {
public:
    explicit Division(const Subject& subject)
        : group_(subject.group), length_factor_(length_factor(subject)),
          segments_(check::segments(subject)), lists_(segment_lists(subject)) {}

    [[nodiscard]] std::vector<SegmentedPile> piles() const {
        std::vector<SegmentedPile> found;
        if (group_ == nullptr) return found;
        for (const SegmentListView& list : lists_) {
            SegmentedPile pile{&list, pile_numbered(*group_, list.pile), {}};
            if (pile.pile == nullptr) continue;
            if (divide(pile) && !pile.segments.empty()) found.push_back(std::move(pile));
        }
        return found;
    }

private:
    // Whether the segments account for all elements of the pile.
    [[nodiscard]] bool divide(SegmentedPile& pile) const {
        std::span<const group::Element> rest(pile.pile->elements);
        for (std::size_t i = 0; i < pile.list->types.size(); ++i) {
            const auto segment =
                std::ranges::find(segments_, pile.list->types[i], &SegmentView::number);
            if (segment == segments_.end() || segment->elements < 1) return false;
            const auto count = static_cast<std::size_t>(segment->elements);
            if (count > rest.size()) return false;
            pile.segments.push_back({&*segment, i + 3, rest.first(count),
                                     segment->length * length_factor_ / segment->elements});
            rest = rest.subspan(count);
        }
        return rest.empty();
    }

    const group::Group* group_;
    double length_factor_;
    std::vector<SegmentView> segments_;
    std::vector<SegmentListView> lists_;
};

// Whole numbers of elements from quotients, which may miss a whole number by rounding.
constexpr double quotient_rounding = 1.0e-6;

double at_least(double elements) {
    return std::ceil(elements - quotient_rounding);
}

double at_most(double elements) {
    return std::max(1.0, std::floor(elements + quotient_rounding));
}

bool is_single(const SegmentedPile& pile) {
    return pile.pile->elements.size() == 1;
}

// Calls `look` for each segment type where it is first used.
template <typename Look>
void each_type(const std::vector<SegmentedPile>& piles, const Look& look) {
    std::set<int> seen;
    for (const SegmentedPile& pile : piles) {
        for (const PileSegment& segment : pile.segments) {
            if (!is_single(pile) && seen.insert(segment.segment->number).second) look(segment);
        }
    }
}

std::string elements_of(const PileSegment& segment) {
    return "the elements of segment type " + text_of(segment.segment->number) + " are " +
           text_of(segment.element_length) + " long, ";
}

void look_for_long_elements(const Subject& subject, const Rule& rule, Findings& findings) {
    const Division division(subject);
    each_type(division.piles(), [&](const PileSegment& segment) {
        const double diameter = segment.least_diameter();
        const double ratio = segment.element_length / diameter;
        if (ratio <= threshold::longest_element) return;
        const int count = segment.segment->elements;
        const double enough = at_least(ratio * count / threshold::longest_element);
        tell(findings, rule, place_of(segment.segment->row, 5),
             elements_of(segment) + text_of(ratio, 3) + " times the diameter " + text_of(diameter),
             "Give the segment at least " + text_of(enough) + " elements.");
    });
}

void look_for_short_elements(const Subject& subject, const Rule& rule, Findings& findings) {
    const Division division(subject);
    each_type(division.piles(), [&](const PileSegment& segment) {
        const double diameter = segment.largest_diameter();
        const double ratio = segment.element_length / diameter;
        if (ratio >= threshold::shortest_element) return;
        const int count = segment.segment->elements;
        const double enough = at_most(ratio * count / threshold::shortest_element);
        tell(findings, rule, place_of(segment.segment->row, 5),
             elements_of(segment) + text_of(ratio, 3) + " times the diameter " + text_of(diameter),
             enough < count
                 ? "Give the segment at most " + text_of(enough) + " elements."
                 : "Join the segment with its neighbour, unless it is as short as that.");
    });
}

void look_for_single_elements(const Subject& subject, const Rule& rule, Findings& findings) {
    const Division division(subject);
    for (const SegmentedPile& pile : division.piles()) {
        const PileSegment& segment = pile.segments.front();
        const double diameter = segment.least_diameter();
        const double ratio = segment.element_length / diameter;
        if (!is_single(pile) || ratio <= threshold::longest_element) continue;
        tell(findings, rule, place_of(pile.list->row, segment.item),
             "pile " + text_of(pile.pile->number) + " is " + text_of(segment.element_length) +
                 " long, " + text_of(ratio, 3) + " times its diameter, and has one element",
             "Give segment type " + text_of(segment.segment->number) + " at least " +
                 text_of(at_least(ratio / threshold::longest_element)) + " elements.");
    }
}

// Calls `look` for each two segments that follow one another, once for two types.
template <typename Look>
void each_joint(const std::vector<SegmentedPile>& piles, const Look& look) {
    std::set<std::pair<int, int>> seen;
    for (const SegmentedPile& pile : piles) {
        for (std::size_t i = 1; i < pile.segments.size(); ++i) {
            const PileSegment& upper = pile.segments[i - 1];
            const PileSegment& lower = pile.segments[i];
            if (seen.insert({upper.segment->number, lower.segment->number}).second)
                look(pile, upper, lower);
        }
    }
}

void look_at_neighbours(const Subject& subject, const Rule& rule, Findings& findings) {
    const Division division(subject);
    each_joint(division.piles(), [&](const SegmentedPile& pile, const PileSegment& upper,
                                     const PileSegment& lower) {
        const auto [less, more] = std::minmax(upper.element_length, lower.element_length);
        const double ratio = more / less;
        // The quotients of length and number of elements are rounded.
        constexpr double rounding = 1.0e-9;
        if (ratio <= threshold::neighbour_ratio * (1.0 + rounding)) return;
        tell(findings, rule, place_of(pile.list->row, lower.item),
             "in pile " + text_of(pile.pile->number) + " elements of " +
                 text_of(upper.element_length) + " (segment type " +
                 text_of(upper.segment->number) + ") meet elements of " +
                 text_of(lower.element_length) + " (segment type " +
                 text_of(lower.segment->number) + "), a ratio of " + text_of(ratio, 3),
             "Change the numbers of elements until neighbours differ by no more than 3.");
    });
}

void look_for_many_elements(const Subject& subject, const Rule& rule, Findings& findings) {
    const Division division(subject);
    for (const SegmentedPile& pile : division.piles()) {
        const auto& elements = pile.pile->elements;
        const auto count = static_cast<double>(elements.size());
        double lengths = 0.0;
        double diameters = 0.0;
        for (const group::Element& element : elements) {
            lengths += element.length;
            diameters += element.diameter;
        }
        const bool is_fine = lengths < threshold::fine_element * diameters;
        if (count <= threshold::many_elements || !is_fine) continue;
        tell(findings, rule, place_of(pile.list->row, 2),
             "pile " + text_of(pile.pile->number) + " has " + text_of(count) +
                 " elements, on average " + text_of(lengths / diameters, 3) +
                 " times the diameter long",
             "Elements of half a diameter would do: they make " +
                 text_of(at_least(2.0 * lengths * count / diameters)) + ".");
    }
}

struct SectionValue {
    std::string_view name;
    double group::Section::*value;
};

constexpr SectionValue compared_values[] = {
    {"diameter", &group::Section::diameter},
    {"bending stiffness", &group::Section::bending_stiffness}};

bool is_between(double value, double a, double b) {
    const auto [least, largest] = std::minmax(a, b);
    const double rounding = threshold::between_rounding * largest;
    return value >= least - rounding && value <= largest + rounding;
}

void look_at_steps(const Subject& subject, const Rule& rule, Findings& findings) {
    const Division division(subject);
    each_type(division.piles(), [&](const PileSegment& segment) {
        const SegmentView& type = *segment.segment;
        const group::Section* const first = section_numbered(*subject.group, type.first_section);
        const group::Section* const last = section_numbered(*subject.group, type.last_section);
        if (first == nullptr || last == nullptr) return;
        for (const group::Element& element : segment.elements) {
            const group::Section* const own = section_numbered(*subject.group, element.section);
            for (const SectionValue& compared : compared_values) {
                const double start = first->*compared.value;
                const double end = last->*compared.value;
                if (own == nullptr || is_between(own->*compared.value, start, end)) continue;
                tell(findings, rule, place_of(type.row, 3),
                     "segment type " + text_of(type.number) + " steps from section " +
                         text_of(type.first_section) + " to " + text_of(type.last_section) +
                         " by way of section " + text_of(element.section) + ", whose " +
                         std::string(compared.name) + " " + text_of(own->*compared.value) +
                         " is not between theirs, " + text_of(start) + " and " + text_of(end),
                     "Number the sections so that those between the two fit, or use a segment "
                     "type for each.");
                return;
            }
        }
    });
}

void look_at_stiffness_jumps(const Subject& subject, const Rule& rule, Findings& findings) {
    const Division division(subject);
    const auto stiffness = [&](const group::Element& element) {
        const group::Section* const section = section_numbered(*subject.group, element.section);
        return section != nullptr ? section->bending_stiffness : 0.0;
    };
    each_joint(division.piles(), [&](const SegmentedPile& pile, const PileSegment& upper,
                                     const PileSegment& lower) {
        const double above = stiffness(upper.elements.back());
        const double below = stiffness(lower.elements.front());
        const auto [less, more] = std::minmax(above, below);
        if (less <= 0.0 || more <= threshold::stiffness_jump * less) return;
        tell(findings, rule, place_of(pile.list->row, lower.item),
             "in pile " + text_of(pile.pile->number) + " the bending stiffness changes from " +
                 text_of(above) + " to " + text_of(below) + ", a ratio of " +
                 text_of(more / less, 3) + ", where segment type " +
                 text_of(lower.segment->number) + " follows type " + text_of(upper.segment->number),
             "Check the sections of both, and the order of the segment types.");
    });
}

constexpr Rule rules[] = {
    {"element-long", Level::warning, "elements longer than 5 diameters", look_for_long_elements},
    {"element-short", Level::warning, "elements shorter than a tenth of the diameter",
     look_for_short_elements},
    {"element-single", Level::warning, "a long pile of one element", look_for_single_elements},
    {"element-neighbours", Level::warning, "neighbours whose lengths differ by more than 3",
     look_at_neighbours},
    {"elements-many", Level::note, "more nodes than needed", look_for_many_elements},
    {"step-through-others", Level::warning, "a segment that steps through sections that do not fit",
     look_at_steps},
    {"stiffness-jump", Level::warning,
     "neighbours whose bending stiffnesses differ by more than 10", look_at_stiffness_jumps},
};

} // namespace

std::span<const Rule> element_rules() {
    return rules;
}

} // namespace korvat::check
