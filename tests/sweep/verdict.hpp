// Judges what one run of the sweep left behind.
#pragma once

#include "message_forms.hpp"

#include <string>
#include <string_view>

namespace korvat::test {

struct RunTraces {
    int exit_code = 0;
    std::string_view deck{};
    std::string log;
    std::string console; // standard output and standard error
    std::string report;  // that the program would write to standard error at its end
};

// What is wrong with the run, empty when nothing is: an exit code that is not specified, a log that
// does not end as that code wants it, an error message that has no form, or none where there must be
// one, a report that does not tell the error, or the warnings where there is none. After exit code 0 the record files of the current directory are read from end to end.
[[nodiscard]] std::string fault_of_run(const RunTraces& run, const MessageForms& forms);

} // namespace korvat::test
