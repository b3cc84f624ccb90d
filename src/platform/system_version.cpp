#include "platform/system_version.hpp"

namespace korvat::platform {
namespace {

struct ProductNames {
    const char* workstation;
    const char* server;
};

// Null where the version has no product of its own.
const ProductNames* products_of(const SystemVersion& version) {
    static constexpr ProductNames version_10 = {"Windows 10", "Windows Server 2016"};
    static constexpr ProductNames version_6[] = {{"Windows 7", "Windows Server 2008 R2"},    // 6.1
                                                 {"Windows 8", "Windows Server 2012"},       // 6.2
                                                 {"Windows 8.1", "Windows Server 2012 R2"}}; // 6.3
    if (version.major == 10) return &version_10;
    if (version.major != 6 || version.minor < 1 || version.minor > 3) return nullptr;
    return &version_6[version.minor - 1];
}

bool is_at_least(const SystemVersion& version, unsigned long major, unsigned long minor) {
    return version.major > major || (version.major == major && version.minor >= minor);
}

} // namespace

std::string system_name_of(const SystemVersion& version) {
    if (const ProductNames* const names = products_of(version)) {
        return version.workstation ? names->workstation : names->server;
    }
    if (is_at_least(version, 6, 0)) return "Windows Vista";
    if (is_at_least(version, 5, 1)) return "Windows XP";
    return "Windows";
}

} // namespace korvat::platform
