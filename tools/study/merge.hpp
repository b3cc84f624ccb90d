// One summary of several journals, such as those of the parts of a study.
#pragma once

#include "study/case_list.hpp"
#include "study/summary.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace korvat::study {

struct MergeOutcome {
    std::uint64_t cases = 0;
    std::uint64_t failed = 0;
    std::uint64_t missing = 0;  // of the list, or of the positions up to the last one
    std::uint64_t unlisted = 0; // cases of the journals that the list does not have
    std::uint64_t damaged = 0;  // lines that are no records
};

// Writes the last record of each case; of one that several journals have, that of the last of them. In the order of
// the list, whose parameters the rows have, else by their positions. A case of the list that no journal has gets a row
// that says so. Raises StudyError where a journal or the list cannot be read.
[[nodiscard]] MergeOutcome merge(const std::vector<std::string>& journals,
                                 const std::optional<CaseNames>& list, std::istream& input,
                                 std::ostream& out, SummaryFormat format);

} // namespace korvat::study
