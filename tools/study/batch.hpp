// Runs many cases, some of them side by side, and keeps a journal of them.
#pragma once

#include "study/case_list.hpp"
#include "study/journal.hpp"
#include "study/progress.hpp"
#include "study/run_program.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace korvat::study {

struct BatchWishes {
    int jobs = 1; // processes at once
    bool is_resumed =
        false;            // cases that stand in the journal as they stand on the disk are not run
    int retries = 0;      // of a case that crashed or took too long
    double timeout = 0.0; // seconds for a try; 0: as long as it takes
    Keep keep = Keep::all;
    Shard shard;
};

// In place of the offset of a case that has not come to its end.
inline constexpr std::uint64_t no_offset = ~std::uint64_t{0};

struct BatchOutcome {
    BatchCounts counts;
    int end_request = 0;                // the signal that has ended the batch; 0: none has
    std::string stop;                   // why it was given up; empty: it was not
    std::uint64_t other_decks = 0;      // that are not those of their manifest
    std::vector<std::uint64_t> offsets; // in the journal, of the cases in their order
};

// How many processes the cores and the memory that this program may use are good for.
[[nodiscard]] int usable_jobs();

// Runs the cases of the list that belong to the shard. What is noteworthy is told by `progress` as it happens.
// Where the journal does not take a line, the batch is given up: what runs is ended. Raises StudyError for a list
// that cannot be read on, std::system_error where the system refuses what every case needs.
[[nodiscard]] BatchOutcome run_batch(const BatchWishes& wishes, CaseList& cases,
                                     RunProgram& program, Journal& journal, Progress& progress);

} // namespace korvat::study
