// What is fixed to what, node values and loads.
#include "check/deck_view.hpp"
#include "check/tell.hpp"
#include "check/text.hpp"
#include "check/thresholds.hpp"

#include <algorithm>
#include <cmath>
#include <set>

namespace korvat::check {
namespace {

// Elements of each pile that can be made out, by its number; 0 for a dummy pile.
std::map<int, int> element_counts(const Subject& subject) {
    std::map<int, int> of_type;
    for (const SegmentView& segment : segments(subject))
        of_type[segment.number] = segment.elements;
    std::map<int, int> counts;
    for (const SegmentListView& list : segment_lists(subject)) {
        int& count = counts[list.pile];
        for (const int type : list.types)
            count += std::clamp(of_type[type], 0, limits::pile_elements);
    }
    for (const PileView& pile : piles(subject)) {
        const auto source = counts.find(pile.source);
        if (!pile.is_given() && source != counts.end()) counts[pile.number] = source->second;
    }
    return counts;
}

// "pile 3" or "piles 3 to 5".
std::string range_of(int first, int last, std::string text) {
    if (first == last) return text.append(" ").append(text_of(first));
    return text.append("s ").append(text_of(first)).append(" to ").append(text_of(last));
}

void look_for_fixing_to_itself(const Subject& subject, const Rule& rule, Findings& findings) {
    for (const FixView& fix : fixings(subject)) {
        if (fix.fixed_to < fix.first_pile || fix.fixed_to > fix.last_pile || fix.fixed_to < 1)
            continue;
        tell(findings, rule, place_of(fix.row, 4),
             range_of(fix.first_pile, fix.last_pile, "pile") +
                 (fix.first_pile == fix.last_pile ? " is" : " are") + " fixed to pile " +
                 text_of(fix.fixed_to) + ": pile " + text_of(fix.fixed_to) + " is fixed to itself",
             "Give pile " + text_of(fix.fixed_to) + " a record of its own with 0.");
    }
}

void look_for_fixing_to_piles(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto counts = element_counts(subject);
    for (const FixView& fix : fixings(subject)) {
        const auto target = counts.find(fix.fixed_to);
        if (fix.tip_code < 0 || target == counts.end() || target->second == 0) continue;
        tell(findings, rule, place_of(fix.row, 4),
             range_of(fix.first_pile, fix.last_pile, "pile") +
                 (fix.first_pile == fix.last_pile ? " is" : " are") + " fixed to pile " +
                 text_of(fix.fixed_to) + ", which has " + text_of(target->second) +
                 (target->second == 1 ? " element" : " elements") + " and is no dummy pile",
             "Fix them to a dummy pile; only for a negative tip code does the program check it.");
    }
}

// The record of the tip/fix table that a pile is in; null where it is in none.
const Row* fix_row(const Subject& subject, int pile) {
    for (const FixView& fix : fixings(subject)) {
        if (pile >= fix.first_pile && pile <= fix.last_pile) return fix.row;
    }
    return nullptr;
}

// The piles of a circle of fixings that begins at a pile, which is its lowest; empty where there is none.
std::vector<int> circle_from(const group::Group& group, const group::Pile& start) {
    std::vector<int> circle = {start.number};
    const group::Pile* next = pile_numbered(group, start.fixed_to);
    while (next != nullptr && next->number > start.number && circle.size() < group.piles.size()) {
        circle.push_back(next->number);
        next = pile_numbered(group, next->fixed_to);
    }
    const bool is_closed = next == &start && circle.size() > 1;
    return is_closed ? circle : std::vector<int>{};
}

void look_for_circles(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.group == nullptr) return;
    for (const group::Pile& pile : subject.group->piles) {
        const std::vector<int> circle = circle_from(*subject.group, pile);
        if (circle.empty()) continue;
        std::string path;
        for (const int number : circle)
            path += "pile " + text_of(number) + " to ";
        tell(findings, rule, place_of(fix_row(subject, pile.number), 4),
             "the piles are fixed in a circle: " + path + "pile " + text_of(pile.number),
             "Fix one of them to none: give it 0.");
    }
}

bool is_target(const group::Group& group, int number) {
    return std::ranges::any_of(group.piles, [&](const group::Pile& pile) {
        return pile.fixed_to == number && pile.number != number;
    });
}

bool has_own_tip(const PileView& pile) {
    return pile.is_given() && pile.head != pile.tip;
}

void look_for_unused_dummies(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.group == nullptr) return;
    const auto views = piles(subject);
    for (const group::Pile& pile : subject.group->piles) {
        if (!pile.is_dummy() || is_target(*subject.group, pile.number)) continue;
        const auto view = std::ranges::find(views, pile.number, &PileView::number);
        if (view != views.end() && has_own_tip(*view)) continue; // it lacks its segments
        tell(findings, rule, place_of(pile_row(subject, pile.number), 1),
             "no pile is fixed to the dummy pile " + text_of(pile.number),
             "Fix its piles to it in the tip/fix table, or leave it out.");
    }
}

