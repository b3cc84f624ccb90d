#include "group/difference.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace korvat::group {
namespace {

bool is_beyond(double a, double b, const Tolerance& tolerance) {
    if (std::isnan(a) || std::isnan(b)) return std::isnan(a) != std::isnan(b);
    if (a == b) return false;
    if (std::isinf(a) || std::isinf(b)) return true;
    // In long double: neither the difference nor the bound overflows.
    const long double largest = std::max(std::fabs(a), std::fabs(b));
    const long double bound = tolerance.absolute + tolerance.relative * largest;
    return std::fabs(static_cast<long double>(a) - b) > bound;
}

// How large a difference is among others; one with what is no finite number is the largest.
long double size_of(double a, double b) {
    const long double size = std::fabs(static_cast<long double>(a) - b);
    return std::isnan(size) ? HUGE_VALL : size;
}

constexpr std::array<const char*, 6> directions = {"x", "y", "z", "about x", "about y", "about z"};

double distance(const Node& a, const Node& b) {
    // Infinite where a part is, which the form for three numbers does not keep.
    return std::hypot(std::hypot(b.x - a.x, b.y - a.y), b.z - a.z);
}

struct Measure {
    const char* name;
    const char* unit;
    double Section::*value;
};

constexpr std::array<Measure, 14> section_measures = {{
    {"diameter", "L", &Section::diameter},
    {"wall", "L", &Section::wall},
    {"area", "L2", &Section::area},
    {"section modulus", "L3", &Section::section_modulus},
    {"axial stiffness", "F", &Section::axial_stiffness},
    {"shear stiffness", "F", &Section::shear_stiffness},
    {"bending stiffness", "F L2", &Section::bending_stiffness},
    {"torsional stiffness", "F L2", &Section::torsional_stiffness},
    {"wall weight", "F/L3", &Section::wall_weight},
    {"fluid weight", "F/L3", &Section::fluid_weight},
    {"temperature strain", "", &Section::temperature_strain},
    {"yield stress", "F/L2", &Section::yield_stress},
    {"elastic modulus", "F/L2", &Section::elastic_modulus},
    {"shear modulus", "F/L2", &Section::shear_modulus},
}};

// Of revision 5 alone.
constexpr std::array<Measure, 3> later_measures = {{
    {"eccentricity", "", &Section::eccentricity},
    {"axial yield force", "F", &Section::axial_yield},
    {"torsional yield moment", "F L", &Section::torsional_yield},
}};

struct NodeValues {
    const char* name;
    const char* unit;         // along an axis
    const char* angular_unit; // about an axis
    const Components Node::*values;
    bool is_summed; // displacements of different nodes have no sum
};

constexpr std::array<NodeValues, 3> node_values = {{
    {"spring", "F/L", "F L", &Node::springs, true},
    {"force", "F", "F L", &Node::forces, true},
    {"soil displacement", "L", "", &Node::displacements, false},
}};

class Comparison {
public:
    Comparison(const Group& a, const Group& b, const Tolerance& tolerance)
        : a_(a), b_(b), tolerance_(tolerance) {}

    std::vector<Difference> take() {
        at(Subject::group, 0);
        compare("revision", a_.revision, b_.revision);
        compare("label", a_.label, b_.label);
        for_each(Subject::section, a_.sections, b_.sections,
                 [this](const Section& a, const Section& b) { compare_sections(a, b); });
        for_each(Subject::pile, a_.piles, b_.piles,
                 [this](const Pile& a, const Pile& b) { compare_piles(a, b); });
        for_each(Subject::load_vector, a_.load_vectors, b_.load_vectors,
                 [this](const LoadVector& a, const LoadVector& b) { compare_loads(a, b); });
        return std::move(found_);
    }

private:
    void at(Subject subject, int number) {
        subject_ = subject;
        number_ = number;
    }

    Difference& add(const std::string& quantity, const std::string& unit, Value a, Value b) {
        return found_.emplace_back(
            Difference{subject_, number_, quantity, unit, std::move(a), std::move(b), "", 0, 1});
    }

    // What is no real: an integer or a text.
    template <typename T>
    void compare(const std::string& quantity, const T& a, const T& b) {
        if (a != b) add(quantity, "", a, b);
    }

    void compare_reals(const std::string& quantity, const std::string& unit, double a, double b) {
        if (is_beyond(a, b, tolerance_)) add(quantity, unit, a, b);
    }

    // The items of both lists that have the same number; then those that only one has.
    template <typename Item, typename Compare>
    void for_each(Subject subject, const std::vector<Item>& a, const std::vector<Item>& b,
                  Compare compare_items) {
        const std::size_t most = std::max(a.size(), b.size());
        for (std::size_t i = 0; i < most; ++i) {
            at(subject, static_cast<int>(i) + 1);
            if (i < a.size() && i < b.size()) {
                compare_items(a[i], b[i]);
            } else {
                const Value none;
                const Value there = number_;
                add("", "", i < a.size() ? there : none, i < b.size() ? there : none);
            }
        }
    }

