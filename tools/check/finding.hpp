// What a check has to say: a rule's name, how serious it is, where in the deck, what is wrong, what to do.
#pragma once

#include <string>
#include <vector>

namespace korvat::check {

enum class Level { error, warning, note };

// A place in the deck file, as an editor counts: from 1, comments included. Line 0: the whole file;
// column 0: the whole line.
struct Place {
    int line = 0;
    int column = 0;
    int length = 0; // characters from the column on; 0 where there is no column

    bool operator==(const Place&) const = default;
};

struct Finding {
    std::string rule; // its short name
    Level level = Level::warning;
    Place place;
    std::string message; // what is wrong with its numbers: no capital in front, no stop at the end
    std::string remedy;  // what to do, in whole sentences

    bool operator==(const Finding&) const = default;
};

using Findings = std::vector<Finding>;

} // namespace korvat::check
