// A rule of the checker, and what it looks at.
#pragma once

#include "check/finding.hpp"
#include "check/outline.hpp"
#include "group/group.hpp"
#include "model/store/store.hpp"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::check {

class Layout;

// A deck and what its run made of it.
struct Subject {
    const std::vector<std::string>&
        lines; // of the deck file, without line ends; line i at index i - 1
    const Outline& outline;
    const Store& cmn;          // after the run, in stored units; filled as far as the run came
    const group::Group* group; // what the run wrote; null where it failed
    int exit_code;             // of the run
    std::string_view deck_name = {}; // of the file without its directory; empty: standard input
    std::string_view stop = {};      // what ended the run from within, or an output it could not
                                     // write; empty: nothing
    // The lines and sections that can be made out; null only where no rule asks for them.
    const Layout* layout = nullptr;
};

// A rule names itself and its level once, in its table; `look` adds what it finds.
struct Rule {
    std::string_view name;    // lower-case words with hyphens
    Level level;              // of its findings
    std::string_view summary; // what it looks for, in a few words
    void (*look)(const Subject& subject, const Rule& rule, Findings& findings);
};

// The rule groups, each in its own file.
[[nodiscard]] std::span<const Rule> run_rules(); // what the run itself says
[[nodiscard]] std::span<const Rule>
character_rules(); // characters behind the message of a run: tabs, commas, UTF-16
[[nodiscard]] std::span<const Rule>
structure_rules(); // headings and records behind the message of a run: too few, too many
[[nodiscard]] std::span<const Rule>
input_rules(); // input that is lost or read otherwise than it looks
[[nodiscard]] std::span<const Rule>
unit_rules(); // values beside what materials and sizes have in their units
[[nodiscard]] std::span<const Rule> section_rules();  // materials, cross sections, segment types
[[nodiscard]] std::span<const Rule> geometry_rules(); // piles in space
[[nodiscard]] std::span<const Rule> element_rules();  // division into elements
[[nodiscard]] std::span<const Rule> link_rules();     // tip codes, fixing, node values, loads

} // namespace korvat::check
