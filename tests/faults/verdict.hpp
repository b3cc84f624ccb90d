// Judges a run under a fault by what the undisturbed run does: nothing lost, nothing silent.
#pragma once

#include "faulty_run.hpp"

#include <string>
#include <vector>

namespace korvat::test {

// The names of the files that a run reports as not written, with the reasons.
std::map<std::string, std::string> files_not_written(const Outcome& run);

// Empty when the run is as good as the undisturbed one: the same files, exit code and streams.
std::vector<std::string> differences(const Outcome& run, const Outcome& undisturbed);

// Of a run after others. Empty when the run under the fault did what it must: it ended by itself;
// nothing is damaged after the exit code of the undisturbed run, except files that could not be
// opened, which the run reports; every file that could not be written is named with the reason after exit
// code 255; and the text files of the earlier run are not lost.
std::vector<std::string> complaints(const Outcome& run, const Fault& fault,
                                    const Outcome& undisturbed);

// The same for a run on a device or under a limit that leaves no room: every file that is not right
// is named with the reason, and no other.
std::vector<std::string> complaints(const Outcome& run, const std::string& reason,
                                    const Outcome& undisturbed);

} // namespace korvat::test
