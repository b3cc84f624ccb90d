#include "check/rules.hpp"

namespace korvat::check {

std::vector<Rule> all_rules() {
    std::vector<Rule> all;
    for (const auto group :
         {unit_rules(), section_rules(), geometry_rules(), element_rules(), link_rules()})
        all.insert(all.end(), group.begin(), group.end());
    return all;
}

} // namespace korvat::check
