// Adds what a rule has found.
#pragma once

#include "check/rule.hpp"

#include <string>
#include <utility>

namespace korvat::check {

inline void tell(Findings& findings, const Rule& rule, const Place& place, std::string message,
                 std::string remedy) {
    findings.push_back({.rule = std::string(rule.name),
                        .level = rule.level,
                        .place = place,
                        .message = std::move(message),
                        .remedy = std::move(remedy)});
}

} // namespace korvat::check
