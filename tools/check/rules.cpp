#include "check/rules.hpp"

#include "check/nearest_name.hpp"

#include <algorithm>

namespace korvat::check {
std::vector<std::span<const Rule>> rule_groups() {
    return {run_rules(),     character_rules(), structure_rules(), input_rules(), unit_rules(),
            section_rules(), geometry_rules(),  element_rules(),   link_rules()};
}

std::vector<const Rule*> all_rules() {
    std::vector<const Rule*> rules;
    for (const std::span<const Rule> group : rule_groups()) {
        for (const Rule& rule : group) {
            rules.push_back(&rule);
        }
    }
    return rules;
}

const Rule* rule_named(std::string_view name) {
    const std::vector<const Rule*> rules = all_rules();
    const auto found = std::ranges::find(rules, name, &Rule::name);
    return found == rules.end() ? nullptr : *found;
}

std::string unknown_rule(std::string_view name) {
    std::vector<std::string> names;
    for (const Rule* const rule : all_rules()) {
        names.emplace_back(rule->name);
    }
    const auto nearest = nearest_name(name, names);
    return "there is no rule '" + std::string(name) + "'" +
           (nearest ? "; did you mean '" + *nearest + "'?" : "");
}

} // namespace korvat::check
