// The system's texts for error numbers.
#include "platform/files.hpp"

#include <system_error>

namespace korvat::platform {

std::string error_text(int error) {
    return std::generic_category().message(error);
}

} // namespace korvat::platform
