#include "check/rules.hpp"

#include <algorithm>
#include <numeric>

namespace korvat::check {
namespace {

// Letters to change, to add or to remove to make one word of the other.
std::size_t distance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= from.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t changed = diagonal + (from[i - 1] == to[j - 1] ? 0U : 1U);
            diagonal = row[j];
            row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

} // namespace

std::vector<std::span<const Rule>> rule_groups() {
    return {run_rules(), character_rules(), structure_rules(), input_rules()};
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

std::string_view nearest_rule(std::string_view name) {
    const std::vector<const Rule*> rules = all_rules();
    return (*std::ranges::min_element(rules, {},
                                      [&](const Rule* rule) { return distance(name, rule->name); }))
        ->name;
}

} // namespace korvat::check
