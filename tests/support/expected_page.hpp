// The identification page that a log must have, worked out from the rest of the log and from the machine.
#pragma once

#include "host_facts.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

// The lines between the stamp of a log and its start line; none when it is no log of a run.
std::vector<std::string> page_of_log(std::string_view log);

// The lines of the page behind the banner, that is from its 13th line on. The start of the run is taken
// from the log's stamp, the release date from its start line. Throws std::runtime_error when the log
// has no such lines.
std::vector<std::string> expected_page(std::string_view log, const HostFacts& host);

} // namespace korvat::test
