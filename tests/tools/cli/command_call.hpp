// A call of korvat-tools within the test, with what it writes.
#pragma once

#include "cli/command_line.hpp"

#include <gtest/gtest.h>
#include <iostream>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace korvat::test {

struct CommandCall {
    int code = 0;
    std::string out;
    std::string error;

    bool operator==(const CommandCall&) const = default;
    friend void PrintTo(const CommandCall& call, std::ostream* stream) {
        *stream << call.code << "\n--- out\n" << call.out << "--- error\n" << call.error;
    }
};

// Standard input is the given text.
inline CommandCall called_with(std::vector<std::string> arguments, const std::string& input = "") {
    arguments.insert(arguments.begin(), "korvat-tools");
    std::vector<const char*> words;
    for (const std::string& argument : arguments)
        words.push_back(argument.c_str());
    std::istringstream in(input);
    std::streambuf* const before = std::cin.rdbuf(in.rdbuf());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    CommandCall call;
    call.code = cli::run_command_line(static_cast<int>(words.size()), words.data());
    std::cin.rdbuf(before);
    call.out = testing::internal::GetCapturedStdout();
    call.error = testing::internal::GetCapturedStderr();
    return call;
}

} // namespace korvat::test
