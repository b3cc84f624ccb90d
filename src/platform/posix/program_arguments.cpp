#include "platform/program_arguments.hpp"

namespace korvat::platform {

std::vector<std::string> program_arguments(int argc, const char* const* argv) {
    return {argv, argv + argc};
}

} // namespace korvat::platform
