// The check of the fuzz targets: a broken one ends the process, which the fuzzer takes for a finding.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace korvat::test {

inline void require(bool holds, const std::string& what) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", what.c_str());
    std::abort();
}

} // namespace korvat::test