// Calls `look` for each copy or mirror and its source, as the run made them.
template <typename Look>
void each_generated(const Subject& subject, const Look& look) {
    if (subject.group == nullptr) return;
    for (const PileView& view : piles(subject)) {
        const group::Pile* const pile = pile_numbered(*subject.group, view.number);
        const group::Pile* const source = pile_numbered(*subject.group, view.source);
        if (!view.is_given() && pile != nullptr && source != nullptr) look(view, *pile, *source);
    }
}

std::string generated_from(const PileView& view) {
    return "pile " + text_of(view.number) + " is a " + (view.mirror == 0 ? "copy" : "mirror") +
           " of pile " + text_of(view.source);
}

Place place_of_fixing(const Subject& subject, const PileView& view, std::size_t item) {
    const Row* const row = fix_row(subject, view.number);
    return row != nullptr ? place_of(row, item) : place_of(view.row, 1);
}

std::string fixed_to(const group::Pile& pile) {
    return pile.fixed_to == 0 ? "to none" : "to pile " + text_of(pile.fixed_to);
}

void look_at_fixing_of_copies(const Subject& subject, const Rule& rule, Findings& findings) {
    each_generated(subject,
                   [&](const PileView& view, const group::Pile& pile, const group::Pile& source) {
                       if ((pile.fixed_to == 0) == (source.fixed_to == 0)) return;
                       tell(findings, rule, place_of_fixing(subject, view, 4),
                            generated_from(view) + " and fixed " + fixed_to(pile) +
                                ", its source " + fixed_to(source),
                            "Fix it like its source: the fixing is not taken over from there.");
                   });
}

void look_at_tip_codes_of_copies(const Subject& subject, const Rule& rule, Findings& findings) {
    each_generated(subject, [&](const PileView& view, const group::Pile& pile,
                                const group::Pile& source) {
        if (pile.tip_code == source.tip_code) return;
        tell(
            findings, rule, place_of_fixing(subject, view, 3),
            generated_from(view) + " and has the tip code " + text_of(pile.tip_code) +
                ", its source " + text_of(source.tip_code),
            "Give it the code of its source, if the tips are alike: it is not taken over from there.");
    });
}

void look_for_missing_nodes(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto counts = element_counts(subject);
    for (const NodeValueView& values : node_values(subject)) {
        for (auto pile = counts.lower_bound(values.first_pile);
             pile != counts.end() && pile->first <= values.last_pile; ++pile) {
            const int nodes = pile->second + 1;
            if (values.last_node <= nodes) continue;
            tell(findings, rule, place_of(values.row, 4),
                 "the values go to node " + text_of(values.last_node) + ", but pile " +
                     text_of(pile->first) + " has " +
                     (nodes == 1 ? "one node" : text_of(nodes) + " nodes"),
                 "End the range of nodes at " + text_of(nodes) +
                     ", or give that pile a record of its own.");
            break;
        }
    }
}

bool overlap(int first_a, int last_a, int first_b, int last_b) {
    return first_a <= last_b && first_b <= last_a;
}

