// The name of an operating system by its version number.
#pragma once

#include <string>

namespace korvat::platform {

struct SystemVersion {
    unsigned long major = 0;
    unsigned long minor = 0;
    bool workstation = false; // not a server product
};

[[nodiscard]] std::string system_name_of(const SystemVersion& version);

} // namespace korvat::platform
