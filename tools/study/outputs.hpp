// The files of a run in the folder of its case.
#pragma once

#include "study/case_record.hpp"
#include "study/run_messages.hpp"

#include <optional>
#include <string>
#include <vector>

namespace korvat::study {

inline constexpr const char* deck_name = "KORVAT.INP";

// The path of a name below a directory.
[[nodiscard]] std::string below(const std::string& directory, const std::string& name);

// The digest of the deck of a case; none where there is none or it cannot be read.
[[nodiscard]] std::optional<std::string> deck_digest(const std::string& directory);

// The outputs that stand there, but those that a message says are of an earlier run.
[[nodiscard]] std::vector<OutputFile> present_outputs(const std::string& directory,
                                                      const std::vector<RunMessage>& messages);

// Whether what stands there is what a run with this record has left: sizes, and of results the content.
[[nodiscard]] bool has_outputs(const std::string& directory, const CaseRecord& record);

// Removes what is not to be kept of a fine case, backups too.
void remove_outputs(const std::string& directory, Keep keep);

} // namespace korvat::study