// The last record whose values a later one replaces at some node; null where it replaces none.
const NodeValueView* replaced_by(const std::vector<NodeValueView>& list, std::size_t later) {
    const NodeValueView& values = list[later];
    for (std::size_t i = later; i-- > 0;) {
        const NodeValueView& other = list[i];
        if (other.code == values.code &&
            overlap(other.first_pile, other.last_pile, values.first_pile, values.last_pile) &&
            overlap(other.first_node, other.last_node, values.first_node, values.last_node))
            return &other;
    }
    return nullptr;
}

// Calls `look` for each record of zeros that does not set earlier values to zero.
template <typename Look>
void each_zero_record(const Subject& subject, const Look& look) {
    const auto list = node_values(subject);
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (list[i].is_zero() && replaced_by(list, i) == nullptr) look(list[i]);
    }
}

void look_for_zero_springs(const Subject& subject, const Rule& rule, Findings& findings) {
    each_zero_record(subject, [&](const NodeValueView& values) {
        if (values.code != 1) return;
        tell(findings, rule, values.value_place(0),
             "the springs of " + range_of(values.first_pile, values.last_pile, "pile") +
                 " are all 0",
             "Give their stiffnesses, or leave the record out.");
    });
}

void look_for_zero_values(const Subject& subject, const Rule& rule, Findings& findings) {
    each_zero_record(subject, [&](const NodeValueView& values) {
        if (values.code == 1) return;
        tell(findings, rule, values.value_place(0),
             "the node values of code " + text_of(values.code) + " of " +
                 range_of(values.first_pile, values.last_pile, "pile") + " are all 0",
             "Give the values, or leave the record out.");
    });
}

void look_for_replaced_values(const Subject& subject, const Rule& rule, Findings& findings) {
    const auto list = node_values(subject);
    for (std::size_t i = 0; i < list.size(); ++i) {
        const NodeValueView* const other = replaced_by(list, i);
        if (other == nullptr || list[i].is_zero()) continue;
        tell(findings, rule, place_of(list[i].row, 1),
             "the values of code " + text_of(list[i].code) + " for " +
                 range_of(list[i].first_pile, list[i].last_pile, "pile") + ", " +
                 range_of(list[i].first_node, list[i].last_node, "node") +
                 " replace values of line " + text_of(other->row->place.line) + " where both apply",
             "Give the sum if both are meant: they are not added.");
    }
}

// The first record of code 4 that gives an element of a pile a temperature; null where none does.
const NodeValueView* temperature_record(const std::vector<NodeValueView>& list, int pile,
                                        int element) {
    const auto gives = [&](const NodeValueView& values) {
        return values.code == 4 && values.values[0] != 0.0 &&
               overlap(values.first_pile, values.last_pile, pile, pile) &&
               overlap(values.first_node, values.last_node, element, element + 1);
    };
    const auto found = std::ranges::find_if(list, gives);
    return found == list.end() ? nullptr : &*found;
}

void look_at_temperatures_of_composites(const Subject& subject, const Rule& rule,
                                        Findings& findings) {
    if (subject.group == nullptr) return;
    const auto list = node_values(subject);
    std::set<const Row*> told;
    for (const group::Pile& pile : subject.group->piles) {
        for (std::size_t e = 0; e < pile.elements.size(); ++e) {
            const group::Element& element = pile.elements[e];
            const group::Section* const section = section_numbered(*subject.group, element.section);
            if (section == nullptr || !section->is_composite() ||
                std::abs(element.strain) <= threshold::composite_strain)
                continue;
            const NodeValueView* const record =
                temperature_record(list, pile.number, static_cast<int>(e) + 1);
            if (record == nullptr || !told.insert(record->row).second) continue;
            tell(findings, rule, record->value_place(0),
                 "element " + text_of(static_cast<int>(e) + 1) + " of pile " +
                     text_of(pile.number) + " is of composite section " + text_of(element.section) +
                     " and gets the temperature strain " + text_of(element.strain) +
                     ": it takes the node values themselves",
                 "Give the nodes of composites the strain, such as 15 times 1.2E-5.");
        }
    }
}