    // Reals that items have in both lists, the first `common` of them: the largest difference speaks for all.
    template <typename Item, typename Get>
    void compare_each(const std::string& quantity, const std::string& unit,
                      const std::string& place, const std::vector<Item>& a,
                      const std::vector<Item>& b, Get get) {
        std::optional<std::size_t> largest;
        std::size_t count = 0;
        const std::size_t common = std::min(a.size(), b.size());
        for (std::size_t i = 0; i < common; ++i) {
            if (!is_beyond(get(a[i]), get(b[i]), tolerance_)) continue;
            ++count;
            if (!largest ||
                size_of(get(a[i]), get(b[i])) > size_of(get(a[*largest]), get(b[*largest])))
                largest = i;
        }
        if (!largest) return;
        Difference& difference = add(quantity, unit, get(a[*largest]), get(b[*largest]));
        difference.place = place;
        difference.place_number = static_cast<int>(*largest) + 1;
        difference.count = count;
    }

    // Integers: the first one that differs speaks for all.
    template <typename Item>
    void compare_numbers(const std::string& quantity, const std::string& place,
                         const std::vector<Item>& a, const std::vector<Item>& b,
                         int Item::*number) {
        std::optional<std::size_t> first;
        std::size_t count = 0;
        const std::size_t common = std::min(a.size(), b.size());
        for (std::size_t i = 0; i < common; ++i) {
            if (a[i].*number == b[i].*number) continue;
            ++count;
            if (!first) first = i;
        }
        if (!first) return;
        Difference& difference = add(quantity, "", a[*first].*number, b[*first].*number);
        difference.place = place;
        difference.place_number = static_cast<int>(*first) + 1;
        difference.count = count;
    }

    void compare_sections(const Section& a, const Section& b) {
        for (const Measure& measure : section_measures)
            compare_reals(measure.name, measure.unit, a.*measure.value, b.*measure.value);
        if (a_.revision != b_.revision) return;
        compare("type", a.type, b.type);
        compare("tubes", tubes_text(a), tubes_text(b));
        for (const Measure& measure : later_measures)
            compare_reals(measure.name, measure.unit, a.*measure.value, b.*measure.value);
        for (std::size_t i = 0; i < a.miscellaneous.size(); ++i) {
            compare_reals("miscellaneous value " + std::to_string(i + 1), "", a.miscellaneous[i],
                          b.miscellaneous[i]);
        }
        compare_curves("elastic curve", a.elastic_curve, b.elastic_curve);
        compare_curves("plastic curve", a.plastic_curve, b.plastic_curve);
    }

    static std::string tubes_text(const Section& section) {
        std::string text;
        for (const int tube : section.tubes)
            text += (text.empty() ? "" : " ") + std::to_string(tube);
        return text;
    }

    void compare_curves(const std::string& name, const std::vector<YieldPoint>& a,
                        const std::vector<YieldPoint>& b) {
        compare(name + ": points", static_cast<int>(a.size()), static_cast<int>(b.size()));
        if (a.size() != b.size()) return;
        const auto axial = [](const YieldPoint& point) { return point.axial; };
        const auto moment = [](const YieldPoint& point) { return point.moment; };
        compare_each(name + ": axial force", "F", "point", a, b, axial);
        compare_each(name + ": moment", "F L", "point", a, b, moment);
    }

    void compare_piles(const Pile& a, const Pile& b) {
        compare("fixed to", a.fixed_to, b.fixed_to);
        compare("tip code", a.tip_code, b.tip_code);
        compare("elements", static_cast<int>(a.elements.size()),
                static_cast<int>(b.elements.size()));
        if (a.nodes.empty() || b.nodes.empty()) return; // of no file
        const bool has_tips = !a.is_dummy() && !b.is_dummy();
        for (const auto& [axis, coordinate] : axes)
            compare_reals(std::string("head ") + axis, "L", a.nodes.front().*coordinate,
                          b.nodes.front().*coordinate);
        for (const auto& [axis, coordinate] : axes) {
            if (has_tips)
                compare_reals(std::string("tip ") + axis, "L", a.nodes.back().*coordinate,
                              b.nodes.back().*coordinate);
        }
        if (has_tips) {
            compare_reals("length", "L", distance(a.nodes.front(), a.nodes.back()),
                          distance(b.nodes.front(), b.nodes.back()));
        }
        if (a.nodes.size() == b.nodes.size()) {
            compare_nodes(a, b);
            compare_elements(a, b);
        } else {
            compare_totals(a, b);
        }
    }

