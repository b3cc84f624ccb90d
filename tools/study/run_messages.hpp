// What a run says on standard error.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::study {

// An error or a warning.
struct RunMessage {
    bool is_warning = false;
    std::string text;        // without its place
    std::optional<int> line; // of KORVAT.INP, from 1, where the message is about one

    bool operator==(const RunMessage&) const = default;
};

// The messages, the first error first. Lines of the deck that are shown below a message are left out.
[[nodiscard]] std::vector<RunMessage> run_messages(std::string_view standard_error);

// Whether a message is about the machine rather than the deck: a file that cannot be opened or written, or
// memory that is short. The same deck may then run another time.
[[nodiscard]] bool is_of_machine(const RunMessage& message);

// The output that a warning says is not of this run; empty where it says nothing like that.
[[nodiscard]] std::string old_output(const RunMessage& message);

} // namespace korvat::study
