// The date on which the program was built; the build compiles this file anew with every change.
#include "run/build_date.hpp"

namespace korvat {

std::string_view build_date() {
    return __DATE__;
}

} // namespace korvat
