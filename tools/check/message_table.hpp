// What docs/messages.md says about the messages of a run.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace korvat::check {

// An error number of a message, and what it says.
struct MessageNumber {
    int number;
    std::string_view text;
};

// A message and its explanation. One that stands in several forms comes once for each.
struct MessageEntry {
    // The fixed texts of the message, without blanks; numbers and texts of the run stand between them.
    std::span<const std::string_view> pieces;
    std::string_view heading;
    std::string_view meaning;
    std::string_view cause;
    std::string_view remedy;
    std::span<const MessageNumber> numbers; // what its number IERR says; none where it has none
};

// All of them; made of the document when the program is built.
[[nodiscard]] std::span<const MessageEntry> message_entries();

// The entry of a message as the log has it; null where there is none.
[[nodiscard]] const MessageEntry* entry_of(std::string_view message);

// What the number IERR of a message says; empty where it has none.
[[nodiscard]] std::string_view meaning_of_number(const MessageEntry& entry,
                                                 std::string_view message);

// The lines of a message as one, with single blanks and without the mark of an error or a warning.
[[nodiscard]] std::string one_line(std::string_view message);

} // namespace korvat::check
