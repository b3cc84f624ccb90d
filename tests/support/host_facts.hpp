// What the machine says of itself, found out by other ways than the program's.
#pragma once

#include <string>

namespace korvat::test {

// As the identification page has them, but for the cut to their fields.
struct HostFacts {
    std::string user;
    std::string computer;
    std::string processor;
    std::string operating_system;
    std::string host_number; // ten characters
};

// By the system's own commands and lists (POSIX). User and computer stay empty.
HostFacts host_facts();

} // namespace korvat::test
