// Judges the report of a failed run against its log and its deck.
#pragma once

#include "message_forms.hpp"

#include <span>
#include <string>
#include <string_view>

namespace korvat::test {

// What is wrong with the report, empty when nothing is. It holds the first message of the log in one
// line, the deck line that it names, a caret under the beginning of a value of that line or no caret,
// and the name of the log.
[[nodiscard]] std::string fault_of_report(std::string_view report, std::span<const std::string> log,
                                          std::string_view deck, const MessageForms& forms);

} // namespace korvat::test
