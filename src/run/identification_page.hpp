// The identification page at the top of the message log.
#pragma once

#include "model/store/store.hpp"
#include "run/identification.hpp"
#include "run/time_stamp.hpp"

#include <string>
#include <vector>

namespace korvat {

// What the page says about the machine and its user.
struct HostTexts {
    std::string user;
    std::string computer;
    std::string processor;
    std::string operating_system;
    int host_number = 0;
};

// What the running system says.
[[nodiscard]] HostTexts host_texts();

// The page's lines, of 131 columns each. ITIME is the start of the run.
[[nodiscard]] std::vector<std::string> compose_identification_page(const Identification& texts,
                                                                   const TimeFields& ITIME,
                                                                   const HostTexts& host);

// Writes the page of this run to a unit.
void write_identification_page(Store& cmn, int unit, const Identification& texts,
                               const TimeFields& ITIME);

} // namespace korvat