void look_for_ignored_temperatures(const Subject& subject, const Rule& rule, Findings& findings) {
    for (const NodeValueView& values : node_values(subject)) {
        if (values.code != 4) continue;
        for (std::size_t i = 1; i < values.values.size(); ++i) {
            if (values.values[i] == 0.0) continue;
            tell(findings, rule, values.value_place(i),
                 "value " + text_of(static_cast<int>(i) + 1) + " of a temperature, " +
                     text_of(values.values[i]) + ", is not used",
                 "Give the temperature as value 1 and zeros behind it; check the code 4.");
            break;
        }
    }
}

// The largest diameter of a pile of a range; 0 where all are dummy piles.
double largest_diameter(const group::Group& group, int first, int last) {
    double largest = 0.0;
    for (const group::Pile& pile : group.piles) {
        if (pile.number < first || pile.number > last) continue;
        for (const group::Element& element : pile.elements)
            largest = std::max(largest, element.diameter);
    }
    return largest;
}

void look_for_large_displacements(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.group == nullptr) return;
    for (const NodeValueView& values : node_values(subject)) {
        if (values.code != 3) continue;
        const double diameter =
            largest_diameter(*subject.group, values.first_pile, values.last_pile);
        for (std::size_t i = 0; i < values.values.size(); ++i) {
            const bool is_rotation = i >= 3;
            const double value = values.values[i];
            const double size = std::abs(value) * (is_rotation ? 1.0 : length_factor(subject));
            const double largest = is_rotation ? threshold::largest_rotation
                                               : threshold::largest_displacement * diameter;
            if (size <= largest || largest == 0.0) continue;
            const std::string measure = is_rotation
                                            ? " is more than " + text_of(largest) + " radians"
                                            : " is " + text_of(size / diameter, 3) +
                                                  " times the largest diameter of the piles";
            tell(findings, rule, values.value_place(i),
                 std::string(is_rotation ? "the rotation " : "the soil displacement ") +
                     text_of(value) + " of " +
                     range_of(values.first_pile, values.last_pile, "pile") + measure,
                 is_rotation ? "Give rotations in radians."
                             : "Give it in the length unit of the deck.");
            break;
        }
    }
}

bool is_zero(const std::array<double, 6>& components) {
    return components == std::array<double, 6>{};
}

// A dummy pile that neither piles nor springs nor another pile hold.
bool is_held_by_nothing(const group::Group& group, const group::Pile& pile) {
    return pile.is_dummy() && pile.fixed_to == 0 && !is_target(group, pile.number) &&
           is_zero(pile.nodes.front().springs);
}

// Calls `look` once for each loaded pile: its number, and the row of its first load that is not zero.
template <typename Look>
void each_loaded_pile(const Subject& subject, const Look& look) {
    std::set<int> seen;
    for (const LoadVectorView& vector : load_vectors(subject)) {
        for (const PileLoadView& load : vector.loads) {
            if (!is_zero(load.components) && seen.insert(load.pile).second)
                look(load.pile, load.row);
        }
    }
}

void look_for_loads_on_free_dummies(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.group == nullptr) return;
    const auto look = [&](int number, const Row* row) {
        const group::Pile* const pile = pile_numbered(*subject.group, number);
        if (pile == nullptr || !is_held_by_nothing(*subject.group, *pile)) return;
        tell(findings, rule, place_of(row, 1),
             "the dummy pile " + text_of(number) +
                 " is loaded, but no pile is fixed to it and it has no springs",
             "Fix its piles to it, or load another pile.");
    };
    for (const NodeValueView& values : node_values(subject)) {
        if (values.code != 2 || values.is_zero()) continue;
        for (int number = values.first_pile; number <= values.last_pile && number <= limits::piles;
             ++number)
            look(number, values.row);
    }
    each_loaded_pile(subject, look);
}

