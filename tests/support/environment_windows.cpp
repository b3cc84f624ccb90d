// Environment variables of the test's own process (Windows).
#include "environment.hpp"

#include "wide.hpp"

#include <stdexcept>
#include <windows.h>

namespace korvat::test {

void set_environment_variable(const std::string& name, const std::string& value) {
    if (SetEnvironmentVariableW(wide(name).c_str(), wide(value).c_str()) == 0) {
        throw std::runtime_error("cannot set " + name);
    }
}

void unset_environment_variable(const std::string& name) {
    const bool gone = SetEnvironmentVariableW(wide(name).c_str(), nullptr) != 0 ||
                      GetLastError() == ERROR_ENVVAR_NOT_FOUND;
    if (!gone) throw std::runtime_error("cannot unset " + name);
}

} // namespace korvat::test
