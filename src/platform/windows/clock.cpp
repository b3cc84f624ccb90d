#include "platform/clock.hpp"

#include <ctime>

namespace korvat::platform {

LocalTime local_time_now() {
    const __time64_t now = _time64(nullptr);
    const std::tm* const local = _localtime64(&now);
    if (local == nullptr) return {};
    return {local->tm_year + 1900, local->tm_mon, local->tm_mday,
            local->tm_hour,        local->tm_min, local->tm_sec};
}

} // namespace korvat::platform
