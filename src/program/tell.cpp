#include "program/tell.hpp"

#include <cstdio>

namespace korvat {

int tell(const RunEnd& end) {
    std::fputs(end.report.c_str(), stderr);
    if (end.out_of_memory) std::fputs("korvat: out of memory\n", stderr);
    return end.exit_code;
}

} // namespace korvat
