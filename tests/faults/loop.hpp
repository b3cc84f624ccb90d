// One fault after the other, in a loop that is judged case by case and counts its cases.
#pragma once

#include "verdict.hpp"
#include "workplace.hpp"

#include <cstdint>
#include <gtest/gtest.h>
#include <iostream>
#include <string>
#include <vector>

namespace korvat::test {

inline std::string joined_lines(const std::vector<std::string>& texts) {
    std::string text;
    for (const std::string& part : texts)
        text += "\n  " + part;
    return text;
}

// A run in a directory with the files of earlier runs.
inline Outcome run_after_others(const std::string& deck, const Surroundings& surroundings) {
    const Workplace place(deck);
    place.add_earlier_files();
    return place.run(surroundings);
}

// Has the n-th call fail, n = 1, 1 + step, 1 + 2 step ... until a run does not come to it; returns
// the number of runs.
inline std::uint64_t fail_each_call(const std::string& deck, Fault fault, std::uint64_t step = 1) {
    const Outcome undisturbed = run_after_others(deck, {});
    std::uint64_t cases = 1;
    for (fault.at = 1;; fault.at += step, ++cases) {
        const Outcome run = run_after_others(deck, {.fault = fault});
        const std::vector<std::string> list = complaints(run, fault, undisturbed);
        EXPECT_TRUE(list.empty()) << "call " << fault.at << ", files" << joined_lines(run.hit)
                                  << "\n  exit code " << run.exit_code << joined_lines(list) << "\n"
                                  << run.standard_error;
        if (run.fired == 0) return cases;
    }
}

inline void show_cases(std::uint64_t cases) {
    std::cout << "cases: " << cases << "\n";
    testing::Test::RecordProperty("cases", std::to_string(cases));
}

} // namespace korvat::test