    // Head and tip are compared by themselves: their places are between them.
    void compare_nodes(const Pile& a, const Pile& b) {
        for (const auto& [axis, coordinate] : axes) {
            const auto get = [&, last = &a.nodes.back(), other_last = &b.nodes.back(),
                              first = &a.nodes.front(), other_first = &b.nodes.front(),
                              member = coordinate](const Node& node) {
                const bool is_end =
                    &node == last || &node == other_last || &node == first || &node == other_first;
                return is_end ? 0.0 : node.*member;
            };
            compare_each(axis, "L", "node", a.nodes, b.nodes, get);
        }
        for (const NodeValues& kind : node_values) {
            for (std::size_t k = 0; k < directions.size(); ++k) {
                const auto get = [&](const Node& node) { return (node.*kind.values)[k]; };
                compare_each(name_of(kind, k), unit_of(kind, k), "node", a.nodes, b.nodes, get);
            }
        }
    }

    void compare_elements(const Pile& a, const Pile& b) {
        compare_numbers("section", "element", a.elements, b.elements, &Element::section);
        using Member = std::pair<const char*, double Element::*>;
        for (const auto& [name, member] :
             {Member("diameter", &Element::diameter),
              Member("length of elements", &Element::length), Member("strain", &Element::strain)}) {
            const std::string unit = member == &Element::strain ? "" : "L";
            const auto get = [value = member](const Element& element) { return element.*value; };
            compare_each(name, unit, "element", a.elements, b.elements, get);
        }
    }

    void compare_totals(const Pile& a, const Pile& b) {
        compare("sections from the head", section_order(a), section_order(b));
        for (const NodeValues& kind : node_values) {
            for (std::size_t k = 0; k < directions.size(); ++k) {
                compare_reals((kind.is_summed ? "total " : "largest ") + name_of(kind, k),
                              unit_of(kind, k), total(a, kind, k), total(b, kind, k));
            }
        }
    }

    // Neighbouring elements of the same section count once.
    static std::string section_order(const Pile& pile) {
        std::string text;
        int last = 0;
        for (const Element& element : pile.elements) {
            if (!text.empty() && element.section == last) continue;
            last = element.section;
            text += (text.empty() ? "" : " ") + std::to_string(last);
        }
        return text;
    }

    // The sum, or the value of the largest magnitude, over the nodes.
    static double total(const Pile& pile, const NodeValues& kind, std::size_t k) {
        double total = 0.0;
        for (const Node& node : pile.nodes) {
            const double value = (node.*kind.values)[k];
            if (kind.is_summed) {
                total += value;
            } else if (std::fabs(value) > std::fabs(total) || std::isnan(value)) {
                total = value;
            }
        }
        return total;
    }

    static std::string name_of(const NodeValues& kind, std::size_t k) {
        return std::string(kind.name) + ' ' + directions[k];
    }

    static std::string unit_of(const NodeValues& kind, std::size_t k) {
        return k < 3 ? kind.unit : kind.angular_unit;
    }

    void compare_loads(const LoadVector& a, const LoadVector& b) {
        compare("label", a.label, b.label);
        compare("loads", static_cast<int>(a.loads.size()), static_cast<int>(b.loads.size()));
        const bool is_one_to_one = a.loads.size() == b.loads.size();
        if (is_one_to_one) compare_numbers("pile", "load", a.loads, b.loads, &Load::pile);
        for (std::size_t k = 0; k < 6; ++k) {
            const bool is_force = k < 3;
            const std::string name =
                std::string(is_force ? "force " : "moment ") + directions[k % 3];
            const std::string unit = is_force ? "F" : "F L";
            const auto get = [&](const Load& load) {
                return is_force ? load.force[k] : load.moment[k - 3];
            };
            if (is_one_to_one) {
                compare_each(name, unit, "load", a.loads, b.loads, get);
            } else {
                const auto sum = [&](const LoadVector& vector) {
                    double total = 0.0;
                    for (const Load& load : vector.loads)
                        total += get(load);
                    return total;
                };
                compare_reals("total " + name, unit, sum(a), sum(b));
            }
        }
    }

    static constexpr std::array<std::pair<const char*, double Node::*>, 3> axes = {
        {{"x", &Node::x}, {"y", &Node::y}, {"z", &Node::z}}};

    const Group& a_;
    const Group& b_;
    Tolerance tolerance_;
    Subject subject_ = Subject::group;
    int number_ = 0;
    std::vector<Difference> found_;
};

} // namespace

std::vector<Difference> differences(const Group& a, const Group& b, const Tolerance& tolerance) {
    return Comparison(a, b, tolerance).take();
}

} // namespace korvat::group