void look_for_loads_on_free_piles(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.group == nullptr) return;
    const auto is_fixed = [](const group::Pile& pile) { return pile.fixed_to != 0; };
    if (std::ranges::none_of(subject.group->piles, is_fixed)) return; // nothing is joined here
    each_loaded_pile(subject, [&](int number, const Row* row) {
        const group::Pile* const pile = pile_numbered(*subject.group, number);
        if (pile == nullptr || pile->is_dummy() || pile->fixed_to != 0) return;
        tell(findings, rule, place_of(row, 1),
             "pile " + text_of(number) +
                 " is loaded and fixed to no other pile: it takes its loads alone",
             "Check that its head is meant to be free.");
    });
}

void look_for_zero_vectors(const Subject& subject, const Rule& rule, Findings& findings) {
    int number = 0;
    for (const LoadVectorView& vector : load_vectors(subject)) {
        ++number;
        const auto is_nothing = [](const PileLoadView& load) { return is_zero(load.components); };
        if (vector.factor_row == nullptr || vector.loads.empty()) continue;
        if (vector.factor == 0.0) {
            tell(findings, rule, place_of(vector.factor_row, 1),
                 "the load factor of vector " + text_of(number) + " is 0: all its loads are 0",
                 "Give the factor; 1.0 takes the loads as they stand.");
        } else if (std::ranges::all_of(vector.loads, is_nothing)) {
            tell(findings, rule, place_of(vector.count_row, 1),
                 "all loads of vector " + text_of(number) + " are 0",
                 "Give its loads, or leave the vector out.");
        }
    }
}

void look_for_repeated_loads(const Subject& subject, const Rule& rule, Findings& findings) {
    int number = 0;
    for (const LoadVectorView& vector : load_vectors(subject)) {
        ++number;
        std::set<std::pair<int, std::array<double, 6>>> seen;
        for (const PileLoadView& load : vector.loads) {
            const bool is_new = seen.insert({load.pile, load.components}).second;
            if (is_new || is_zero(load.components)) continue;
            tell(findings, rule, place_of(load.row, 1),
                 "vector " + text_of(number) + " loads pile " + text_of(load.pile) +
                     " twice with the same values",
                 "Take one record out, unless both are meant: both are written.");
        }
    }
}

constexpr Rule rules[] = {
    {"fixed-to-itself", Level::warning, "a pile fixed to itself", look_for_fixing_to_itself},
    {"fixed-to-pile", Level::warning, "a pile fixed to a pile with elements",
     look_for_fixing_to_piles},
    {"fixed-in-circle", Level::warning, "piles fixed to one another", look_for_circles},
    {"dummy-unused", Level::warning, "a dummy pile nobody is fixed to", look_for_unused_dummies},
    {"copy-fixed-otherwise", Level::warning,
     "a copy that is fixed and its source not, or the reverse", look_at_fixing_of_copies},
    {"copy-tip-code", Level::note, "a copy with another tip code than its source",
     look_at_tip_codes_of_copies},
    {"node-missing", Level::warning, "node values at nodes that a pile does not have",
     look_for_missing_nodes},
    {"spring-zero", Level::warning, "springs of 0", look_for_zero_springs},
    {"node-value-zero", Level::warning, "node values of 0", look_for_zero_values},
    {"node-value-replaced", Level::warning, "node values that replace others",
     look_for_replaced_values},
    {"composite-temperature", Level::warning, "a temperature where a composite takes a strain",
     look_at_temperatures_of_composites},
    {"temperature-ignored", Level::warning, "values behind a temperature",
     look_for_ignored_temperatures},
    {"displacement-large", Level::warning, "soil displacements of several diameters",
     look_for_large_displacements},
    {"load-on-free-dummy", Level::warning, "loads on a dummy pile that nothing holds",
     look_for_loads_on_free_dummies},
    {"load-on-free-pile", Level::note, "loads on a pile that is fixed to none",
     look_for_loads_on_free_piles},
    {"load-vector-zero", Level::warning, "a load vector of zeros", look_for_zero_vectors},
    {"load-repeated", Level::warning, "the same load twice", look_for_repeated_loads},
};

} // namespace

std::span<const Rule> link_rules() {
    return rules;
}

} // namespace korvat::check
