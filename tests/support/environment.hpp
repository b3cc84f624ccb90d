// Environment variables of the test's own process.
#pragma once

#include <string>

namespace korvat::test {

// Both throw std::runtime_error when the system refuses.
void set_environment_variable(const std::string& name, const std::string& value);
void unset_environment_variable(const std::string& name);

} // namespace korvat::test
