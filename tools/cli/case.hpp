// What a command takes as the results of a run: a CASE, or files that a run has left.
#pragma once

#include "group/group.hpp"

#include <stdexcept>
#include <string>

namespace korvat::cli {

struct Results {
    group::Group group;        // with the load vectors, where there are any
    bool is_load_file = false; // a LOAD.09 alone: load vectors and nothing else
    std::string loads_from;    // the name of the file or deck that the load vectors are from
    std::string note;          // a line that the user should see; empty: nothing to say
};

// Why there are no results.
class NoResults : public std::runtime_error {
public:
    enum class Cause { cannot_be_read, is_damaged, deck_has_errors, run_was_stopped };

    NoResults(Cause cause, const std::string& message)
        : std::runtime_error(message), cause_(cause) {}

    [[nodiscard]] Cause cause() const { return cause_; }

private:
    Cause cause_;
};

// Of a directory, its PILE.07 and LOAD.09, unless it has a deck that is newer than one of them or has none of
// them; of a file or `-`, standard input, what it is by its content: a PILE.07, a LOAD.09, or else a deck.
// A deck is run in a directory of its own; nothing of the run stays. Raises NoResults; its message has
// every name as the user gave it. Where a run has failed, it is lines with their ends, in the form of check.
[[nodiscard]] Results read_results(const std::string& name);

// Writes a line of the command to standard error; nothing where the text is empty.
void tell(const std::string& command, const std::string& text);

// Tells why a command has no results.
void tell(const std::string& command, const NoResults& reason);

} // namespace korvat::cli
