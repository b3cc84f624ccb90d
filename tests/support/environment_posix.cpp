// Environment variables of the test's own process (POSIX).
#include "environment.hpp"

#include <cstdlib>
#include <stdexcept>

namespace korvat::test {

void set_environment_variable(const std::string& name, const std::string& value) {
    if (setenv(name.c_str(), value.c_str(), 1) != 0) throw std::runtime_error("cannot set " + name);
}

void unset_environment_variable(const std::string& name) {
    if (unsetenv(name.c_str()) != 0) throw std::runtime_error("cannot unset " + name);
}

} // namespace korvat::test
