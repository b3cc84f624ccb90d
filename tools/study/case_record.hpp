// What is known of a case that has been run: a line of the journal, and a row of the summary.
#pragma once

#include "study/group_values.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvat::study {

enum class CaseState {
    fine,    // exit code 0, and PILE.07 can be read
    refused, // the deck has an error: another run would say the same
    lost,    // the machine did not take an output, or had no memory
    crashed, // the program died
    timeout, // it was ended when its time was over
    not_run  // there is no deck, or no process could be started in its folder
};

[[nodiscard]] std::string_view name_of(CaseState state);

// Which files of fine cases stay beside the deck.
enum class Keep { all, results, failed }; // results: PILE.07 and LOAD.09; failed: none

[[nodiscard]] std::string_view name_of(Keep keep);

// A file that a run has left. Log and listing show the time, so that only results have a digest.
struct OutputFile {
    std::string name;
    std::uint64_t size = 0;
    std::string digest; // of PILE.07 and LOAD.09; else empty

    bool operator==(const OutputFile&) const = default;
};

// Names and values of the columns of a table, in their order.
using Parameters = std::vector<std::pair<std::string, std::string>>;

struct CaseRecord {
    std::string name;
    std::uint64_t position = 0; // in the list of cases, from 0
    Parameters parameters;
    std::string deck;    // digest of KORVAT.INP; empty where there is none
    std::string program; // digest of the program's file
    std::string version; // as the log has it; empty where there is no log
    CaseState state = CaseState::not_run;
    std::optional<int> exit_code; // 128 + signal of a crash; none of a timeout and what was not run
    std::string error;            // the first one; empty where there is none
    std::optional<int> line;      // of the deck, where the error is about one
    int warnings = 0;
    std::optional<GroupValues> values;
    std::vector<OutputFile> outputs; // as they were after the run
    Keep kept = Keep::all;           // which of the outputs have stayed
    int tries = 0;
    double seconds = 0.0; // of the last try

    bool operator==(const CaseRecord&) const = default;
};

// A line without its end.
[[nodiscard]] std::string to_line(const CaseRecord& record);

// None where the line is no record, such as a line that was not written to its end.
[[nodiscard]] std::optional<CaseRecord> record_of_line(std::string_view line);

} // namespace korvat::study
